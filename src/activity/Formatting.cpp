#include "activity/Formatting.h"

#include "activity/ActivityCaches.h"
#include "activity/ServiceRows.h"
#include "base/Error.h"
#include "base/Guard.h"
#include "base/Numbers.h"
#include "base/TextSearch.h"

namespace fetchkit::MActivity {
namespace {

constexpr int kUsualDecimals = 2;

int ReadAmountDecimals(Session& session) {
  const auto decimals = ReadFirst(
      session, Join(u"Select * from Currencys Where lngCurrencyID = ", session.NaturalCurrencyId),
      u"bytCurrencydec");
  return decimals && !decimals->IsNull() ? ToByte(*decimals) : kUsualDecimals;
}

std::int32_t ReadAccountType(const Session& session) {
  const auto context = MAction::ConnectionOf(session)->HostContext();
  const auto info = context ? context->AccountTypeInfo() : nullptr;
  if (!info) throw Error(ErrorKind::ObjectMissing, u"The host has no AccountTypeInfo.");
  return ToLong(info->AccountType());
}

struct Replacement {
  TextView from;
  TextView to;
  bool anyCase;
};

Text Replaced(TextView text, const Replacement& rule) {
  const auto find = rule.anyCase ? FindFolded : FindText;
  Text result;
  result.reserve(text.size());  // none of the replacements is longer than what it replaces
  std::size_t from = 0;
  for (;;) {
    const std::size_t at = find(text, rule.from, from);
    if (at == TextView::npos) break;
    result.append(text.substr(from, at - from)).append(rule.to);
    from = at + rule.from.size();
  }
  return result.append(text.substr(from));
}

}  // namespace

Text GetFormat(std::int16_t intDec) {
  return Guarded(u"Activity.GetFormat", Text(), [&] {
    return intDec > 0 ? Join(u"#0.", Text(static_cast<std::size_t>(intDec), u'0')) : Text();
  });
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
    const std::int32_t type = ReadAccountType(session);
    if (type != 1 && type != 6) return Text(strSql);
    Text sql = Replaced(strSql, {u"||", u"+", false});
    sql = Replaced(sql, {u"Upper(", u"UCase(", true});
    return Replaced(sql, {u"Lower(", u"LCase(", true});
  });
}

}  // namespace fetchkit::MActivity
