#include <fmt/format.h>

#include "demo/commands/Commands.h"
#include "demo/commands/DemoSession.h"
#include "fetchkit/activity/Activity.h"
#include "fetchkit/base/Utf8.h"

namespace fetchkit::demo {

int RunSettings(Console& console, const CommonOptions& options) {
  DemoSession session(console, options.trace, options.target);
  session.Switch(options.login);
  session.LogIn();
  Activity activity;
  const Value left = MissingValue();

  console.Heading("Settings");
  session.Run([&] {
    console.BeginTable({"GetSysSetting", "answer"});
    const auto row = [&](const char* call, const Value& answer) {
      console.Row({call, fmt::format("\"{}\"", ToUtf8(ToTextOrEmpty(answer)))});
    };
    row("账簿抬头, of the login organization",
        activity.GetSysSetting(u"账簿抬头", left, left, left, left));
    row("账簿抬头, organization 5 (still the login's)",
        activity.GetSysSetting(u"账簿抬头", left, left, left, std::int32_t{5}));
    row("账簿抬头, organization -1 (the first of all)",
        activity.GetSysSetting(u"账簿抬头", left, left, left, std::int32_t{-1}));
    row("不存在, default 无", activity.GetSysSetting(u"不存在", left, u"无", left, left));
    console.EndTable();
  });

  console.Heading("Captions, codes, columns");
  session.Run([&] {
    console.BeginTable();
    console.Row({"GetClass1Name", ToUtf8(activity.GetClass1Name())});
    console.Row({"GetClass2Name", ToUtf8(activity.GetClass2Name())});
    console.Row({"GetOrganizationCode 8", ToUtf8(activity.GetOrganizationCode(8))});
    console.Row({"IsDetailOrganization 8", activity.IsDetailOrganization(8) ? "yes" : "no"});
    console.Row({"GetCurrencyDec FC-KWD",
                 std::to_string(activity.GetCurrencyDec(u"strCurrencyCode='FC-KWD'"))});
    for (const TextView field : {u"智能字段01", u"智能字段02", u"智能字段05"}) {
      Text title;
      const bool used = activity.FlexFieldIsUsed(field, title);
      console.Row(
          {"FlexFieldIsUsed " + ToUtf8(field), used ? "yes, \"" + ToUtf8(title) + "\"" : "no"});
    }
    console.Row({"TableNameExists Voucher", activity.TableNameExists(u"Voucher") ? "yes" : "no"});
    console.Row(
        {"TableNameExists Voucher99", activity.TableNameExists(u"Voucher99") ? "yes" : "no"});
    console.Row({"GetNewID Voucher", std::to_string(activity.GetNewID(u"Voucher"))});
    console.Row({"GetNewID mmorder", std::to_string(activity.GetNewID(u"mmorder"))});
    console.Row({"GetNewID MMProduct (the same sequence)",
                 std::to_string(activity.GetNewID(u"MMProduct"))});
    console.EndTable();
  });
  return 0;
}

}  // namespace fetchkit::demo
