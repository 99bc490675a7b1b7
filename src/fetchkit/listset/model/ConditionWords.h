// The words of conditions: operator and date words, and the codes they are stored as.
#pragma once

#include "fetchkit/base/Text.h"
#include "fetchkit/utility/DateKeywords.h"

namespace fetchkit {

namespace words {
inline constexpr TextView kEqual = u"等于";
inline constexpr TextView kGreater = u"大于";
inline constexpr TextView kLess = u"小于";
inline constexpr TextView kGreaterEqual = u"大于等于";
inline constexpr TextView kLessEqual = u"小于等于";
inline constexpr TextView kNotEqual = u"不等于";
inline constexpr TextView kBeginsWith = u"打头字符为";
inline constexpr TextView kContains = u"包含字符";
inline constexpr TextView kSimilar = u"类似于";
inline constexpr TextView kBetween = u"介于";
inline constexpr TextView kNull = u"空值";
inline constexpr TextView kZeroOrNull = u"零或空值";
inline constexpr TextView kAny = u"任意";
inline constexpr TextView kAll = kAllDates;
inline constexpr TextView kYes = u"是";
inline constexpr TextView kNo = u"否";
}  // namespace words

// The code that an operator or date word is stored as; empty for any other word. Two words share a
// code where "介于" gives "6" and "零或空值" "7": numbers are stored with these, texts are not.
TextView CondStrToNum(TextView strOperate);

// How a comparison of two values is written.
struct Comparison {
  TextView word;
  TextView code;  // stored code, the same for texts and numbers
  TextView sql;   // operator with its blanks, such as " >= "
};

// The six plain comparisons by word or by stored code; null for every other.
const Comparison* ComparisonByWord(TextView word);
const Comparison* ComparisonByCode(TextView code);

// The date word stored under that code, empty for none. Words without a range of their own ("所有",
// "自定义" and two of older data) are included.
TextView DateWordByCode(TextView code);

}  // namespace fetchkit
