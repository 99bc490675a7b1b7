// What callers hear of failures that are quiet by design.
#pragma once

#include <cstdint>
#include <memory>

#include "component/Windows.h"
#include "component/com/ComPtr.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/session/LoginState.h"

namespace fetchkit {

// Of the calling thread, as the session is: any number of these objects on a thread tell the same,
// except that each has a listener of its own.
class Diagnostics {
 public:
  // Failures since the thread's first call of the library, or since Clear; notes do not count.
  std::int32_t FailureCount() const;

  // The last one: the step or member, what went wrong, the statement, the database's own words, and
  // all of it as one text. Empty where there is nothing to say.
  Text LastMember() const;
  Text LastText() const;
  Text LastStatement() const;
  Text LastDatabaseText() const;
  Text LastFailure() const;

  void Clear();

  // How much of the last login came in, and what kept it from being whole, a step a line.
  LoginState::Extent LoginExtent() const;
  Text LoginReasons() const;

  // Told of each failure by name, OnFailure(member, text, statement, databaseText), as long as this
  // object lives and keeps it; its own errors are swallowed. Error (TypeMismatch) for an object
  // without such a member; null for none. Members on other threads are told to these threads'
  // objects.
  ComPtr<IDispatch> Listener() const;
  void Listener(const ComPtr<IDispatch>& object);

  // The file that the thread's failures are appended to; empty for none. Error (InvalidCall) for
  // one that cannot be written, with the one before it left in place.
  Text LogFile() const;
  void LogFile(TextView file);

 private:
  class ByName;
  std::shared_ptr<ByName> listener_;
};

}  // namespace fetchkit
