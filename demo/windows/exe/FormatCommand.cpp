#include <fmt/format.h>

#include "demo/windows/exe/Calls.h"
#include "demo/windows/exe/LibrarySession.h"
#include "demo/windows/exe/WindowsCommands.h"

namespace fetchkit::demo {
namespace {

Text Ids(int count) {
  Text ids;
  for (int id = 1; id <= count; ++id)
    AppendWith(ids, u',', Join(id));
  return ids;
}

// The library's services as they are called here, texts in and out.
class Services {
 public:
  explicit Services(const LibrarySession& session) : activity_(session.Activity()) {
    Check(CoCreateInstance(CLSID_Utility, nullptr, CLSCTX_INPROC_SERVER, IID_IUtility,
                           reinterpret_cast<void**>(utility_.Out())));
  }

  template <class Member, class... A>
  std::string Activity(Member member, A... arguments) const {
    return TextOf(activity_, member, Bstr(arguments).get()...);
  }
  template <class Member, class... A>
  std::string Utility(Member member, A... arguments) const {
    return TextOf(utility_, member, Bstr(arguments).get()...);
  }

  const ComPtr<IActivity>& activity() const { return activity_; }
  const ComPtr<IUtility>& utility() const { return utility_; }

 private:
  ComPtr<IActivity> activity_;
  ComPtr<IUtility> utility_;
};

std::string DecomposeInClause(const Services& services, TextView field, TextView items,
                              bool areTexts) {
  const Variant none{Value(TextView())};
  Bstr clause;
  Check(services.utility()->DecomposeInClause(Bstr(field).get(), Bstr(items).get(),
                                              areTexts ? VARIANT_TRUE : VARIANT_FALSE, none.get(),
                                              clause.Out()));
  return ToUtf8(clause.view());
}

void ShowAmounts(Console& console, const Services& services) {
  console.BeginTable();
  for (const double amount : {1234.5, 2.345, -0.005, 1e15})
    console.Row({fmt::format("FormatValue {}", amount),
                 TextOf(services.activity(), &IActivity::FormatValue, amount)});
  console.Row({"GetFormat 2", TextOf(services.activity(), &IActivity::GetFormat, short{2})});
  double number = 0;
  Check(services.utility()->FourLostFiveAdd(2.345, 2, &number));
  console.Row({"FourLostFiveAdd 2.345, 2", fmt::format("{}", number)});
  const Variant text{Value(TextView(u"1,234.5"))};
  Check(services.utility()->C2Dbl(text.get(), &number));
  console.Row({"C2Dbl 1,234.5", fmt::format("{}", number)});
  console.EndTable();
}

void ShowClauses(Console& console, const Services& services) {
  console.Heading("Clauses");
  console.BeginTable();
  Bstr dates;
  Check(services.utility()->FormatDateCond(Bstr(u"V.strDate").get(), Bstr(u"2004-03-01").get(),
                                           Bstr(u"2004-03-31").get(), VARIANT_TRUE, dates.Out()));
  console.Row({"FormatDateCond", ToUtf8(dates.view())});
  console.Row({"FormatCond", services.Utility(&IUtility::FormatCond, u"V.blnPosted=1")});
  console.Row({"FormatLink", services.Utility(&IUtility::FormatLink, u"b=2", u"a=1", u" And ")});
  console.Row({"DecomposeInClause", DecomposeInClause(services, u"V.strCode", u"01,02", true)});
  console.Row({"FormatSQL", services.Activity(&IActivity::FormatSQL, u"a || Upper(b)")});
  console.Row(
      {"CellNameToAbsolute AB12", services.Utility(&IUtility::CellNameToAbsolute, u"AB12")});
  console.Row(
      {"CellColToString 40", TextOf(services.utility(), &IUtility::CellColToString, short{40})});
  console.EndTable();
}

void ShowLongList(Console& console, const Services& services) {
  console.Heading("An IN list of 2,500 ids");
  console.BeginTable({"", "groups of", "begins", "ends"});
  const auto show = [&](const char* name, const std::string& clause, TextView separator) {
    const Text sql = FromUtf8(clause);
    std::string sizes;
    for (const TextView group : Split(sql, separator))
      sizes += (sizes.empty() ? "" : ", ") + std::to_string(Split(group, u",").size());
    console.Row(
        {name, sizes, ToUtf8(sql.substr(0, 24)) + "…", "…" + ToUtf8(sql.substr(sql.size() - 16))});
  };
  show("DecomposeInClause", DecomposeInClause(services, u"lngID", Ids(2500), false), u" OR ");
  show("SplitInClause", services.Utility(&IUtility::SplitInClause, Ids(2500), u",", u"lngID"),
       u" Or ");
  console.EndTable();
}

}  // namespace

int ShowFormats(Console& console, const CommonOptions& options) {
  LibrarySession session(console, options.trace);
  session.LogIn(options.login);
  const Services services(session);
  console.Heading("Amounts, in the account's currency");
  session.Run([&] { ShowAmounts(console, services); });
  ShowClauses(console, services);
  ShowLongList(console, services);
  return 0;
}

}  // namespace fetchkit::demo
