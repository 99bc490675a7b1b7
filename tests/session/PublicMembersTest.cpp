// What all public members promise alike: the last error, and that they raise nothing.
#include <gmock/gmock.h>

#include <functional>

#include "fetchkit/base/Guard.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/session/Interface.h"
#include "fetchkit/utility/Utility.h"
#include "support/FailingAllocations.h"
#include "support/FakeConnection.h"
#include "support/FakePlatform.h"

namespace fetchkit::test {
namespace {

class NoEntries : public KeyedItems {
 public:
  bool Has(TextView) const override { return false; }
};

class PublicMembers : public testing::Test {
 protected:
  struct Member {
    const char* name;
    std::function<void()> call;
  };

  PublicMembers() {
    host_->fallback = [this](TextView) { return &row_; };
    interface_.Initialize(host_);
    organization_ = interface_.LoginOrganization();
    organization_->NextLevelOrganizationId(Text(20, u'7'));
    list_.ViewId(7);
  }

  // Each with arguments for which it needs memory, if it ever does. What an act itself would need
  // memory for is made beforehand.
  const std::vector<Member> members_ = {
      {"Initialize", [this] { interface_.Initialize(host_); }},
      {"GetNewID", [this] { activity_.GetNewID(u"Voucher"); }},
      {"GetOrganizationCode", [this] { activity_.GetOrganizationCode(20); }},
      {"IsDetailOrganization", [this] { activity_.IsDetailOrganization(20); }},
      {"GetClass1Name", [this] { activity_.GetClass1Name(); }},
      {"GetClass2Name", [this] { activity_.GetClass2Name(); }},
      {"GetSysSetting", [this] { activity_.GetSysSetting(u"key", long_, long_); }},
      {"GetCurrencyDec", [this] { activity_.GetCurrencyDec(u"lngCurrencyID=1"); }},
      {"FlexFieldIsUsed", [this] { activity_.FlexFieldIsUsed(u"智能字段05", text_); }},
      {"TableNameExists", [this] { activity_.TableNameExists(u"Voucher"); }},
      {"TableFieldExists", [this] { activity_.TableFieldExists(u"Voucher", u"lngID"); }},
      {"GetAccountPeriod", [this] { activity_.GetAccountPeriod(date_, single_, single_); }},
      {"GetPeriodCount", [this] { activity_.GetPeriodCount(2004); }},
      {"GetEndDate",
       [this] {
         begin_ = end_ = date_;
         activity_.GetEndDate(begin_, end_);
       }},
      {"GetPeriodOfDate", [this] { activity_.GetPeriodOfDate(date_, out_, out_); }},
      {"GetYearOfDate", [this] { activity_.GetYearOfDate(date_, out_, out_, short_); }},
      {"GetBeginAndEndDate",
       [this] { activity_.GetBeginAndEndDate(u"本年", date_, out_, out_, true); }},
      {"GetDateRange",
       [this] { activity_.GetDateRange(u"自定义:2004-01-05,2004-1-9", out_, out_); }},
      {"GetFormat", [this] { activity_.GetFormat(20); }},
      {"FormatValue", [this] { activity_.FormatValue(1234567.5); }},
      {"FormatSQL", [this] { activity_.FormatSQL(u"Upper(strName) || strCode"); }},

      {"ContainErrorChar", [] { Utility::ContainErrorChar(u"a部", u"部*", u"*"); }},
      {"GetNoXString", [] { Utility::GetNoXString(u"a piece of some length,b", 1, u","); }},
      {"GetNoXPos", [] { Utility::GetNoXPos(u"a,b", 1, u","); }},
      {"StrCount", [] { Utility::StrCount(u"a,b", u","); }},
      {"TextCount", [] { Utility::TextCount(u"a,b", u",", CompareMethod::Binary); }},
      {"CharCount", [] { Utility::CharCount(u"a,b", u","); }},
      {"StrLen", [] { Utility::StrLen(u"部门"); }},
      {"StrLeft", [] { Utility::StrLeft(u"some characters", 12); }},
      {"GetFilePath", [] { Utility::GetFilePath(u"C:\\folder\\file"); }},
      {"GetFileName", [] { Utility::GetFileName(u"C:\\long file name"); }},
      {"GetStrAfter", [] { Utility::GetStrAfter(u"a=long enough", u"=", false); }},
      {"GetStrBefore", [] { Utility::GetStrBefore(u"long enough=a", u"=", false); }},
      {"GetStrBetween", [] { Utility::GetStrBetween(u"(long enough)", u"(", u")", true, true); }},
      {"GetSpace", [] { Utility::GetSpace(u" ", 20); }},
      {"StrInStr", [] { Utility::StrInStr(u"a,b", u"b", u",", CompareMethod::IgnoreCase); }},
      {"ArrayIsEmpty", [this] { Utility::ArrayIsEmpty(array_); }},
      {"DateIsValid", [this] { Utility::DateIsValid(long_); }},
      {"NotNull", [this] { Utility::NotNull(long_, long_); }},
      {"DecomposeInClause", [] { Utility::DecomposeInClause(u"lngID", u"1,2,3", true); }},
      {"SplitInClause", [] { Utility::SplitInClause(u"1,2,3", u",", u"lngID"); }},
      {"FormatDateCond",
       [] { Utility::FormatDateCond(u"strDate", u"2004-01-05", u"2004-01-09", true); }},
      {"FormatCond", [] { Utility::FormatCond(u" "); }},
      {"FormatLink", [] { Utility::FormatLink(u"a=1", u"b=2", u" And "); }},
      {"FormatString", [this] { Utility::FormatString(u"a longer {0} and {1}", texts_); }},
      {"FormatString of an array", [this] { Utility::FormatString(u"a longer {0}", array_); }},
      {"CellNameToAbsolute", [] { Utility::CellNameToAbsolute(u"ABC123456"); }},
      {"CellNameToRowCol", [this] { Utility::CellNameToRowCol(u"B12", long1_, long2_); }},
      {"CellIsValid", [this] { Utility::CellIsValid(u"A1:B2", text_); }},
      {"CellColToString", [] { Utility::CellColToString(40); }},
      {"C2Dbl", [this] { Utility::C2Dbl(long_); }},
      {"FourLostFiveAdd", [] { Utility::FourLostFiveAdd(1.005, 9); }},
      {"FormatDec", [] { Utility::FormatDec(9); }},
      {"GetActiveWindowHandle", [] { Utility::GetActiveWindowHandle(); }},
      {"GetDesktopWindowHandle", [] { Utility::GetDesktopWindowHandle(); }},
      {"GetForegroundWindowHandle", [] { Utility::GetForegroundWindowHandle(); }},
      {"FindWindowHandle", [] { Utility::FindWindowHandle(u"caption"); }},
      {"IsTopMostWindow", [this] { Utility::IsTopMostWindow(long1_); }},
      {"SetWindowTopPos", [] { Utility::SetWindowTopPos(9, true, wpManual, 1, 1, 1, 1); }},
      {"SetPopupWindow", [] { Utility::SetPopupWindow(9, true); }},
      {"SetToolWindow", [] { Utility::SetToolWindow(9, true); }},
      {"GetWindowArea", [this] { Utility::GetWindowArea(9, long1_, long1_, long2_, long2_); }},
      {"MessageBox", [] { Utility::MessageBox(u"text", 0, u"title", 0); }},
      {"PtInGridAvailRect", [] { Utility::PtInGridAvailRect(9, 0, 0, 10, 10); }},
      {"PtInGridCell", [this] { Utility::PtInGridCell(9, edges_, edges_, long1_, long2_); }},
      {"ObjectInNodes", [this] { Utility::ObjectInNodes(none_, u"key"); }},
      {"ObjectInCollection", [this] { Utility::ObjectInCollection(none_, u"key"); }},

      {"UserRight", [this] { operatorRight_->UserRight(u"12,13"); }},
      {"HaveAllCodeQueryRight", [this] { operatorRight_->HaveAllCodeQueryRight(u"Account"); }},
      {"HaveAllCodeUseRight", [this] { operatorRight_->HaveAllCodeUseRight(u"Account"); }},
      {"HaveAllAccountQueryRight", [this] { operatorRight_->HaveAllAccountQueryRight(); }},
      {"GetUserQueryRight", [this] { operatorRight_->GetUserQueryRight(u"Department"); }},
      {"Clear", [this] { operatorRight_->Clear(); }},
      {"OrganizationRight.HaveAllCodeUseRight",
       [this] { organizationRight_->HaveAllCodeUseRight(u"Department"); }},
      {"GetAllCodeUseRightSql",
       [this] { organizationRight_->GetAllCodeUseRightSql(u"Department"); }},
      {"IsCanDoForActivity", [this] { organizationRight_->IsCanDoForActivity(u"Department", 1); }},
      {"GetAllotItem", [this] { organizationRight_->GetAllotItem(u"Department"); }},
      {"GetAllotItem2", [this] { organizationRight_->GetAllotItem2(u"Department", u"1,2"); }},

      {"ViewId", [this] { list_.ViewId(7); }},
      {"RefreshListField", [this] { list_.RefreshListField(); }},
      {"SaveList", [this] { list_.SaveList(); }},
      {"GetListSelect", [this] { list_.GetListSelect(); }},
      {"FindAllKeyID", [this] { list_.FindAllKeyID(u"Department", u"01 02"); }},
      {"ModifyTableName", [this] { list_.ModifyTableName(u"FROM Voucher V", u"V ", u"W "); }},
      {"CondStrToNum", [this] { list_.CondStrToNum(u"等于"); }},
      {"ShowFilter", [this] { list_.ShowFilter(0); }},
      {"ShowMultiChoose",
       [this] { list_.ShowMultiChoose(nullptr, u"a", u"b", text_, false, array_, yes_, 0); }},
  };

  // These leave the last error alone.
  const std::vector<Member> properties_ = {
      {"Activity", [this] { interface_.Activity(); }},
      {"ListSet", [this] { interface_.ListSet(); }},
      {"Business", [this] { interface_.Business(); }},
      {"CustomerSs", [this] { interface_.CustomerSs(); }},
      {"LoginOrganization", [this] { interface_.LoginOrganization(); }},
      {"LoginOperator", [this] { interface_.LoginOperator(); }},
      {"LoginOrganizationRight", [this] { interface_.LoginOrganizationRight(); }},
      {"LoginOperatorRight", [this] { interface_.LoginOperatorRight(); }},
      {"LoginDate", [this] { interface_.LoginDate(); }},
      {"LoginOrganizationId", [this] { interface_.LoginOrganizationId(); }},
      {"LoginOperatorPwd", [this] { interface_.LoginOperatorPwd(); }},
      {"OrganizationProperty", [this] { organization_->OrganizationProperty(); }},
      {"LowerOrganizationId", [this] { organization_->LowerOrganizationId(); }},
      {"List", [this] { list_.List(); }},
      {"SetFormView", [] { SetFormView(nullptr); }},
      {"SetDiagnosticsSink", [] { SetDiagnosticsSink(nullptr); }},
      {"WriteLog", [] { Utility::WriteLog(u"a", u"b", 1); }},
  };

  const FreshThread thread_;
  FakePlatform platform_;
  const std::shared_ptr<FakeConnection> host_ = std::make_shared<FakeConnection>();

  // Something for most of the statements; the others find that a column is missing.
  const Answer row_ =
      Rows({u"lngID", u"a1", u"b1", u"lngKeyID", u"blnUse", u"lngRightID", u"blnHaveRight",
            u"strSetting", u"bytCurrencydec", u"intYear", u"bytPeriod", u"strStartDate",
            u"strEndDate", u"strOrganizationCode"},
           {{std::int32_t{5}, u"01-1", std::int32_t{5}, std::int32_t{5}, true, std::int32_t{12},
             std::int32_t{0}, u"a long setting", std::int32_t{2}, std::int32_t{2004},
             std::int32_t{3}, u"2004-03-01", u"2004-03-31", u"01-02-03-04"}});
  const Value long_ = u"a text that needs memory";
  const Value array_ = [] {
    ValueArray array;
    array.dimensioned = true;
    array.items = {u"a text that needs memory"};
    return Value(std::move(array));
  }();
  const std::vector<Text> texts_ = {u"a value", u"another value"};
  const std::vector<std::int32_t> edges_ = {0, 10};
  const NoEntries none_;
  Value begin_, end_;
  Text text_;
  Date date_{38063};
  Date out_;
  float single_ = 0;
  std::int16_t short_ = 0;
  std::int32_t long1_ = 0, long2_ = 0;
  bool yes_ = false;

  Interface interface_;
  Activity activity_;
  ListSet list_;
  std::shared_ptr<Organization> organization_;
  std::shared_ptr<OperatorRight> operatorRight_ = std::make_shared<OperatorRight>();
  std::shared_ptr<OrganizationRight> organizationRight_ = std::make_shared<OrganizationRight>();
};

TEST_F(PublicMembers, TheLastErrorIsThatOfTheLastMember) {
  const auto failing = [] { Step(u"test", [] { throw Error(ErrorKind::Host, u"ORA-00942"); }); };
  for (const auto& [name, call] : members_) {
    failing();
    call();
    EXPECT_NE(ToUtf8(CurrentThread().lastError), "ORA-00942") << name;
  }
  for (const auto& [name, call] : properties_) {
    failing();
    call();
    EXPECT_EQ(ToUtf8(CurrentThread().lastError), "ORA-00942") << name;
  }

  // A failure inside a member outlasts what goes well behind it.
  operatorRight_->SetOperator(std::make_shared<Operator>());
  host_->On(
      u"SELECT blnAllDepartment As blnHaveRight FROM OperatorAllRight "
      u"WHERE lngOperatorID = 0 AND lngOrganizationID = 0",
      Throws());
  platform_.entries.clear();
  operatorRight_->GetUserQueryRight(u"Department");
  Utility::WriteLog(u"", u"", 1);
  Utility::StrLen(u"a");
  Utility::WriteLog(u"", u"", 2);
  EXPECT_THAT(platform_.entries, testing::ElementsAre("statement failed|||1", "无|||2"));
}

TEST_F(PublicMembers, NoneRaisesWithoutMemory) {
  using Lasting = FailingAllocations::Lasting;
  int tried = 0;
  for (const auto* members : {&members_, &properties_}) {
    for (const auto& [name, call] : *members) {
      for (const bool firstCall : {false, true}) {
        for (const Lasting lasting : {Lasting::Once, Lasting::ForGood}) {
          bool failed = true;
          for (int number = 1; failed && number < 5000; ++number, ++tried) {
            ReleaseThread();
            operatorRight_ = std::make_shared<OperatorRight>();
            organizationRight_ = std::make_shared<OrganizationRight>();
            if (!firstCall) {
              MAction::CurrentSession().Connection = host_;
              operatorRight_->SetOperator(std::make_shared<Operator>());
              organizationRight_->SetOrganization(organization_);
            }
            try {
              const FailingAllocations memory(number, lasting);
              call();
              failed = memory.Failed();
            } catch (...) {
              ADD_FAILURE() << name << " at allocation " << number;
            }
            host_->TakeSent();
          }
          EXPECT_FALSE(failed) << name << " never came through";
        }
      }
    }
  }
  RecordProperty("allocations", tried);
}

}  // namespace
}  // namespace fetchkit::test
