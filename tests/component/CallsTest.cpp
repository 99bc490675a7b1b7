// Every public member, called by its name as scripts do: in three ways, of which the second and the
// third are told where they differ. The calls and what they did stand in calls.txt.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>

#include "component/com/Variants.h"
#include "fetchkit/base/Utf8.h"
#include "support/Component.h"
#include "support/Lines.h"

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

// An argument in calls.txt: its type and its content, or one of the names.
Value ArgumentOf(const std::string& cell, const std::map<std::string, Value>& named) {
  if (const auto known = named.find(cell); known != named.end()) return known->second;
  static const std::map<std::string, VARTYPE> kTypes = {
      {"bool", VT_BOOL}, {"byte", VT_UI1},  {"integer", VT_I2}, {"long", VT_I4},
      {"single", VT_R4}, {"double", VT_R8}, {"text", VT_BSTR}};
  const std::size_t space = cell.find(' ');
  const Text content = FromUtf8(cell.substr(std::min(space, cell.size() - 1) + 1));
  if (cell.starts_with("array ")) {
    ValueArray array{true, 0, {}};
    for (const TextView number : Split(content, u","))
      array.items.emplace_back(ToLong(number));
    return Value(std::move(array));
  }
  Variant value(content);
  EXPECT_EQ(VariantChangeType(value.InOut(), value.InOut(), 0, kTypes.at(cell.substr(0, space))),
            S_OK)
      << cell;
  return ValueOf(value.get());
}

struct WindowForCalls {
  ~WindowForCalls() { DestroyWindow(window); }
  HWND window = CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP, 5, 6, 70, 80, nullptr,
                                nullptr, nullptr, nullptr);
};

TEST_F(EveryMember, DoesWhatItDid) {
  const WindowForCalls window;
  const CancelsDialogs cancels;
  CLSID id;
  ASSERT_EQ(CLSIDFromProgID(L"Scripting.Dictionary", &id), S_OK);
  objects_["Dictionary"] = Create<IDispatch>(id, IID_IDispatch);
  Call(objects_["Dictionary"].get(), "Add", {u"键", 1});
  VARIANT held{};
  held.vt = VT_DISPATCH;
  held.pdispVal = objects_["Dictionary"].get();
  const std::map<std::string, Value> named = {
      {"empty", Value()},
      {"missing", MissingValue()},
      {"null", NullValue()},
      {"nothing", Value::Object()},
      {"no day", Date{0}},
      {"the day", Date{38063.25}},  // 2004-03-17 06:00
      {"the dictionary", ValueOf(held)},
      {"the window", static_cast<std::int32_t>(HandleToLong(window.window))},
  };
  SetCursorPos(100, 100);
  Call(objects_.at("IListSet").get(), "ViewId", DISPATCH_PROPERTYPUT, {5});

  std::set<std::string> called;
  for (const auto& [member, of] : {std::pair("GetActiveWindowHandle", GetActiveWindow()),
                                   {"GetDesktopWindowHandle", GetDesktopWindow()},
                                   {"GetForegroundWindowHandle", GetForegroundWindow()}}) {
    called.insert(member);
    EXPECT_EQ(ToLong(Call(objects_.at("IUtility").get(), member, {}).result), HandleToLong(of));
  }
  std::ostringstream out;
  host_->TakeSent();
  for (const auto& cells : Lines(Kept("calls.txt"))) {
    if (cells[0].starts_with('#')) out << cells[0] << '\n';
    if (cells[0] != "call" && cells[0] != "put") continue;
    const WORD flags =
        cells[0] == "put" ? DISPATCH_PROPERTYPUT : DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    IDispatch* const object = objects_.at(cells.at(1)).get();
    const std::string& member = cells.at(2);
    called.insert(member);
    std::vector<Value> arguments;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      out << (i ? "¦" : "") << cells[i];
      if (i > 2) arguments.push_back(ArgumentOf(cells[i], named));
    }
    out << '\n';
    std::string before;
    for (const auto& [way, by] : {std::pair("a variable", By::VariantReference),
                                  {"a typed variable", By::TypedReference},
                                  {"an expression", By::Value}}) {
      const Called call = Call(object, member, flags, arguments, by);
      std::ostringstream did;
      if (call.code != S_OK)
        did << "raises " << std::hex << static_cast<unsigned>(call.code) << std::dec << ", ";
      // The system describes its own errors as it likes.
      if (call.source == u"FetchKit") did << "describes \"" << ToUtf8(call.description) << "\", ";
      did << "answers " << Show(call.result);
      for (std::size_t i = 0; i < call.arguments.size(); ++i)
        if (Show(call.arguments[i]) != Show(arguments[i]))
          did << "\n  leaves " << Show(call.arguments[i]) << " for " << Show(arguments[i]);
      for (const std::string& statement : host_->TakeSent())
        did << "\n  sends " << statement;
      if (did.str() != before) out << way << ": " << did.str() << '\n';
      before = did.str();
    }
  }
  ForEachMember([&](const Member& member) {
    const bool isCalled = member.function.invkind != INVOKE_FUNC || called.contains(member.name);
    EXPECT_TRUE(isCalled) << member.name << " is called by no line of calls.txt";
  });

  Call(objects_.at("IDiagnostics").get(), "Clear", {});
  out << "\nProperties after a login\n";
  for (const auto& [name, value] : PropertiesOf(ObjectsOf(LogIn())))
    out << name << ": " << Show(value) << '\n';
  // The NUL behind StrLeft's answer as a mark that stays in a text file.
  std::string all = out.str();
  if (const std::size_t nul = all.find('\0'); nul != std::string::npos)
    all.replace(nul, 1, "<NUL>");
  ExpectKept("calls.txt", all);
}

TEST_F(EveryMember, PropertyKeepsWhatIsPutIntoIt) {
  std::map<std::string, Value> put;
  const auto before = PropertiesOf(objects_);
  ForEachMember([&](const Member& member) {
    // A record, an object, and a file that has to be one: other tests put these.
    if (member.function.invkind != INVOKE_PROPERTYPUT || member.name == "List" ||
        member.interfaceName == "IDiagnostics")
      return;
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
