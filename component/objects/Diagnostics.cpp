#include "component/objects/Diagnostics.h"

#include <utility>

#include "component/com/Bstr.h"
#include "component/host/NamedObject.h"
#include "component/platform/FailureLog.h"
#include "component/platform/HeardFailures.h"
#include "fetchkit/base/Error.h"
#include "fetchkit/session/Interface.h"

namespace fetchkit {
namespace {

const Failure& Last() {
  return HeardFailures::OfThread().last();
}

}  // namespace

class Diagnostics::ByName : public DiagnosticsSink {
 public:
  explicit ByName(HostPtr<IDispatch> object) : object_(std::move(object)), names_(object_) {
    if (!names_.Has(u"OnFailure"))
      throw Error(ErrorKind::TypeMismatch,
                  u"A listener needs a member OnFailure with four arguments.");
  }

  void OnFailure(const Failure& failure) override {
    try {
      const Bstr texts[] = {Bstr(failure.what), Bstr(failure.description), Bstr(failure.statement),
                            Bstr(failure.databaseText)};
      const VARIANT arguments[] = {Argument(texts[0]), Argument(texts[1]), Argument(texts[2]),
                                   Argument(texts[3])};
      names_.Call(u"OnFailure", arguments);
    } catch (...) {
      // The failure is counted; what its listener makes of it is the listener's.
    }
  }

  ComPtr<IDispatch> object() const { return object_; }

 private:
  HostPtr<IDispatch> object_;
  NamedObject names_;
};

std::int32_t Diagnostics::FailureCount() const {
  return HeardFailures::OfThread().count();
}

Text Diagnostics::LastMember() const {
  return Last().what;
}

Text Diagnostics::LastText() const {
  return Last().description;
}

Text Diagnostics::LastStatement() const {
  return Last().statement;
}

Text Diagnostics::LastDatabaseText() const {
  return Last().databaseText;
}

Text Diagnostics::LastFailure() const {
  const Failure& last = Last();
  Text all = last.what;
  if (!last.description.empty()) all.append(u": ").append(last.description);
  if (!last.databaseText.empty()) all.append(u"\r\n").append(last.databaseText);
  if (!last.statement.empty()) all.append(u"\r\n").append(last.statement);
  return all;
}

void Diagnostics::Clear() {
  HeardFailures::OfThread().Clear();
}

LoginState::Extent Diagnostics::LoginExtent() const {
  return Interface().LoginState().extent;
}

Text Diagnostics::LoginReasons() const {
  Text all;
  for (const Text& step : Interface().LoginState().failedSteps)
    all.append(all.empty() ? u"" : u"\r\n").append(step);
  return all;
}

ComPtr<IDispatch> Diagnostics::Listener() const {
  return listener_ ? listener_->object() : ComPtr<IDispatch>();
}

void Diagnostics::Listener(const ComPtr<IDispatch>& object) {
  std::shared_ptr<ByName> fresh;
  if (object) {
    fresh = std::make_shared<ByName>(object);
    HeardFailures::OfThread().Tell(fresh);
  }
  listener_ = std::move(fresh);
}

Text Diagnostics::LogFile() const {
  return HeardFailures::OfThread().LogFile();
}

void Diagnostics::LogFile(TextView file) {
  const Text path(file);
  if (const DWORD refused = path.empty() ? ERROR_SUCCESS : TryLog(path))
    throw Error(ErrorKind::InvalidCall,
                Join(u"The log file ", path, u" cannot be written (system error ", refused, u")."));
  HeardFailures::OfThread().SetLogFile(path);
}

}  // namespace fetchkit
