// The service customer that the host names at login.
#pragma once

#include <cstdint>
#include <memory>

#include "fetchkit/base/Property.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit {

// One per account, whatever customer logs in: it is reloaded in place when the customer changes,
// and keeps the one before when the new id has no row.
class CustomerSs {
 public:
  Property<std::int32_t> CustomerID;
  Property<Text> CustomerCode;
  Property<Text> CustomerName;
  Property<Text> FullName;
  Property<bool> IsInActive;  // inactive customers are loaded like the others
};

namespace MAction {

// The service customer of the current login; never null.
std::shared_ptr<CustomerSs> SSCustomer(Session& session);

// Fills the record with one statement when session.CustomerLoad is due and the account type is 6, 7
// or 8. Stops at the first error; what was set before stands.
void LoadCustomer(Session& session, CustomerSs& customer, std::int32_t accountType);

}  // namespace MAction
}  // namespace fetchkit
