// The host's login context.
#pragma once

#include <memory>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"

namespace fetchkit {

// Every member may throw, and may answer with a value of another type than the one named: the
// library converts what it gets and skips what it cannot read.

class HostAccountType {
 public:
  virtual ~HostAccountType() = default;
  virtual Value AccountType() = 0;  // Long
};

class HostAccountLogin {
 public:
  virtual ~HostAccountLogin() = default;
  virtual Value ServerName() = 0;  // String: the account's database server
  virtual Value UserId() = 0;      // String: the account's database user, owner of its tables
};

class HostLoginContext {
 public:
  virtual ~HostLoginContext() = default;
  virtual Value LoginDate() = 0;       // String: a date text
  virtual Value OrganizationId() = 0;  // Long
  virtual Value OperatorId() = 0;      // Long
  virtual Value Password() = 0;        // String: the operator's, as the host keeps it

  // A named login value of any type. The library asks for "#SSCustomerID".
  virtual Value Item(TextView name) = 0;
};

// Null pointers are read as "the host has no such object".
class HostContext {
 public:
  virtual ~HostContext() = default;
  virtual std::shared_ptr<HostAccountType> AccountTypeInfo() = 0;
  virtual std::shared_ptr<HostAccountLogin> AccountLogin() = 0;
  virtual std::shared_ptr<HostLoginContext> LoginContext() = 0;
};

}  // namespace fetchkit
