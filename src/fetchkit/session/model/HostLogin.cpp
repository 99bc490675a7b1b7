#include "fetchkit/session/model/HostLogin.h"

namespace fetchkit::MAction {

std::shared_ptr<HostContext> ContextOf(const Session& session) {
  const SessionConnectionPtr connection = ConnectionOf(session);
  auto context = connection->HostContext();
  Present(context, u"HostContext");
  return context;
}

std::int32_t ReadAccountType(const Session& session) {
  const HostCall call;
  const SessionConnectionPtr connection = ConnectionOf(session);  // lives until all is read
  const auto info = ContextOf(session)->AccountTypeInfo();
  return ToLong(Present(info, u"AccountTypeInfo").AccountType());
}

}  // namespace fetchkit::MAction
