// A login, services, lists and their saving on a host whose rows hold anything.
#include <stdexcept>

#include "fetchkit/base/TextSearch.h"
#include "fuzz/Fuzz.h"
#include "support/AnyHost.h"
#include "support/EveryService.h"

namespace fetchkit::test {
namespace {

Value AnyCell(Input& in, TextView column) {
  static constexpr TextView kWords[] = {u"1",          u"2",      u"6",    u"11",
                                        u"STRING",     u"CODE",   u"ENUM", u"DOUBLE",
                                        u"2004-03-17", u"PERIOD", u"DATE", u"a b"};
  switch (in.Below(12)) {
    case 0:
      return NullValue();
    case 1:
      return in.Number();
    case 2:
      return Date{in.Number()};
    case 3:
      return in.Bool();
    case 4:
      return Value(ValueArray{});
    case 5:
      throw std::runtime_error("row lost");
    case 6:
      return in.Long();
    default:
      return column.starts_with(u"str") || column.starts_with(u"Str")
                 ? Value(in.Pieces(kWords, 2))
                 : Value(static_cast<std::int32_t>(in.Byte()));
  }
}

}  // namespace

FUZZ_TARGET(Records) {
  const auto host = std::make_shared<AnyHost>();
  host->rows = [&](TextView) { return in.Below(5) - 1; };
  host->cell = [&](TextView column) { return AnyCell(in, column); };
  host->onStatement = [&](TextView sql) {
    // None of the cells holds an apostrophe, so that every statement has them in pairs.
    EXPECT_EQ(CountUnit(sql, u'\'') % 2, 0u) << ToUtf8(sql);
    EXPECT_EQ(CountUnit(sql, u'('), CountUnit(sql, u')')) << ToUtf8(sql);
    if (in.Below(16) == 1) throw std::runtime_error("connection lost");
  };
  host->login.loginDate = in.Bool() ? Value(in.Units(6)) : Value(u"2004-03-17");
  Interface entry;
  entry.Initialize(host);
  EXPECT_EQ(host->openRecordsets, 0);
  for (int call = 0; call < 40 && !in.AtEnd(); ++call) {
    CallService(entry, in.Byte(), in.Pick<TextView>({u"Account", u"Department", u"x"}), in.Long());
    EXPECT_EQ(host->openRecordsets, 0);
  }
}

}  // namespace fetchkit::test
