#include "fetchkit/listset/Conditions.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "fetchkit/activity/DateRanges.h"
#include "fetchkit/dialogs/CodeLists.h"
#include "fetchkit/dialogs/FilterRows.h"
#include "fetchkit/dialogs/FilterSql.h"
#include "fetchkit/dialogs/ValueCheck.h"
#include "fetchkit/dialogs/frmFilterColumn.h"
#include "fetchkit/listset/model/ConditionText.h"
#include "fetchkit/listset/model/FieldType.h"
#include "fetchkit/platform/Platform.h"

namespace fetchkit::MListSet {
namespace {

constexpr TextView kOpen = u" {";
constexpr TextView kClose = u"}";

// The database takes no more in the one IN list that the dialog writes.
constexpr std::size_t kMostItems = 1000;

// What the user of a dialog would have put into the grid, or why not.
struct Entered {
  Text text;
  Text value;
  Text refusal;  // empty for a condition that is taken
};

Entered Refused(Text why) {
  return {{}, {}, std::move(why)};
}

Text Listed(const std::vector<Text>& texts) {
  Text list;
  for (const Text& text : texts)
    AppendWith(list, u'、', text);
  return list;
}

bool IsNothing(TextView condition) {
  const TextView word = TrimBlanks(condition);
  return word == words::kAny || word == words::kAll;
}

// A word and what stands behind the one blank that separates them.
struct WordAndValue {
  explicit WordAndValue(TextView condition)
      : word(WordToShow(condition)),
        value(condition.substr(std::min(word.size() + 1, condition.size()))) {}

  TextView word;
  TextView value;
};

Entered NotOffered(TextView caption, TextView word, const std::vector<Text>& offered) {
  return Refused(Join(u"“", word, u"”不是“", caption, u"”的条件，可用的有：", Listed(offered)));
}

Entered WithoutValue(TextView word) {
  return Refused(Join(u"条件“", word, u"”后面不写值"));
}

Entered EnterScalar(const ListFieldType& field, bool isNumber, const WordAndValue& condition,
                    const std::vector<Text>& offered) {
  const auto [word, value] = condition;
  if (std::find(offered.begin(), offered.end(), word) == offered.end())
    return NotOffered(field.strListFieldDesc, word, offered);
  if (word == words::kNull || word == words::kZeroOrNull)
    return TrimBlanks(value).empty() ? Entered{Text(word), {}, {}} : WithoutValue(word);
  if (word == words::kAny) return WithoutValue(word);
  if (value.empty()) return Refused(Join(u"条件“", word, u"”后面要写值"));
  // No box of the dialog holds these.
  if (std::any_of(value.begin(), value.end(), [](char16_t unit) { return unit < u' '; }))
    return Refused(Text(kCharacterWarning));
  TextView warning;
  if (word != words::kBetween)
    warning = WarningOf(isNumber, value);
  else if (IsWholePair(value))
    warning = WarningOf(isNumber, FirstValueOf(value), SecondValueOf(value)).warning;
  else
    return Refused(Join(u"条件“", word, u"”后面要写两个值，中间用逗号，例如“", word, u" 1,5”"));
  if (!warning.empty()) return Refused(Text(warning));
  return {ConditionRowText(word, value), Text(value), {}};
}

Entered EnterYesNo(const ListFieldType& field, TextView condition,
                   const std::vector<Text>& offered) {
  const TextView word = TrimBlanks(condition);
  if (word != words::kYes && word != words::kNo)
    return NotOffered(field.strListFieldDesc, word, offered);
  return {Text(word), Text(word), {}};
}

// A date as the dialog's pickers write it.
std::optional<Text> DateOf(TextView text) {
  const auto date = CurrentPlatform().ParseDate(text);
  return date ? std::optional(FormatDate(*date)) : std::nullopt;
}

Entered NoDate(TextView text) {
  return Refused(Join(u"“", text, u"”不是日期，例如 2004-01-31"));
}

Entered EnterDate(TextView condition) {
  const auto date = DateOf(condition);
  return date ? Entered{*date, *date, {}} : NoDate(TrimBlanks(condition));
}

// The two dates are neither checked against each other nor exchanged, as in the dialog.
Entered EnterCustomPeriod(TextView dates) {
  dates = TrimBlanks(dates);
  if (dates.starts_with(u'(') && dates.ends_with(u')')) dates = dates.substr(1, dates.size() - 2);
  if (!IsWholePair(dates))
    return Refused(Join(u"条件“", kCustomRange, u"”后面要写两个日期，例如“", kCustomRange,
                        u" 2004-01-01,2004-01-31”"));
  const TextView first = FirstValueOf(dates);
  const TextView second = SecondValueOf(dates);
  const auto from = DateOf(first);
  const auto to = DateOf(second);
  if (!from || !to) return NoDate(from ? second : first);
  return {CustomPeriodText(*from, *to), PairText(*from, *to), {}};
}

Entered EnterPeriod(Session& session, const ListFieldType& field, const WordAndValue& condition,
                    const std::vector<Text>& offered) {
  const auto [word, value] = condition;
  if (std::find(offered.begin(), offered.end(), word) == offered.end())
    return NotOffered(field.strListFieldDesc, word, offered);
  if (word == kCustomRange) return EnterCustomPeriod(value);
  if (!TrimBlanks(value).empty()) return WithoutValue(word);
  Date from;
  Date to;
  if (!MActivity::GetDateRange(session, word, from, to))
    return Refused(Join(u"“", word, u"”现在没有日期范围，请检查会计期间的设置"));
  return {Text(word), PairText(FormatDate(from), FormatDate(to)), {}};
}

// ---- choices

// What a column's picker offers, row by row: id, code and name, or values.
class Offered {
 public:
  Offered(Session& session, const ListFieldType& field, bool areCodes)
      : areCodes_(areCodes),
        list_(areCodes ? ReadCodeList(session, field.strKeyField)
                       : ReadEnumList(session, field.strListFieldDesc)) {}

  bool AreCodes() const { return areCodes_; }
  bool IsWhole() const { return list_.isWhole; }
  std::size_t Count() const { return list_.cells.size() / Columns(); }
  const Text& Id(std::size_t row) const { return Cell(row, 0); }
  const Text& Code(std::size_t row) const { return Cell(row, areCodes_ ? 1 : 0); }
  const Text& Name(std::size_t row) const { return Cell(row, Columns() - 1); }

  // As the picker shows the row.
  Text Shown(std::size_t row) const {
    if (!areCodes_) return Id(row);
    Text shown;
    for (const Text* cell : {&Code(row), &Name(row)})
      if (!cell->empty()) AppendWith(shown, u' ', *cell);
    return shown;
  }
  bool IsShownAs(std::size_t row, TextView text) const {
    const Text& code = Code(row);
    return text.starts_with(code) && text.ends_with(Name(row)) && text == Shown(row);
  }

 private:
  std::size_t Columns() const { return areCodes_ ? 3 : 1; }
  const Text& Cell(std::size_t row, std::size_t column) const {
    return list_.cells[row * Columns() + column];
  }

  bool areCodes_;
  CodeList list_;
};

// The rows that a condition names.
struct Named {
  std::vector<std::size_t> rows;
  Text refusal;

  void Add(std::size_t row) {
    if (std::find(rows.begin(), rows.end(), row) == rows.end()) rows.push_back(row);
  }
  bool AreTooMany() const { return rows.size() > kMostItems; }
};

// How many rows are meant by what the test tells of each, and the first of them.
struct Hits {
  std::size_t count = 0;
  std::size_t first = 0;
};

template <class Test>
Hits Find(const Offered& offered, Test&& test) {
  Hits hits;
  for (std::size_t row = 0; row < offered.Count(); ++row) {
    if (!test(row)) continue;
    if (hits.count++ == 0) hits.first = row;
  }
  return hits;
}

Text NotFound(const Offered& offered, TextView item) {
  return Join(u"“", item, u"”不在可选项目中",
              offered.IsWhole() ? u"" : u"（可选项目没有全部读到）");
}

// By what a person would write: the code, the row as it is shown, the name.
Hits FindWritten(const Offered& offered, TextView item) {
  if (item.empty()) return {};
  Hits hits = Find(offered, [&](std::size_t row) { return offered.Code(row) == item; });
  if (hits.count == 0)
    hits = Find(offered, [&](std::size_t row) { return offered.IsShownAs(row, item); });
  if (hits.count == 0)
    hits = Find(offered, [&](std::size_t row) { return offered.Name(row) == item; });
  return hits;
}

Named ReadWritten(const Offered& offered, TextView condition) {
  Named named;
  // The same value twice in an enumeration is the same value.
  const auto isClear = [&](const Hits& hits) {
    return hits.count == 1 || (hits.count > 1 && !offered.AreCodes());
  };
  // One whose own text holds a comma.
  if (const Hits whole = FindWritten(offered, condition); isClear(whole)) {
    named.Add(whole.first);
    return named;
  }
  for (TextView item : Split(condition, u",")) {
    item = TrimBlanks(item);
    const Hits hits = FindWritten(offered, item);
    if (!isClear(hits)) {
      named.refusal = hits.count == 0 ? NotFound(offered, item)
                                      : Join(u"“", item, u"”不止一个，请写出它的编码和名称");
      return named;
    }
    named.Add(hits.first);
    if (named.AreTooMany()) break;
  }
  return named;
}

// By ids, or by values in quotes.
Named ReadItems(const Offered& offered, TextView items) {
  Named named;
  std::vector<TextView> ids;
  if (offered.AreCodes()) {
    ids = Split(items, u",");
  } else {
    if (items.size() < 2 || !items.starts_with(u'\'') || !items.ends_with(u'\'')) {
      named.refusal = NotFound(offered, items);
      return named;
    }
    ids = Split(items.substr(1, items.size() - 2), u"','");
    if (ids.empty()) ids.emplace_back();  // the value without a text
  }
  for (TextView id : ids) {
    if (offered.AreCodes()) id = TrimBlanks(id);
    const Hits hits = Find(offered, [&](std::size_t row) { return offered.Id(row) == id; });
    if (hits.count == 0) {
      named.refusal = NotFound(offered, id);
      return named;
    }
    named.Add(hits.first);
    if (named.AreTooMany()) break;
  }
  return named;
}

// As the chooser leaves them.
ItemTexts ChosenTexts(const Offered& offered, const std::vector<std::size_t>& rows) {
  ItemTexts texts(offered.AreCodes());
  for (const std::size_t row : rows)
    texts.Add(offered.Id(row), offered.Name(row));
  return texts;
}

Entered EnterChoice(Session& session, const ListFieldType& field, bool areCodes,
                    TextView condition) {
  const Offered offered(session, field, areCodes);
  condition = TrimBlanks(condition);
  TextView shown;
  TextView items;
  if (condition.ends_with(kClose)) {
    const TextView open = areCodes ? kOpen : u" {'";
    std::size_t at = condition.rfind(open);
    if (at == TextView::npos && condition.starts_with(open.substr(1))) at = 0;
    if (at != TextView::npos) {
      shown = condition.substr(0, at);
      items = condition.substr(condition.find(u'{', at) + 1);
      items.remove_suffix(kClose.size());
    }
  }
  Named named = items.empty() ? ReadWritten(offered, condition) : ReadItems(offered, items);
  if (!items.empty() && !named.refusal.empty()) {
    // The braces may be a name's own.
    Named written = ReadWritten(offered, condition);
    if (written.refusal.empty()) named = std::move(written);
  }
  if (!named.refusal.empty()) return Refused(named.refusal);
  if (named.rows.empty()) return Refused(NotFound(offered, condition));
  if (named.AreTooMany()) return Refused(Text(frmFilterColumn::kManyWarning));

  const ItemTexts texts = ChosenTexts(offered, named.rows);
  const bool several = named.rows.size() > 1;
  Entered entered{texts.Shown(), ChoiceText(several, texts.ids), {}};
  // One item is shown as the picker or as the chooser leaves it; a text of before is kept.
  if (entered.text == shown) return entered;
  if (entered.value == field.strExtValue && field.strFilter == shown) {
    entered.text = shown;
  } else if (!several) {
    entered.text = offered.Shown(named.rows.front());
    if (entered.text.empty()) entered.text = texts.ids;
  }
  return entered;
}

Entered Enter(Session& session, const ListFieldType& field, const FieldType& type,
              TextView condition) {
  using Editor = FieldType::Editor;
  const TextView trimmed =
      condition.substr(std::min(condition.find_first_not_of(u' '), condition.size()));
  const std::vector<Text> offered = type.Words();
  const Editor editor = type.EditedBy();
  switch (editor) {
    case Editor::Texts:
    case Editor::Numbers:
      return EnterScalar(field, editor == Editor::Numbers, WordAndValue(trimmed), offered);
    case Editor::YesNo:
      return EnterYesNo(field, trimmed, offered);
    case Editor::Periods:
      return EnterPeriod(session, field, WordAndValue(trimmed), offered);
    case Editor::Dates:
      return EnterDate(trimmed);
    case Editor::Codes:
    case Editor::Values:
      return EnterChoice(session, field, editor == Editor::Codes, condition);
  }
  return {};
}

// ---- the grid

// The rows with which the dialog opens.
std::vector<FilterRow> RowsOf(const ListType& list) {
  std::vector<FilterRow> rows;
  for (std::size_t i = 0; i < list.ListField.size(); ++i) {
    const ListFieldType& field = list.ListField[i];
    if (field.blnIsFilter && !field.strFilter.empty())
      rows.push_back({i, field.strFieldType, field.strFilter, field.strExtValue});
  }
  return rows;
}

Text NoColumn(const ListType& list, TextView caption) {
  std::vector<Text> captions;
  for (const ListFieldType& field : list.ListField)
    if (field.blnIsFilter) captions.push_back(field.strListFieldDesc);
  if (captions.empty()) return u"此列表没有可设条件的项目";
  return Join(u"没有可设条件的项目“", caption, u"”，可用的有：", Listed(captions));
}

}  // namespace

Text SetCondition(Session& session, ListType& list, TextView caption, TextView condition) {
  const auto& fields = list.ListField;
  const auto field = std::find_if(fields.begin(), fields.end(), [&](const ListFieldType& each) {
    return each.blnIsFilter && each.strListFieldDesc == caption;
  });
  if (field == fields.end()) return NoColumn(list, caption);
  const auto index = static_cast<std::size_t>(field - fields.begin());
  std::vector<FilterRow> rows = RowsOf(list);
  const auto row = std::find_if(rows.begin(), rows.end(),
                                [&](const FilterRow& each) { return each.field == index; });
  if (IsNothing(condition)) {
    if (row != rows.end()) rows.erase(row);
  } else {
    const FieldType* type = FieldTypeOf(field->strFieldType);
    if (type == nullptr) return Join(u"项目“", caption, u"”不能设条件");
    if (TrimBlanks(condition).empty()) return u"没有写条件；“任意”或“所有”取消条件";
    if (row == rows.end() && static_cast<int>(rows.size()) >= FilterRows::kMost)
      return Text(FilterRows::kFullWarning);
    Entered entered = Enter(session, *field, *type, condition);
    if (!entered.refusal.empty()) return std::move(entered.refusal);
    FilterRow written{index, field->strFieldType, std::move(entered.text),
                      std::move(entered.value)};
    if (row == rows.end())
      rows.push_back(std::move(written));
    else
      *row = std::move(written);
  }
  list.strListPureWhere = ConditionsToSql(rows, list);
  return {};
}

std::vector<Text> ConditionsOf(const ListType& list) {
  std::vector<Text> conditions;
  for (const ListFieldType& field : list.ListField) {
    if (field.strFilter.empty()) continue;
    Text condition = Join(field.strListFieldDesc, u"\t", field.strFilter);
    const FieldType* type = FieldTypeOf(field.strFieldType);
    using Editor = FieldType::Editor;
    if (type != nullptr &&
        (type->EditedBy() == Editor::Codes || type->EditedBy() == Editor::Values))
      condition += Join(kOpen, ReadChoice(field.strExtValue).items, kClose);
    conditions.push_back(std::move(condition));
  }
  return conditions;
}

}  // namespace fetchkit::MListSet
