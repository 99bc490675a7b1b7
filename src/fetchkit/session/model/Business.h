// The settings of the account that the host is logged into.
#pragma once

#include <cstdint>
#include <memory>

#include "fetchkit/base/Property.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit {

// One per account. Read-only for hosts in spirit: only the loader calls the Lets.
class Business {
 public:
  Property<std::int16_t> AccountType;  // as the host numbers its kinds of account
  Property<Text> AccountServer;        // database server
  Property<Text> AccountUserID;        // database user, owner of the account's tables
  Property<Text> AccountName;
  Property<Text> AccountVersion;
  Property<Text> AccountUnitCode;
  Property<std::uint8_t> AccountProperty;
  Property<std::uint8_t> GroupDBType;
  Property<std::uint8_t> DiscountRateDec;  // decimals of rates
  Property<std::uint8_t> PriceDec;         // decimals of prices
  Property<std::uint8_t> QuantityDec;      // decimals of quantities
  Property<std::uint8_t> VersionType;
  Property<std::int32_t> CurrencyID;     // the natural currency
  Property<Text> CurrencyCode;           // empty when the currency has no row
  Property<Text> CurrencyName;           // empty when the currency has no row
  Property<std::int16_t> NaturalCurDec;  // its decimals; 2 when it has none or no row
  Property<std::int32_t> TradeID;
  Property<Text> AccountSystem;
  Property<Text> ApplicationLabel;
  Property<Text> GAUnitCode;  // one blank when the account has none
  Property<Text> MessageServer;
  Property<Text> Notes;
  Property<Text> OldAccountSystem;
  Property<Text> StartDate;  // "yyyy-MM-dd"
  Property<Text> TaxType;
  Property<Text> UserName;
  Property<Text> Version;
  Property<Text> DynPwdSvrIP;
  Property<Text> DynPwdSvrPort;  // kept as text
};

namespace MAction {

// The account settings of the current login; never null, empty until Initialize has loaded them.
std::shared_ptr<fetchkit::Business> Business(Session& session);

// Fills the record with two statements when session.AccountLoad is due. Stops at the first error,
// at a Null and at a first statement that cannot be opened; what was set before stands.
void LoadBusiness(Session& session, fetchkit::Business& business, std::int32_t accountType,
                  const Text& accountServer, const Text& accountUserId);

}  // namespace MAction
}  // namespace fetchkit
