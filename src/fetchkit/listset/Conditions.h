// Conditions set by their words, without the dialog.
#pragma once

#include <vector>

#include "fetchkit/base/Text.h"
#include "fetchkit/listset/model/TypeDef.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit::MListSet {

// Sets the condition of the column with that caption as the filter dialog would between its opening
// and its OK: the same words, checks and statements, the same texts in the record. Empty when it is
// set; else why it was refused, in the words of the dialog where it has some, and the record is as
// it was. Reads the column's code table or its values where the condition names some: the record
// must be the caller's own.
//
// What stands for a condition, by the column's editor:
//   Texts, Numbers  word, one blank, value as typed: "大于 100", "介于 1,5", "空值"
//   YesNo           "是", "否"
//   Periods         a word, "本月"; "自定义 2004-01-01,2004-01-31", in brackets, too
//   Dates           "2004-01-31"
//   Codes           one code, name, or both as the picker shows them; several with commas between
//   Values          one value; several with commas between
//   both of these   what ConditionsOf writes: the ids, or the values in quotes, in braces, the text
//                   to be shown in front; one that belongs to other items is not taken
// "任意" and "所有" take a condition away, of whatever column.
Text SetCondition(Session& session, ListType& list, TextView caption, TextView condition);

// What is set, in the order of the columns: caption, tab, condition. SetCondition takes back what
// it or the dialog has set, as it was; what they would refuse (a saved condition without its value,
// an item that is not offered any more) it refuses.
std::vector<Text> ConditionsOf(const ListType& list);

}  // namespace fetchkit::MListSet
