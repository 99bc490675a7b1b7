// Every public member, called by its name as scripts do, does what the native core does.
#include <gmock/gmock.h>

#include <cstring>
#include <map>
#include <set>
#include <tuple>
#include <type_traits>
#include <utility>

#include "component/com/Variants.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/session/Interface.h"
#include "fetchkit/utility/Utility.h"
#include "session/SampleBooks.h"
#include "support/Component.h"

namespace fetchkit::test {
namespace {

// An argument of the native member, made from the value that the script passes.
template <class Parameter>
struct Native {
  using Stored = std::remove_cv_t<std::remove_reference_t<Parameter>>;
  explicit Native(const Value& value) : stored(Of(value)) {}
  Parameter Pass() { return static_cast<Parameter>(stored); }
  Value After() const {
    if constexpr (std::is_enum_v<Stored>)
      return Value(static_cast<std::int32_t>(stored));
    else
      return Value(stored);
  }
  static Stored Of(const Value& value) {
    if constexpr (std::is_same_v<Stored, Value>)
      return value;
    else if constexpr (std::is_enum_v<Stored>)
      return static_cast<Stored>(ToLong(value));
    else
      return std::get<Stored>(value.data());
  }
  Stored stored;
};
template <>
struct Native<TextView> {
  explicit Native(const Value& value) : stored(ToText(value)) {}
  TextView Pass() const { return stored; }
  Value After() const { return Value(stored); }
  Text stored;
};
// An array of whole numbers: not looked at afterwards.
template <>
struct Native<const std::vector<std::int32_t>&> {
  explicit Native(const Value& value) : array(value) {
    for (const Value& item : std::get<Value::Array>(value.data())->items)
      stored.push_back(ToLong(item));
  }
  const std::vector<std::int32_t>& Pass() const { return stored; }
  Value After() const { return array; }
  Value array;
  std::vector<std::int32_t> stored;
};

// What a call did, in a form that shows all differences at once.
std::string Did(long number, const Value& result, const std::vector<Value>& arguments,
                const std::vector<std::string>& sent) {
  std::string text = "raised " + std::to_string(number) + ", answered " + Show(result);
  for (const Value& argument : arguments)
    text += "\n  argument " + Show(argument);
  for (const std::string& statement : sent)
    text += "\n  sent " + statement;
  return text;
}

Value Numbers(std::initializer_list<std::int32_t> numbers) {
  ValueArray array{true, 0, {}};
  for (const std::int32_t number : numbers)
    array.items.emplace_back(number);
  return Value(std::move(array));
}

class EveryMember : public ComponentTest {
 protected:
  EveryMember() : entry_(LogIn()) {
    native_.Initialize(host_);
    host_->TakeSent();
  }

  void TearDown() override {
    entry_ = nullptr;
    ComponentTest::TearDown();
  }

  template <class Core, class R, class... P>
  void Check(const char* name, Core& core, IDispatch* object, R (Core::*member)(P...),
             const std::vector<Value>& arguments) {
    CheckCall<R, P...>(name, object, arguments,
                       [&](P... p) { return (core.*member)(std::forward<P>(p)...); });
  }
  template <class Core, class R, class... P>
  void Check(const char* name, Core& core, IDispatch* object, R (Core::*member)(P...) const,
             const std::vector<Value>& arguments) {
    CheckCall<R, P...>(name, object, arguments,
                       [&](P... p) { return (core.*member)(std::forward<P>(p)...); });
  }
  template <class R, class... P, class Member>
  void CheckCall(const char* name, IDispatch* object, const std::vector<Value>& arguments,
                 Member member) {
    called_.insert(name);
    const std::wstring wide(name, name + std::strlen(name));
    for (const By by : {By::VariantReference, By::TypedReference, By::Value}) {
      SCOPED_TRACE(testing::Message() << name << ", way " << static_cast<int>(by));
      long number = 0;
      Value result;
      std::vector<Value> after;
      [&]<std::size_t... I>(std::index_sequence<I...>) {
        std::tuple<Native<P>...> natives{Native<P>(arguments.at(I))...};
        try {
          if constexpr (std::is_void_v<R>)
            member(std::get<I>(natives).Pass()...);
          else
            result = Value(member(std::get<I>(natives).Pass()...));
        } catch (const Error& error) {
          number = static_cast<long>(error.kind());
        }
        after = {std::get<I>(natives).After()...};
      }
      (std::index_sequence_for<P...>());
      if (by == By::Value) after = arguments;
      const std::string expected = Did(number, result, after, host_->TakeSent());
      const Called call = Call(object, wide.c_str(), arguments, by);
      EXPECT_EQ(expected, Did(call.code & 0xFFFF, call.result, call.arguments, host_->TakeSent()));
    }
  }

  Interface native_;
  ComPtr<IInterface> entry_;
  std::set<std::string> called_;
};

const Value kYes = true;
const Value kNo = false;
const Value kZero = std::int32_t{0};
const Value kNone = MissingValue();

Value S(std::int16_t number) {
  return number;
}
Value L(std::int32_t number) {
  return number;
}

TEST_F(EveryMember, OfTheServicesDoesWhatTheCoreDoes) {
  const auto activity = Get(entry_, &IInterface::get_Activity);
  const auto lists = Get(entry_, &IInterface::get_ListSet);
  const auto codes = Get(entry_, &IInterface::get_LoginOrganizationRight);
  const auto rights = Get(entry_, &IInterface::get_LoginOperatorRight);
  const auto utility = CreateUtility();
  Utility nativeUtility;
  const Value day = Date{38063.25};  // 2004-03-17 06:00
  const Value none = Date{0};

#define ACTIVITY(member, ...) \
  Check(#member, *native_.Activity(), activity.get(), &Activity::member, {__VA_ARGS__})
  ACTIVITY(GetNewID, u"Voucher");
  ACTIVITY(GetOrganizationCode, L(20));
  ACTIVITY(IsDetailOrganization, L(20));
  ACTIVITY(GetClass1Name);
  ACTIVITY(GetClass2Name);
  ACTIVITY(GetSysSetting, u"键", u"节", kNone, L(3), kNone);
  ACTIVITY(GetCurrencyDec, u"lngCurrencyID=7");
  ACTIVITY(FlexFieldIsUsed, u"智能字段1", u"before");
  ACTIVITY(TableNameExists, u"Voucher");
  ACTIVITY(TableFieldExists, u"Voucher", u"lngID");
  ACTIVITY(GetAccountPeriod, day, 1.5f, 2.5f);
  ACTIVITY(GetPeriodCount, S(2004));
  ACTIVITY(GetEndDate, u"2004-03-05", u"2004-03-20");
  ACTIVITY(GetPeriodOfDate, day, none, none);
  ACTIVITY(GetYearOfDate, day, none, none, S(9));
  ACTIVITY(GetBeginAndEndDate, u"去年同期", day, none, none, kYes);
  ACTIVITY(GetDateRange, u"自定义:2004-02-01,2004-02-29", none, none);
  ACTIVITY(GetFormat, S(3));
  ACTIVITY(FormatValue, 1234.565);
  ACTIVITY(FormatSQL, u"SELECT nvl(a,0) FROM DUAL");

#define UTILITY(member, ...) \
  Check(#member, nativeUtility, utility.get(), &Utility::member, {__VA_ARGS__})
  UTILITY(ContainErrorChar, u"a'b", u"'\"", u"\"");
  UTILITY(GetNoXString, u"一, 二 ,三", S(2), u",");
  UTILITY(GetNoXPos, u"一,二,三", S(2), u",");
  UTILITY(StrCount, u"一,二,三", u",");
  UTILITY(TextCount, u"aAa,AA", u"A", L(1));
  UTILITY(CharCount, u"abcb", u"b");
  UTILITY(StrLen, Text(u"中\0文b", 4));
  UTILITY(StrLeft, Text(u"中\0文b", 4), L(3));
  UTILITY(GetFilePath, u"C:\\账\\a.xls");
  UTILITY(GetFileName, u"C:\\账\\a.xls");
  UTILITY(GetStrAfter, u"键=值", u"=", kYes);
  UTILITY(GetStrBefore, u"键=值", u"=", kNo);
  UTILITY(GetStrBetween, u"[a](b)", u"(", u")", kYes, kYes);
  UTILITY(GetSpace, u"字", S(3));
  UTILITY(StrInStr, u"a,b", u"B", u",", L(1));
  UTILITY(ArrayIsEmpty, Numbers({1}));
  UTILITY(DateIsValid, day);
  UTILITY(NotNull, NullValue(), u"旧");
  UTILITY(DecomposeInClause, u"lngID", u"1,2", kNo, kNone);
  UTILITY(SplitInClause, u"1;2", u";", u"lngID");
  UTILITY(FormatDateCond, u"d", u"2004-01-01", u"2004-02-01", kYes);
  UTILITY(FormatCond, u"a=1");
  UTILITY(FormatLink, u"a=1", u"b=2", u" Or ");
  UTILITY(FormatString, u"{0}-{1}", Numbers({7, 8}));
  UTILITY(CellNameToAbsolute, u"AB12");
  UTILITY(CellNameToRowCol, u"AB12", kZero, kZero);
  UTILITY(CellIsValid, u"A0", u"");
  UTILITY(CellColToString, S(28));
  UTILITY(C2Dbl, u"1,234.5");
  UTILITY(FourLostFiveAdd, -2.345, std::uint8_t{2});
  UTILITY(FormatDec, S(2));
  UTILITY(GetActiveWindowHandle);
  UTILITY(GetDesktopWindowHandle);
  UTILITY(GetForegroundWindowHandle);
  UTILITY(FindWindowHandle, u"no such window");
  const HWND window = CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP, 5, 6, 70, 80,
                                      nullptr, nullptr, nullptr, nullptr);
  const Value handle = static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(window));
  UTILITY(IsTopMostWindow, handle);
  UTILITY(SetWindowTopPos, handle, kNo, L(3), L(50), L(60), L(170), L(180));
  UTILITY(SetPopupWindow, handle, kYes);
  UTILITY(SetToolWindow, handle, kYes);
  UTILITY(GetWindowArea, handle, kZero, kZero, kZero, kZero);
  SetCursorPos(100, 100);
  UTILITY(PtInGridAvailRect, handle, L(0), L(0), L(100), L(100));
  UTILITY(PtInGridCell, handle, Numbers({0, 10, 100}), Numbers({0, 90}), L(-1), L(-1));
  const PressesInDialogs cancel(IDCANCEL);
  UTILITY(MessageBox, u"消息", L(MB_OKCANCEL), u"标题", handle);
  DestroyWindow(window);
  UTILITY(Security, u"口令");
  UTILITY(WriteLog, u"a", u"b", L(1));

  Call(lists.get(), L"ViewId", DISPATCH_PROPERTYPUT, {L(5)});
  native_.ListSet()->ViewId(5);
  host_->TakeSent();
#define LISTS(member, ...) \
  Check(#member, *native_.ListSet(), lists.get(), &ListSet::member, {__VA_ARGS__})
  LISTS(ShowFilter, L(0));
  LISTS(GetListSelect);
  LISTS(RefreshListField);
  LISTS(FindAllKeyID, u"Department", u"01 02");
  LISTS(ModifyTableName, u"T.a", u"T", u"U");
  LISTS(SaveList);
  LISTS(CondStrToNum, u"介于");

#define CODES(member, ...)                                                                   \
  Check(#member, *native_.LoginOrganizationRight(), codes.get(), &OrganizationRight::member, \
        {__VA_ARGS__})
  CODES(IsCanDoForActivity, u"Account", L(14));
  CODES(HaveAllCodeUseRight, u"Account");
  CODES(GetAllCodeUseRightSql, u"Account");
  CODES(GetAllotItem, u"Account");
  CODES(GetAllotItem2, u"Account", u"13,14");

#define RIGHTS(member, ...) \
  Check(#member, *native_.LoginOperatorRight(), rights.get(), &OperatorRight::member, {__VA_ARGS__})
  RIGHTS(UserRight, u"1");
  RIGHTS(HaveAllCodeQueryRight, u"Account");
  RIGHTS(HaveAllCodeUseRight, u"Account");
  RIGHTS(HaveAllAccountQueryRight);
  RIGHTS(GetUserQueryRight, u"Account");
  RIGHTS(Clear);

  // Those have tests of their own.
  called_.insert({"Initialize", "ShowMultiChoose", "ObjectInNodes", "ObjectInCollection"});
  ForEachMember([&](const std::string&, const IID&, const std::string& member, ITypeInfo*,
                    FUNCDESC& function) {
    if (function.invkind != INVOKE_FUNC) return;
    EXPECT_TRUE(called_.contains(member)) << member << " is called by no row";
  });
}

// The records after a login hold what the native ones hold, and keep what is put into them.
TEST_F(EveryMember, PropertyReadsTheCoresAndKeepsItsOwn) {
  std::map<std::string, std::string> native;
  for (const auto& [name, value] : Snapshot())
    native[name] = value;
  const Objects objects = ObjectsOf(entry_);
  std::set<std::string> notNative;
  for (const auto& [name, value] : PropertiesOf(objects)) {
    const std::string member = name.substr(name.find('.') + 1);
    auto known =
        native.find(name.starts_with("ICustomerSs") ? "Customer." + member : name.substr(1));
    if (known == native.end()) known = native.find(member);
    if (known == native.end() || name == "IListSet.AccountName") {
      notNative.insert(name);
      continue;
    }
    const Value shown = value.Is<bool>() ? Value(std::int32_t{ToBoolean(value)}) : value;
    EXPECT_EQ(ToUtf8(ToText(shown)), known->second) << name;
  }
  // What the sample login does not show; that it is kept is seen below.
  EXPECT_THAT(notNative, testing::ElementsAre(
                             "IListSet.AccountName", "IListSet.ListFrom", "IListSet.ListPureWhere",
                             "IListSet.ListWhere", "IListSet.ViewId", "IOperator.IsInActive",
                             "IOperator.IsSystem", "IOperator.UseDynPwd", "IOrganization.BeginYear",
                             "IOrganization.IsBase", "IOrganization.IsCache",
                             "IOrganization.IsCached", "IOrganization.IsControl",
                             "IOrganization.IsDBOrganization", "IOrganization.IsInActive"));

  std::map<std::string, Value> put;
  const auto before = PropertiesOf(objects);
  ForEachMember([&](const std::string& interfaceName, const IID&, const std::string& member,
                    ITypeInfo*, FUNCDESC& function) {
    const std::string name = interfaceName + "." + member;
    if (function.invkind != INVOKE_PROPERTYPUT || name == "IListSet.List") return;
    const auto count = static_cast<std::int32_t>(put.size()) + 1;
    Value value = count;
    switch (function.lprgelemdescParam[0].tdesc.vt) {
      case VT_BSTR:
        value = Join(TextView(u"中\0𠮷", 4), count);
        break;
      case VT_BOOL:
        value = !ToBoolean(before.at(name));
        break;
      case VT_UI1:
        value = static_cast<std::uint8_t>(count);
        break;
      case VT_I2:
        value = static_cast<std::int16_t>(-count);
        break;
      default:
        break;
    }
    put[name] = value;
    EXPECT_EQ(
        Call(objects.at(interfaceName).get(), std::wstring(member.begin(), member.end()).c_str(),
             DISPATCH_PROPERTYPUT, {value})
            .code,
        S_OK)
        << name;
  });
  const auto after = PropertiesOf(objects);
  for (const auto& [name, value] : put)
    EXPECT_EQ(Show(after.at(name)), Show(value)) << name;
}

}  // namespace
}  // namespace fetchkit::test
