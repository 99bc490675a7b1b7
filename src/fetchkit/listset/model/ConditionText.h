// The texts of conditions, written and taken apart.
//
// A field's condition has three forms: as shown (strFilter, such as "大于 100"), as a machine form
// (strExtValue, such as "100") and as stored in the table ListCond. The filter dialog composes the
// first two, saving takes them apart, loading builds them again, and SQL is made from them. Whoever
// reads or writes one of these texts does it with this unit.
#pragma once

#include "fetchkit/base/Text.h"
#include "fetchkit/listset/model/ConditionWords.h"

namespace fetchkit {

// The text shown for a word and its value: the bare word for "空值", "零或空值" and an empty value,
// otherwise word, blank, value.
Text ConditionRowText(TextView word, TextView value);

// "自定义 (f,t)".
Text CustomPeriodText(TextView from, TextView to);

// The operator word of a shown text, by three rules, which differ where a record holds what no
// dialog writes; saved lists rely on each of them.
//
// The word that is stored: up to the first blank of the trimmed text. Texts have an exception: one
// that holds "介于 " anywhere, be it in its value, is stored as a pair (types/String.cpp).
TextView WordToStore(TextView strFilter);
// The word that restricts: "空值" and "零或空值" alone, otherwise what stands in front of the first
// blank. Empty, for no restriction, when there is none.
TextView WordToFilterBy(TextView strFilter);
// The word that the picker shows again: up to the first blank, the whole text without one.
TextView WordToShow(TextView strFilter);

// The machine form of two values, "f,t", and its parts, around its first comma; both are the whole
// text and nothing when there is none.
Text PairText(TextView first, TextView second);
TextView FirstValueOf(TextView strExtValue);
TextView SecondValueOf(TextView strExtValue);

// Whether neither value is empty: a pair that lacks one restricts nothing.
bool IsWholePair(TextView strExtValue);

// The machine form of a choice: a mark, a comma, and the items, which are ids or quoted values with
// commas between, such as "0,12" or "1,'a','b'". The parts point into the text that was read.
struct Choice {
  TextView mark;  // "1" for several items, "0" for one; a record may hold anything
  TextView items;
  bool IsSeveral() const { return mark == u"1"; }
};
Choice ReadChoice(TextView strExtValue);
Text ChoiceText(bool several, TextView items);

// The items of a choice as they are joined one by one: ids bare with their names between blanks for
// codes, values quoted and their names between commas for an enumeration.
struct ItemTexts {
  explicit ItemTexts(bool ofCodes) : areCodes(ofCodes) {}

  void Add(TextView id, TextView name);

  // The names; the ids when none has one, because an empty text would mean no condition.
  const Text& Shown() const { return TrimBlanks(names).empty() ? ids : names; }

  bool areCodes;
  int count = 0;
  Text ids;
  Text names;
};

// Whether the text begins with one of the two marks.
bool IsMarked(TextView text);

}  // namespace fetchkit
