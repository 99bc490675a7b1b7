#include "fetchkit/activity/Formatting.h"

#include "activity/SampleCalendar.h"
#include "fetchkit/base/Utf8.h"

namespace fetchkit::test {
namespace {

class Formatting : public LoggedInTest {
 protected:
  const Text kCurrency = u"Select * from Currencys Where lngCurrencyID = 7";
  static Answer Decimals(Value decimals) {
    return Rows({u"lngCurrencyID", u"bytCurrencydec"}, {{std::int32_t{7}, std::move(decimals)}});
  }
};

TEST_F(Formatting, FormatValue) {
  const auto two = Decimals(std::int32_t{2});
  Table<Answer, double, TextView>{
      {"the decimals of the currency", Decimals(std::int32_t{3}), 1234567.8915, u"1234567.892"},
      {"a half that the double misses", two, 2.345, u"2.35"},
      {"and below zero", two, -1.005, u"-1.01"},
      {"the even neighbour is not preferred", Decimals(std::int32_t{0}), -0.5, u"-1"},
      {"zero has no sign", two, -0.004, u"0.00"},
      {"no noise behind the fifteenth digit", Decimals(std::int32_t{6}), 123456789012.3456789,
       u"123456789012.346000"},
      {"never an exponent", two, 1e20, u"100000000000000000000.00"},
      {"no row: two", Rows({u"bytCurrencydec"}, {}), 1.5, u"1.50"},
      {"Null: two", Decimals(NullValue()), 1.5, u"1.50"},
  }
      .Check([&](const Answer& answer, double value, TextView expected) {
        session().ActivityCaches.reset();
        host_->On(kCurrency, answer);
        EXPECT_EQ(ToUtf8(activity_.FormatValue(value)), ToUtf8(expected));
      });
}

TEST_F(Formatting, AmountDecimalsAreReadOncePerThread) {
  EXPECT_EQ(activity_.GetFormat(3), u"#0.000") << "asks for nothing";
  for (const Answer& fault : {Refused(), Throws(), Decimals(u"two")}) {
    host_->On(kCurrency, fault);
    EXPECT_EQ(activity_.FormatValue(1), u"");
  }
  host_->On(kCurrency, Decimals(std::int32_t{1}));
  host_->TakeSent();
  EXPECT_EQ(activity_.FormatValue(1), u"1.0");
  EXPECT_EQ(host_->TakeSent(), Sent{"static: " + ToUtf8(kCurrency)});
  session().AccountKey = u"7$DBSRV$ACC02";
  session().NaturalCurrencyId = 8;
  EXPECT_EQ(activity_.FormatValue(2), u"2.0");
  EXPECT_EQ(Cost(), 0u) << "kept over logins";
}

TEST_F(Formatting, FormatSQL) {
  Table<TextView, TextView>{
      {"all three", u"a || Upper(b) || Lower(c)", u"a + UCase(b) + LCase(c)"},
      {"in any letter case, quotes and words", u"'||' MyuPper(x)", u"'+' MyUCase(x)"},
  }
      .Check([&](TextView sql, TextView expected) {
        for (const std::int32_t type : {0, 1, 2, 5, 6, 7, 16}) {
          host_->login.accountType = type;
          EXPECT_EQ(ToUtf8(activity_.FormatSQL(sql)),
                    ToUtf8(type == 1 || type == 6 ? expected : sql))
              << type;
        }
      });
  EXPECT_EQ(Cost(), 0u);
  host_->login.spoilt = {"AccountType"};
  EXPECT_EQ(activity_.FormatSQL(u"a||b"), u"a||b") << "an emptied condition would widen a query";
  host_->login.absent = {"HostContext"};
  EXPECT_EQ(activity_.FormatSQL(u"a||b"), u"a||b");
}

}  // namespace
}  // namespace fetchkit::test
