#include "fetchkit/session/model/CustomerSs.h"

#include "fetchkit/session/model/RecordColumns.h"
#include "fetchkit/utility/StringHelpers.h"

namespace fetchkit {
namespace {

constexpr RecordColumn<CustomerSs> kColumns[] = {
    {u"lngSSCustomerId", Into<&CustomerSs::CustomerID, ToLong>},
    {u"strSSCustomerCode", Into<&CustomerSs::CustomerCode, ToText>},
    {u"strSSCustomerName", Into<&CustomerSs::CustomerName, ToText>},
    {u"strFullName",
     [](CustomerSs& customer, const Value& name) {
       customer.FullName(ToText(StringHelpers::NotNull(name, u"")));
     }},
    {u" blnIsInActive", Into<&CustomerSs::IsInActive, ToBoolean>},
};

}  // namespace

namespace MAction {

std::shared_ptr<CustomerSs> SSCustomer(Session& session) {
  return Cached<CustomerSs>(session, session.AccountKey);
}

void LoadCustomer(Session& session, CustomerSs& customer, std::int32_t accountType) {
  constexpr TextView kStep = u"Initialize: service customer";
  RecordLoad& load = session.CustomerLoad;
  if (accountType < 6 || accountType > 8) {
    load = RecordLoad();
    return;
  }
  const auto loader = [&] {
    const Text sql =
        Join(u" SELECT ", SelectList(kColumns),
             accountType == 8 ? u"  FROM McCustomer " : u"  FROM SSCustomer ",
             u" WHERE lngSSCustomerId = ", session.SSCustomerId, u" ORDER BY strSSCustomerCode");
    LoadFirstRow(session, load, kStep, sql, kColumns, customer);
    // A host that names no customer lacks none.
    if (session.SSCustomerId == 0 && !load.found && !load.cutShort) load = RecordLoad();
  };
  LoadIfDue(load, [&] { LoadPart(load, kStep, loader); });
}

}  // namespace MAction
}  // namespace fetchkit
