#include "fetchkit/activity/Formatting.h"

#include "fetchkit/activity/ActivityCaches.h"
#include "fetchkit/activity/ServiceRows.h"
#include "fetchkit/base/Guard.h"
#include "fetchkit/base/Numbers.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/session/model/HostLogin.h"
#include "fetchkit/utility/CellNames.h"

namespace fetchkit::MActivity {
namespace {

constexpr int kUsualDecimals = 2;

int ReadAmountDecimals(Session& session) {
  const auto decimals = ReadFirst(
      session, Join(u"Select * from Currencys Where lngCurrencyID = ", session.NaturalCurrencyId),
      u"bytCurrencydec");
  return decimals && !decimals->IsNull() ? ToByte(*decimals) : kUsualDecimals;
}

}  // namespace

Text GetFormat(std::int16_t intDec) {
  return Guarded(u"Activity.GetFormat", Text(), [&] { return CellNames::FormatDec(intDec); });
}

Text FormatValue(Session& session, double dblValue) {
  return Guarded(u"Activity.FormatValue", Text(), [&] {
    auto& decimals = ActivityCaches::Of(session).amountDecimals;
    if (!decimals) decimals = ReadAmountDecimals(session);
    return FixedText(dblValue, *decimals);
  });
}

Text FormatSQL(Session& session, TextView strSql) {
  return Guarded(u"Activity.FormatSQL", Text(), [&] {
    const std::int32_t type = MAction::ReadAccountType(session);
    if (type != 1 && type != 6) return Text(strSql);
    Text sql = ReplaceText(strSql, u"||", u"+");
    sql = ReplaceFolded(sql, u"Upper(", u"UCase(");
    return ReplaceFolded(sql, u"Lower(", u"LCase(");
  });
}

}  // namespace fetchkit::MActivity
