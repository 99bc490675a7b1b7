#include "fetchkit/activity/Identifiers.h"

#include <functional>

#include "activity/SampleCalendar.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/session/model/Business.h"

namespace fetchkit::test {
namespace {

class Identifiers : public LoggedInTest {};

const Value kLeftOut = MissingValue();

// A service that sends one statement.
struct LookUp {
  std::function<Value(const Activity&)> ask;
  Text sql;               // to the letter
  std::string failed;     // what is left of a failure
  std::string none = {};  // the answer without a row, where it is another one
};

LookUp PeriodCount(std::int16_t year, TextView asked) {
  return {[year](const Activity& a) { return a.GetPeriodCount(year); },
          Join(u" Select Count(*) As lngCount From AccountPeriod Where intYear = ", asked,
               u" And lngOrganizationID = 20"),
          "0"};
}

LookUp Setting(Value section, Value byDefault, Value module, Value organization,
               TextView conditions, std::string none = {}) {
  return {[=](const Activity& a) {
            return a.GetSysSetting(u"键", section, byDefault, module, organization);
          },
          Join(u"SELECT * FROM Setting WHERE strKey='键'", conditions), "", none};
}

std::string ShowValue(const Value& value) {
  return value.IsNull() ? "Null" : value.IsEmpty() ? "Empty" : ToUtf8(ToText(value));
}

TEST_F(Identifiers, LookUpsByOneStatement) {
  const LookUp id = {[](const Activity& a) { return a.GetNewID(u"Voucher"); },
                     u"SELECT Voucher_SEQ.NEXTVAL As lngId FROM DUAL", "0"};
  const LookUp code = {[](const Activity& a) { return a.GetOrganizationCode(-5); },
                       u"Select strOrganizationCode From Organization Where lngOrganizationID=-5",
                       ""};
  const LookUp detail = {[](const Activity& a) { return a.IsDetailOrganization(31); },
                         u"Select blnIsDetail From Organization Where lngOrganizationID = 31",
                         "False"};
  const LookUp decimals = {[](const Activity& a) { return a.GetCurrencyDec(u"lngCurrencyID = 7"); },
                           u"Select bytCurrencydec From Currencys Where lngCurrencyID = 7", "0"};
  const auto title = [](Text (Activity::*ask)() const, TextView name) -> LookUp {
    return {[ask](const Activity& a) { return (a.*ask)(); },
            Join(u"SELECT * FROM Setting WHERE strKey='", name,
                 u"' AND strSection='标题设置' AND lngModuleID=1"),
            "", ToUtf8(name)};
  };
  const Text here = u" AND lngOrganizationID=20";
  Table<LookUp, TextView, Value, std::string>{
      {"id", id, u"LNGID", std::int32_t{2147483647}, "2147483647"},
      {"id too large", id, u"lngId", 2147483648.0, "0"},
      {"code", code, u"strOrganizationCode", u"01-02", "01-02"},
      {"detail", detail, u"blnIsDetail", std::int32_t{0}, "False"},
      {"decimals", decimals, u"bytCurrencydec", std::int32_t{3}, "3"},
      {"periods of today's year", PeriodCount(-1, u"2010"), u"lngCount", u"12", "12"},
      {"periods of year 0", PeriodCount(0, u"0"), u"lngCount", std::int32_t{0}, "0"},
      {"a stored Null is no missing row, an empty default is one",
       Setting(kLeftOut, Value(), kLeftOut, kLeftOut, here, "Empty"), u"strSetting", NullValue(),
       "Null"},
      {"everything given; the id itself is not used",
       Setting(u"节", 2.5, std::int32_t{4}, std::int32_t{5},
               u" AND strSection='节' AND lngModuleID=4" + here, "2.5"),
       u"strSetting", u"x", "x"},
      {"no organization for 0", Setting(kLeftOut, kLeftOut, u"4", 0.0, u" AND lngModuleID=4"),
       u"strSetting", u"x", "x"},
      {"given but empty is given",
       Setting(u"", kLeftOut, Value(), Value(), u" AND strSection='' AND lngModuleID="),
       u"strSetting", u"x", "x"},
      {"class 1", title(&Activity::GetClass1Name, u"统计"), u"strSetting", u"部类", "部类"},
      {"class 2", title(&Activity::GetClass2Name, u"项目"), u"strSetting", u"部类", "部类"},
  }
      .Check([&](const LookUp& lookUp, TextView column, const Value& value,
                 const std::string& expected) {
        const std::pair<Answer, std::string> answers[] = {
            {Rows({Text(column)}, {{value}}), expected},
            {Rows({Text(column)}, {}), lookUp.none.empty() ? lookUp.failed : lookUp.none},
            {Refused(), lookUp.failed},
            {Rows({u"another column"}, {{value}}), lookUp.failed},
        };
        for (const auto& [answer, result] : answers) {
          host_->On(lookUp.sql, answer);
          EXPECT_EQ(ShowValue(lookUp.ask(activity_)), result);
          EXPECT_EQ(host_->TakeSent(), Sent{"static: " + ToUtf8(lookUp.sql)});
        }
      });
}

TEST_F(Identifiers, TenTablesShareOneSequence) {
  const auto idFrom = [&](TextView sequence, TextView table) {
    host_->On(Join(u"SELECT ", sequence, u"_SEQ.NEXTVAL As lngId FROM DUAL"),
              Rows({u"lngId"}, {{std::int32_t{9}}}));
    EXPECT_EQ(activity_.GetNewID(table), 9) << ToUtf8(table);
  };
  for (const TextView table :
       {u"MMForecast", u"mmforecastdetail", u"MMMATERIAL", u"MMMaterialDetail",
        u"MMMaterialDetail1", u"mmorder", u"MMOrderDetail", u"MMOrderDetail1", u"MMProduct",
        u"MMPRODUCTDETAIL"})
    idFrom(u"MMActivity", table);
  for (const TextView other : {u"mmorders", u"MMOrderDetail2", u"MMProductDetail1"})
    idFrom(other, other);
}

TEST_F(Identifiers, FlexFieldIsUsed) {
  const Text use = u"SELECT * FROM FlexibleUseField WHERE lngOrganizationID = 20";
  const Text titles = u"SELECT * FROM FlexibleTitle";
  const auto uses = [](Value value) { return Rows({u"blnFieldUse05"}, {{value}}); };
  const auto title = [](Value value) { return Rows({u"strTitle05"}, {{value}}); };
  const Value on = std::int32_t{1};
  // The answer, the title behind it and the number of statements.
  Table<Answer, Answer, bool, std::string, std::size_t>{
      {"in use", uses(on), title(u"合同"), true, "合同", 2},
      {"not in use", uses(std::int32_t{0}), title(u"合同"), false, "before", 1},
      {"no titles at all", uses(on), Rows({u"strTitle05"}, {}), true, "before", 2},
      {"Null title", uses(on), title(NullValue()), true, "", 2},
      {"title refused", uses(on), Refused(), false, "before", 2},
  }
      .Check([&](const Answer& useAnswer, const Answer& titleAnswer, bool expected,
                 const std::string& expectedTitle, std::size_t statements) {
        host_->On(use, useAnswer);
        host_->On(titles, titleAnswer);
        Text shown = u"before";
        EXPECT_EQ(activity_.FlexFieldIsUsed(u"智能字段05", shown), expected);
        EXPECT_EQ(ToUtf8(shown), expectedTitle);
        EXPECT_EQ(Cost(), statements);
      });
}

TEST_F(Identifiers, SchemaProbesAreAskedOnceWhateverTheAnswer) {
  MAction::Business(session())->AccountUserID(u"ACC01");
  Table<TextView, TextView, Text, Answer, bool>{
      {"a table", u"Voucher", u"", u"Select 1 From ACC01.Voucher Where 1=0", Rows({}, {}), true},
      {"refused", u"Lost", u"", u"Select 1 From ACC01.Lost Where 1=0", Refused(), false},
      {"raised", u"Broken", u"", u"Select 1 From ACC01.Broken Where 1=0", Throws(), false},
      {"a field", u"T", u"lngID", u"Select lngID From ACC01.T Where 1=0", Rows({}, {}), true},
  }
      .Check(
          [&](TextView table, TextView field, const Text& sql, const Answer& answer, bool there) {
            host_->On(sql, answer);
            for (const Sent& sent : {Sent{"static: " + ToUtf8(sql)}, Sent{}}) {
              EXPECT_EQ(field.empty() ? activity_.TableNameExists(table)
                                      : activity_.TableFieldExists(table, field),
                        there);
              EXPECT_EQ(host_->TakeSent(), sent);
            }
          });

  // Another account is asked anew; without a connection nothing is learnt.
  session().AccountKey = u"7$DBSRV$ACC02";
  MAction::Business(session())->AccountUserID(u"ACC02");
  session().Connection = nullptr;
  EXPECT_FALSE(activity_.TableNameExists(u"Voucher"));
  session().Connection = host_;
  host_->On(u"Select 1 From ACC02.Voucher Where 1=0", Rows({u"1"}, {}));
  EXPECT_TRUE(activity_.TableNameExists(u"Voucher"));
  EXPECT_EQ(Cost(), 1u);
}

}  // namespace
}  // namespace fetchkit::test
