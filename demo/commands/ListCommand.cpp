#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <set>
#include <stdexcept>

#include "demo/commands/Commands.h"
#include "demo/commands/DemoSession.h"
#include "demo/commands/ListOutput.h"
#include "fetchkit/activity/DateRanges.h"
#include "fetchkit/base/Numbers.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/listset/ListSet.h"
#include "fetchkit/listset/model/ConditionText.h"
#include "fetchkit/listset/model/FieldType.h"
#include "fetchkit/platform/DateText.h"
#include "fetchkit/session/Interface.h"

namespace fetchkit::demo {
namespace {

[[noreturn]] void Reject(TextView why) {
  throw std::invalid_argument("--where: " + ToUtf8(why));
}

ListFieldType& FieldByCaption(ListType& list, TextView caption) {
  Text captions;
  for (ListFieldType& field : list.ListField) {
    if (field.strListFieldDesc == caption) return field;
    if (field.blnIsFilter)
      captions.append(captions.empty() ? u"" : u", ").append(field.strListFieldDesc);
  }
  Reject(Join(u"no column \"", caption, u"\"; there are: ", captions));
}

// Two values written "f,t".
void RequireTwo(TextView value) {
  if (Split(value, u",").size() != 2)
    Reject(Join(u"two values with a comma between, not \"", value, u"\""));
}

void SetScalar(ListFieldType& field, bool number, TextView word, TextView value) {
  if (word == words::kNull || word == words::kZeroOrNull) {
    field.strFilter = Text(word);
    field.strExtValue.clear();
    return;
  }
  if (CondStrToNum(word).empty())
    Reject(Join(u"\"", word, u"\" is no operator, such as 大于 or 介于"));
  if (value.empty()) Reject(Join(word, u" needs a value"));
  if (word == words::kBetween) RequireTwo(value);
  if (number)
    for (const TextView each : Split(value, u","))
      if (!IsNumericText(each)) Reject(Join(u"\"", each, u"\" is no number"));
  field.strFilter = ConditionRowText(word, value);
  field.strExtValue = Text(value);
}

void SetPeriod(ListFieldType& field, TextView word, TextView value) {
  Date begin;
  Date end;
  const Text range = value.empty() ? Text(word) : Join(word, u":", value);
  if (!MActivity::GetDateRange(MAction::CurrentSession(), range, begin, end))
    Reject(
        Join(u"\"", word, u"\" names no date range, such as 本月 or 自定义 2004-01-01,2004-01-31"));
  const Text from = FormatDate(begin);
  const Text to = FormatDate(end);
  field.strFilter = value.empty() ? Text(word) : CustomPeriodText(from, to);
  field.strExtValue = PairText(from, to);
}

// "caption word value", as a person would say it; "caption 任意" or "caption 所有" removes the
// condition.
void Apply(ListType& list, TextView text) {
  text = TrimBlanks(text);
  const std::size_t first = std::min(text.find(u' '), text.size());
  const TextView rest = TrimBlanks(text.substr(first));
  const std::size_t second = std::min(rest.find(u' '), rest.size());
  const TextView word = rest.substr(0, second);
  const TextView value = TrimBlanks(rest.substr(second));
  ListFieldType& field = FieldByCaption(list, text.substr(0, first));
  if (word.empty()) Reject(u"write \"caption word value\", such as \"金额 大于 100\"");

  field.strFilter.clear();
  field.strExtValue.clear();
  field.strCodeID.clear();
  field.blnIsMuliCond = false;
  if (word == words::kAny || word == words::kAll) return;
  const FieldType* type = FieldTypeOf(field.strFieldType);
  if (type == nullptr) Reject(Join(u"\"", field.strListFieldDesc, u"\" cannot be filtered"));
  const bool several = rest.find(u',') != TextView::npos;
  using Editor = FieldType::Editor;
  switch (type->EditedBy()) {
    case Editor::Texts:
    case Editor::Numbers:
      SetScalar(field, type->EditedBy() == Editor::Numbers, word, value);
      break;
    case Editor::YesNo:
      if (word != words::kYes && word != words::kNo) Reject(u"是 or 否");
      field.strFilter = field.strExtValue = Text(word);
      break;
    case Editor::Periods:
      SetPeriod(field, word, value);
      break;
    case Editor::Dates:
      field.strFilter = field.strExtValue = ToDateText(word);
      break;
    case Editor::Codes:
      // By ids here; the filter dialog lets the user choose by code and name.
      field.strFilter = field.strCodeID = Text(rest);
      field.blnIsMuliCond = several;
      field.strExtValue = ChoiceText(several, rest);
      break;
    case Editor::Values: {
      field.strFilter = Text(rest);
      Text values;
      for (const TextView each : Split(rest, u","))
        values.append(Join(values.empty() ? u"'" : u",'", TrimBlanks(each), u"'"));
      field.strExtValue = ChoiceText(several, values);
      break;
    }
  }
}

}  // namespace

int RunList(Console& console, const CommonOptions& options, const ListOptions& list) {
  DemoSession session(console, options.trace, options.target);
  session.Switch(options.login);
  session.LogIn();
  ListSet& set = *session.entry().ListSet();

  console.Heading(fmt::format("View {}", list.viewId));
  session.Run([&] { set.ViewId(list.viewId); });
  if (set.List().ListField.empty())
    throw std::invalid_argument(
        fmt::format("the account has no view {}; try 101 or 102", list.viewId));
  console.Heading(fmt::format("{}: saved conditions", ToUtf8(set.List().strViewName)));
  ShowConditions(console, set.List());
  console.Heading("Texts for the host's query");
  ShowTexts(console, TextsOf(set));
  console.Heading("Rows");
  ShowRows(console, session, set.List(), TextsOf(set), list.rows);
  if (list.where.empty()) return 0;

  ListType edited = set.List();
  for (const std::string& each : list.where)
    Apply(edited, FromUtf8(each));
  set.List(edited);
  console.Heading("Changed conditions, saved");
  session.Run([&] { set.SaveList(); });
  edited = set.List();

  console.Heading("A second login reads back");
  session.LogInAfresh();
  ListSet& again = *session.entry().ListSet();
  again.ViewId(list.viewId);
  ShowConditions(console, again.List());
  ShowTexts(console, TextsOf(again));
  ShowRows(console, session, again.List(), TextsOf(again), list.rows);
  // Columns of equal numbers may come in another order.
  const auto conditions = [](const ListType& read) {
    std::set<std::array<Text, 4>> all;
    for (const ListFieldType& field : read.ListField)
      all.insert({field.strListFieldDesc, field.strFilter, field.strCodeID, field.strExtValue});
    return all;
  };
  const bool same = conditions(edited) == conditions(again.List());
  console.Note(same ? "the same conditions as were saved" : "NOT the conditions that were saved");
  return same ? 0 : 1;
}

}  // namespace fetchkit::demo
