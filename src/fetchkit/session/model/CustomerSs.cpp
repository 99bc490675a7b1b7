#include "fetchkit/session/model/CustomerSs.h"

#include "fetchkit/base/Guard.h"
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
  if (!session.CustomerChanged || accountType < 6 || accountType > 8) return;
  Step(u"Initialize: service customer", [&] {
    const Text sql =
        Join(u" SELECT ", SelectList(kColumns),
             accountType == 8 ? u"  FROM McCustomer " : u"  FROM SSCustomer ",
             u" WHERE lngSSCustomerId = ", session.SSCustomerId, u" ORDER BY strSSCustomerCode");
    LoadFirstRow(session, sql, kColumns, customer);
  });
}

}  // namespace MAction
}  // namespace fetchkit
