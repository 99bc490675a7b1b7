// What all public members promise alike: the last error, and that they raise nothing.
#include <gmock/gmock.h>

#include <functional>

#include "fetchkit/base/Guard.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/session/Interface.h"
#include "fetchkit/utility/Utility.h"
#include "support/EveryService.h"
#include "support/FailingAllocations.h"
#include "support/FakeConnection.h"
#include "support/FakePlatform.h"

namespace fetchkit::test {
namespace {

class NoEntries : public KeyedItems {
 public:
  bool Has(TextView) const override { return false; }
};

// clang-format off
#define CALL(member) {#member, [&] { member; }}
// clang-format on

class PublicMembers : public testing::Test {
 protected:
  struct Member {
    const char* name;  // the call
    std::function<void()> call;
  };

  PublicMembers() {
    host_->fallback = [this](TextView) { return &row_; };
    interface_.Initialize(host_);
    organization_ = interface_.LoginOrganization();
    organization_->NextLevelOrganizationId(Text(20, u'7'));
    list_.ViewId(7);
    ListType whole;
    for (const auto& [caption, type] :
         {std::pair(u"名称", u"STRING"), {u"期间", u"PERIOD"}, {u"部门", u"CODE"}}) {
      ListFieldType& field = whole.ListField.emplace_back();
      field.strListFieldDesc = caption;
      field.strFieldType = type;
      field.strKeyField = u"Person";
      field.strFilter = u"a longer condition";
      field.blnIsFilter = true;
    }
    filtered_.List(std::move(whole));
    for (const auto& service : kServices)
      members_.push_back({"a service", [this, service] { service(service_); }});
  }

  // Beside the services, which are added: each with arguments for which it needs memory, if it ever
  // does. What an act itself would need memory for is made beforehand.
  std::vector<Member> members_ = {
      CALL(interface_.Initialize(host_)),
      CALL(activity_.GetClass2Name()),
      CALL(activity_.GetSysSetting(u"key", long_, long_)),
      CALL(activity_.FlexFieldIsUsed(u"智能字段05", text_)),
      CALL(activity_.TableNameExists(u"Voucher")),
      CALL(activity_.GetBeginAndEndDate(u"本年", date_, out_, out_, true)),
      CALL(activity_.GetDateRange(u"自定义:2004-01-05,2004-1-9", out_, out_)),
      CALL(activity_.GetFormat(20)),

      CALL(Utility::ContainErrorChar(u"a部", u"部*", u"*")),
      CALL(Utility::GetNoXString(u"a piece of some length,b", 1, u",")),
      CALL(Utility::GetNoXPos(u"a,b", 1, u",")),
      CALL(Utility::StrCount(u"a,b", u",")),
      CALL(Utility::TextCount(u"a,b", u",", CompareMethod::Binary)),
      CALL(Utility::CharCount(u"a,b", u",")),
      CALL(Utility::StrLen(u"部门")),
      CALL(Utility::StrLeft(u"some characters", 12)),
      CALL(Utility::GetFilePath(u"C:\\folder\\file")),
      CALL(Utility::GetFileName(u"C:\\long file name")),
      CALL(Utility::GetStrAfter(u"a=long enough", u"=", false)),
      CALL(Utility::GetStrBefore(u"long enough=a", u"=", false)),
      CALL(Utility::GetStrBetween(u"(long enough)", u"(", u")", true, true)),
      CALL(Utility::GetSpace(u" ", 20)),
      CALL(Utility::StrInStr(u"a,b", u"b", u",", CompareMethod::IgnoreCase)),
      CALL(Utility::ArrayIsEmpty(array_)),
      CALL(Utility::DateIsValid(long_)),
      CALL(Utility::NotNull(long_, long_)),
      CALL(Utility::DecomposeInClause(u"lngID", u"1,2,3", true)),
      CALL(Utility::SplitInClause(u"1,2,3", u",", u"lngID")),
      CALL(Utility::FormatDateCond(u"strDate", u"2004-01-05", u"2004-01-09", true)),
      CALL(Utility::FormatCond(u" ")),
      CALL(Utility::FormatLink(u"a=1", u"b=2", u" And ")),
      CALL(Utility::FormatString(u"a longer {0} and {1}", texts_)),
      CALL(Utility::FormatString(u"a longer {0}", array_)),
      CALL(Utility::CellNameToAbsolute(u"ABC123456")),
      CALL(Utility::CellNameToRowCol(u"B12", long1_, long2_)),
      CALL(Utility::CellIsValid(u"A1:B2", text_)),
      CALL(Utility::CellColToString(40)),
      CALL(Utility::C2Dbl(long_)),
      CALL(Utility::FourLostFiveAdd(1.005, 9)),
      CALL(Utility::FormatDec(9)),
      CALL(Utility::GetActiveWindowHandle()),
      CALL(Utility::GetDesktopWindowHandle()),
      CALL(Utility::GetForegroundWindowHandle()),
      CALL(Utility::FindWindowHandle(u"caption")),
      CALL(Utility::IsTopMostWindow(long1_)),
      CALL(Utility::SetWindowTopPos(9, true, wpManual, 1, 1, 1, 1)),
      CALL(Utility::SetPopupWindow(9, true)),
      CALL(Utility::SetToolWindow(9, true)),
      CALL(Utility::GetWindowArea(9, long1_, long1_, long2_, long2_)),
      CALL(Utility::MessageBox(u"text", 0, u"title", 0)),
      CALL(Utility::PtInGridAvailRect(9, 0, 0, 10, 10)),
      CALL(Utility::PtInGridCell(9, edges_, edges_, long1_, long2_)),
      CALL(Utility::ObjectInNodes(none_, u"key")),
      CALL(Utility::ObjectInCollection(none_, u"key")),

      CALL(operatorRight_.HaveAllCodeQueryRight(u"Account")),
      CALL(operatorRight_.HaveAllCodeUseRight(u"Account")),
      CALL(operatorRight_.HaveAllAccountQueryRight()),
      CALL(operatorRight_.Clear()),
      CALL(organizationRight_.HaveAllCodeUseRight(u"Department")),
      CALL(organizationRight_.IsCanDoForActivity(u"Department", 1)),
      CALL(organizationRight_.GetAllotItem(u"Department")),

      CALL(list_.GetListSelect()),
      CALL(list_.ModifyTableName(u"FROM Voucher V", u"V ", u"W ")),
      CALL(list_.CondStrToNum(u"等于")),
      CALL(list_.ShowFilter(0)),
      CALL(filtered_.SetCondition(u"名称", u"等于 a longer text", text_)),
      CALL(filtered_.SetCondition(u"期间", u"本年", text_)),
      CALL(filtered_.SetCondition(u"部门", u"01-1", text_)),
      CALL(list_.ShowMultiChoose(nullptr, u"a", u"b", text_, false, array_, yes_, 0)),
  };

  // These leave the last error alone.
  const std::vector<Member> properties_ = {
      CALL(interface_.Activity()),
      CALL(interface_.ListSet()),
      CALL(interface_.Business()),
      CALL(interface_.CustomerSs()),
      CALL(interface_.LoginOrganization()),
      CALL(interface_.LoginOperator()),
      CALL(interface_.LoginOrganizationRight()),
      CALL(interface_.LoginOperatorRight()),
      CALL(interface_.LoginDate()),
      CALL(interface_.LoginOrganizationId()),
      CALL(interface_.LoginOperatorPwd()),
      CALL(organization_->OrganizationProperty()),
      CALL(organization_->LowerOrganizationId()),
      CALL(list_.List()),
      CALL(filtered_.Conditions()),
      CALL(SetFormView(nullptr)),
      CALL(SetDiagnosticsSink(nullptr)),
      CALL(Utility::WriteLog(u"a", u"b", 1)),
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
  Text text_;
  Date date_{38063};
  Date out_;
  std::int32_t long1_ = 0, long2_ = 0;
  bool yes_ = false;

  Interface interface_;
  Activity activity_;
  ListSet list_, filtered_;
  std::shared_ptr<Organization> organization_;
  OperatorRight operatorRight_;
  OrganizationRight organizationRight_;
  ServiceCall service_{activity_, operatorRight_, organizationRight_, list_, u"Voucher", 20};
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
  operatorRight_.SetOperator(std::make_shared<Operator>());
  host_->On(
      u"SELECT blnAllDepartment As blnHaveRight FROM OperatorAllRight "
      u"WHERE lngOperatorID = 0 AND lngOrganizationID = 0",
      Throws());
  platform_.entries.clear();
  operatorRight_.GetUserQueryRight(u"Department");
  Utility::WriteLog(u"", u"", 1);
  Utility::StrLen(u"a");
  Utility::WriteLog(u"", u"", 2);
  EXPECT_THAT(platform_.entries, testing::ElementsAre("statement failed|||1", "无|||2"));
}

TEST_F(PublicMembers, NoneRaisesWithoutMemory) {
  using Lasting = FailingAllocations::Lasting;
  int tried = 0;
  for (const auto* members : {&std::as_const(members_), &properties_}) {
    for (const auto& [name, call] : *members) {
      for (const bool firstCall : {false, true}) {
        for (const Lasting lasting : {Lasting::Once, Lasting::ForGood}) {
          bool failed = true;
          for (int number = 1; failed && number < 5000; ++number, ++tried) {
            ReleaseThread();
            operatorRight_ = OperatorRight();
            organizationRight_ = OrganizationRight();
            if (!firstCall) {
              MAction::CurrentSession().Connection = host_;
              operatorRight_.SetOperator(std::make_shared<Operator>());
              organizationRight_.SetOrganization(organization_);
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
