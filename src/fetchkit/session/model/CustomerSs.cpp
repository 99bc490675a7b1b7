#include "fetchkit/session/model/CustomerSs.h"

#include "fetchkit/base/Guard.h"
#include "fetchkit/host/OpenedRecordset.h"
#include "fetchkit/utility/StringHelpers.h"

namespace fetchkit::MAction {

std::shared_ptr<CustomerSs> SSCustomer(Session& session) {
  return Cached<CustomerSs>(session, Join(session.AccountKey, u"$", u"SSCustomer"));
}

void LoadCustomer(Session& session, CustomerSs& customer, std::int32_t accountType) {
  if (!session.CustomerChanged || accountType < 6 || accountType > 8) return;
  Step(u"Initialize: service customer", [&] {
    const Text sql =
        Join(u" SELECT lngSSCustomerId,strSSCustomerCode,strSSCustomerName,strFullName,",
             u" blnIsInActive ", accountType == 8 ? u" FROM McCustomer " : u" FROM SSCustomer ",
             u" WHERE lngSSCustomerId = ", session.SSCustomerId, u" ORDER BY strSSCustomerCode");
    OpenedRecordset row(ConnectionOf(session), sql, Cursor::Plain);
    if (!row) return;
    if (row.HasRow()) {
      customer.CustomerID(ToLong(row[u"lngSSCustomerId"]));
      customer.CustomerCode(ToText(row[u"strSSCustomerCode"]));
      customer.CustomerName(ToText(row[u"strSSCustomerName"]));
      customer.FullName(ToText(MUtility::NotNull(row[u"strFullName"], u"")));
      customer.IsInActive(ToBoolean(row[u"blnIsInActive"]));
    }
    row.Close();
  });
}

}  // namespace fetchkit::MAction
