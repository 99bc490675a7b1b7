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
  // Never less than it was: an emptied condition would let everything through.
  return Guarded(u"Activity.FormatSQL", Text(), [&](Text& sql) {
    sql = strSql;
    const std::int32_t type = MAction::ReadAccountType(session);
    if (type != 1 && type != 6) return;
    const Text joined = ReplaceText(strSql, u"||", u"+");
    sql = ReplaceFolded(ReplaceFolded(joined, u"Upper(", u"UCase("), u"Lower(", u"LCase(");
  });
}

}  // namespace fetchkit::MActivity
