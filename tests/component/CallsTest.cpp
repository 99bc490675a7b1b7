// Every public member, called by its name as scripts do. What the calls did is kept in calls.txt.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>

#include "component/com/Variants.h"
#include "fetchkit/base/Utf8.h"
#include "support/Component.h"

namespace fetchkit::test {
namespace {

class EveryMember : public ComponentTest {
 protected:
  void TearDown() override {
    objects_.clear();
    ComponentTest::TearDown();
  }

  Objects objects_ = ObjectsOf(LogIn());
};

Value Numbers(std::initializer_list<std::int32_t> numbers) {
  ValueArray array{true, 0, {}};
  for (const std::int32_t number : numbers)
    array.items.emplace_back(number);
  return Value(std::move(array));
}

struct WindowForCalls {
  ~WindowForCalls() { DestroyWindow(window); }
  HWND window = CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP, 5, 6, 70, 80, nullptr,
                                nullptr, nullptr, nullptr);
};

// Cancels every dialog and message box that the thread shows while it lives.
struct CancelsDialogs {
  ~CancelsDialogs() { UnhookWindowsHookEx(hook); }
  static LRESULT CALLBACK Cancel(int code, WPARAM window, LPARAM) {
    if (code == HCBT_ACTIVATE)
      PostMessageW(reinterpret_cast<HWND>(window), WM_COMMAND, IDCANCEL, 0);
    return 0;
  }
  HHOOK hook = SetWindowsHookExW(WH_CBT, Cancel, nullptr, GetCurrentThreadId());
};

TEST_F(EveryMember, DoesWhatItDid) {
  const WindowForCalls window;
  const CancelsDialogs cancels;
  const Value handle = static_cast<std::int32_t>(HandleToLong(window.window));
  const Value day = Date{38063.25};  // 2004-03-17 06:00
  const Value none = Date{0};
  const Value omitted = MissingValue();
  const Value nul = Text(u"中\0文b", 4);
  CLSID id;
  ASSERT_EQ(CLSIDFromProgID(L"Scripting.Dictionary", &id), S_OK);
  objects_["Dictionary"] = Create<IDispatch>(id, IID_IDispatch);
  Call(objects_["Dictionary"].get(), "Add", {u"键", 1});
  VARIANT held{};
  held.vt = VT_DISPATCH;
  held.pdispVal = objects_["Dictionary"].get();
  const Value dictionary = ValueOf(held);
  const struct {
    const char* interfaceName;
    const char* member;
    std::vector<Value> arguments;
  } rows[] = {
      {"IActivity", "GetNewID", {u"Voucher"}},
      {"IActivity", "GetOrganizationCode", {20}},
      {"IActivity", "IsDetailOrganization", {20}},
      {"IActivity", "GetClass1Name", {}},
      {"IActivity", "GetClass2Name", {}},
      {"IActivity", "GetSysSetting", {u"键", u"节", omitted, 3, omitted}},
      {"IActivity", "GetSysSetting", {u"k"}},
      {"IActivity", "GetSysSetting", {u"k", omitted, omitted, 4}},
      {"IActivity", "GetCurrencyDec", {u"lngCurrencyID=7"}},
      {"IActivity", "FlexFieldIsUsed", {u"智能字段1", u"before"}},
      {"IActivity", "TableNameExists", {u"Voucher"}},
      {"IActivity", "TableFieldExists", {u"Voucher", u"lngID"}},
      {"IActivity", "GetAccountPeriod", {day, 1.5f, 2.5f}},
      {"IActivity", "GetPeriodCount", {2004}},
      {"IActivity", "GetEndDate", {u"2004-03-05", u"2004-03-20"}},
      {"IActivity", "GetPeriodOfDate", {day, none, none}},
      {"IActivity", "GetYearOfDate", {day, none, none, std::int16_t{9}}},
      {"IActivity", "GetBeginAndEndDate", {u"去年同期", day, none, none, true}},
      {"IActivity", "GetDateRange", {u"自定义:2004-02-01,2004-02-29", Value(), Value()}},
      {"IActivity", "GetFormat", {3}},
      {"IActivity", "FormatValue", {1234.565}},
      {"IActivity", "FormatSQL", {u"SELECT nvl(a,0) FROM DUAL"}},
      {"IUtility", "ContainErrorChar", {u"a'b", u"'\"", u"\""}},
      {"IUtility", "GetNoXString", {u"一, 二 ,三", 2, u","}},
      {"IUtility", "GetNoXPos", {u"一,二,三", 2, u","}},
      {"IUtility", "StrCount", {u"一,二,三", u","}},
      {"IUtility", "TextCount", {u"aAa,AA", u"A", 1}},
      {"IUtility", "CharCount", {u"abcb", u"b"}},
      {"IUtility", "StrLen", {nul}},
      {"IUtility", "StrLeft", {nul, 3}},
      {"IUtility", "GetFilePath", {u"C:\\账\\a.xls"}},
      {"IUtility", "GetFileName", {u"C:\\账\\a.xls"}},
      {"IUtility", "GetStrAfter", {u"键=值", u"=", true}},
      {"IUtility", "GetStrBefore", {u"键=值", u"=", false}},
      {"IUtility", "GetStrBetween", {u"[a](b)", u"(", u")", true, true}},
      {"IUtility", "GetSpace", {u"字", 3}},
      {"IUtility", "StrInStr", {u"a,b", u"B", u",", 1}},
      {"IUtility", "ArrayIsEmpty", {Numbers({1})}},
      {"IUtility", "DateIsValid", {day}},
      {"IUtility", "NotNull", {NullValue(), u"旧"}},
      {"IUtility", "DecomposeInClause", {u"lngID", u"1,2", false, omitted}},
      {"IUtility", "SplitInClause", {u"1;2", u";", u"lngID"}},
      {"IUtility", "FormatDateCond", {u"d", u"2004-01-01", u"2004-02-01", true}},
      {"IUtility", "FormatCond", {u"a=1"}},
      {"IUtility", "FormatLink", {u"a=1", u"b=2", u" Or "}},
      {"IUtility", "FormatString", {u"{0}-{1}", Numbers({7, 8})}},
      {"IUtility", "CellNameToAbsolute", {u"AB12"}},
      {"IUtility", "CellNameToRowCol", {u"AB12", 0, 0}},
      {"IUtility", "CellIsValid", {u"A1,B2", u"旧"}},
      {"IUtility", "CellColToString", {28}},
      {"IUtility", "C2Dbl", {u"1,234.5"}},
      {"IUtility", "FourLostFiveAdd", {-2.345, std::uint8_t{2}}},
      {"IUtility", "FormatDec", {2}},
      {"IUtility", "ObjectInCollection", {dictionary, u"键"}},
      {"IUtility", "ObjectInCollection", {dictionary, u"无"}},
      {"IUtility", "ObjectInCollection", {Value::Object(), u"键"}},
      {"IUtility", "ObjectInNodes", {dictionary, u"键"}},
      {"IUtility", "ObjectInNodes", {dictionary, u"无"}},
      {"IUtility", "ObjectInNodes", {Value::Object(), u"键"}},
      {"Dictionary", "Exists", {u"无"}},  // asking adds no key
      {"IUtility", "GetActiveWindowHandle", {}},
      {"IUtility", "GetDesktopWindowHandle", {}},
      {"IUtility", "GetForegroundWindowHandle", {}},
      {"IUtility", "FindWindowHandle", {u"no such window"}},
      {"IUtility", "IsTopMostWindow", {handle}},
      {"IUtility", "SetWindowTopPos", {handle, false, 3, 50, 60, 170, 180}},
      {"IUtility", "SetPopupWindow", {handle, true}},
      {"IUtility", "SetToolWindow", {handle, true}},
      {"IUtility", "GetWindowArea", {handle, 0, 0, 0, 0}},
      {"IUtility", "PtInGridAvailRect", {handle, 0, 0, 100, 100}},
      {"IUtility", "PtInGridCell", {handle, Numbers({0, 10, 100}), Numbers({0, 90}), -1, -1}},
      {"IUtility", "MessageBox", {u"消息", std::int32_t{MB_OKCANCEL}, u"标题", handle}},
      {"IUtility", "Security", {u"口令"}},
      {"IUtility", "WriteLog", {u"a", u"b", 1}},
      {"IListSet", "ShowFilter", {0}},
      {"IListSet",
       "ShowMultiChoose",
       {Value::Object(), u"部门", u"", u"before", false, Value(), true, 0}},
      {"IListSet", "GetListSelect", {}},
      {"IListSet", "RefreshListField", {}},
      {"IListSet", "FindAllKeyID", {u"Department", u"01 02"}},
      {"IListSet", "ModifyTableName", {u"T.a", u"T", u"U"}},
      {"IListSet", "SaveList", {}},
      {"IListSet", "CondStrToNum", {u"介于"}},
      {"IOrganizationRight", "IsCanDoForActivity", {u"Account", 14}},
      {"IOrganizationRight", "HaveAllCodeUseRight", {u"Account"}},
      {"IOrganizationRight", "GetAllCodeUseRightSql", {u"Account"}},
      {"IOrganizationRight", "GetAllotItem", {u"Account"}},
      {"IOrganizationRight", "GetAllotItem2", {u"Account", u"13,14"}},
      {"IOperatorRight", "UserRight", {u"1"}},
      {"IOperatorRight", "HaveAllCodeQueryRight", {u"Account"}},
      {"IOperatorRight", "HaveAllCodeUseRight", {u"Account"}},
      {"IOperatorRight", "HaveAllAccountQueryRight", {}},
      {"IOperatorRight", "GetUserQueryRight", {u"Account"}},
      {"IOperatorRight", "Clear", {}},
  };
  SetCursorPos(100, 100);
  Call(objects_.at("IListSet").get(), "ViewId", DISPATCH_PROPERTYPUT, {5});

  // Windows have another number each time.
  const std::map<std::string, HWND> windows = {
      {"GetActiveWindowHandle", GetActiveWindow()},
      {"GetDesktopWindowHandle", GetDesktopWindow()},
      {"GetForegroundWindowHandle", GetForegroundWindow()},
  };
  const auto shown = [&](const std::string& member, const Value& value) {
    const auto known = windows.find(member);
    return known != windows.end() && ToLong(value) == HandleToLong(known->second) ? "the system's"
                                                                                  : Show(value);
  };

  std::set<std::string> called = {"Initialize"};  // by every login
  std::ostringstream out;
  host_->TakeSent();
  for (const auto& row : rows) {
    called.insert(row.member);
    std::string before;
    for (const auto& [way, by] : {std::pair("a variable", By::VariantReference),
                                  {"a typed variable", By::TypedReference},
                                  {"an expression", By::Value}}) {
      const Called call = Call(objects_.at(row.interfaceName).get(), row.member, row.arguments, by);
      std::ostringstream did;
      if (call.code != S_OK) did << "raises " << (call.code & 0xFFFF) << ", ";
      did << "answers " << shown(row.member, call.result);
      for (std::size_t i = 0; i < call.arguments.size(); ++i)
        if (Show(call.arguments[i]) != Show(row.arguments[i]))
          did << "\n  leaves " << Show(call.arguments[i]) << " for " << Show(row.arguments[i]);
      for (const std::string& statement : host_->TakeSent())
        did << "\n  sends " << statement;
      if (did.str() != before)
        out << row.interfaceName << '.' << row.member << ", " << way << ": " << did.str() << '\n';
      before = did.str();
    }
  }
  ForEachMember([&](const Member& member) {
    const bool isCalled = member.function.invkind != INVOKE_FUNC || called.contains(member.name);
    EXPECT_TRUE(isCalled) << member.name << " is called by no row";
  });

  out << "\nProperties after a login\n";
  for (const auto& [name, value] : PropertiesOf(ObjectsOf(LogIn())))
    out << name << ": " << Show(value) << '\n';
  // The inner NUL of a text as a mark that stays in a text file.
  std::string all = std::move(out).str();
  for (std::size_t at; (at = all.find('\0')) != std::string::npos;)
    all.replace(at, 1, "<NUL>");
  ExpectKept("calls.txt", all);
}

TEST_F(EveryMember, PropertyKeepsWhatIsPutIntoIt) {
  std::map<std::string, Value> put;
  const auto before = PropertiesOf(objects_);
  ForEachMember([&](const Member& member) {
    if (member.function.invkind != INVOKE_PROPERTYPUT || member.name == "List") return;
    const auto count = static_cast<std::int32_t>(put.size()) + 1;
    const VARTYPE type = member.function.lprgelemdescParam[0].tdesc.vt;
    Value value = count;
    if (type == VT_BSTR) value = Join(TextView(u"中\0𠮷", 4), count);
    if (type == VT_BOOL) value = !ToBoolean(before.at(member.FullName()));
    if (type == VT_UI1) value = static_cast<std::uint8_t>(count);
    if (type == VT_I2) value = static_cast<std::int16_t>(-count);
    put[member.FullName()] = value;
    EXPECT_EQ(
        Call(objects_.at(member.interfaceName).get(), member.name, DISPATCH_PROPERTYPUT, {value})
            .code,
        S_OK)
        << member.FullName();
  });
  const auto after = PropertiesOf(objects_);
  for (const auto& [name, value] : put)
    EXPECT_EQ(Show(after.at(name)), Show(value)) << name;
}

}  // namespace
}  // namespace fetchkit::test
