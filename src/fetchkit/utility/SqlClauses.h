// Small pieces of WHERE text: IN lists that stay under the database's limit of 1000 items, date
// ranges, prefixes, links and numbered placeholders.
//
// Plain concatenation: nothing is escaped, and no quote is doubled. The empty text without memory.
#pragma once

#include <vector>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"

namespace fetchkit {

class SqlClauses {
 public:
  // The items of strIdList, cut at ",", as one bracketed disjunction of IN lists: "(lngX In(1,2,3)
  // )", with the blank before the last bracket. Items stay untrimmed; blnIsCharInClause puts each
  // between apostrophes. Up to 1000 items are one group; of more, the first group holds 999 items
  // and the others 1000. A list of blanks counts as the one item varEmptyItem (not given: the empty
  // text). The empty text when varEmptyItem is needed and is no text.
  static Text DecomposeInClause(TextView strCondName, TextView strIdList, bool blnIsCharInClause,
                                const Value& varEmptyItem = MissingValue());

  // The same job in another shape: "f IN (" and the list, unchanged below 1000 items; from there on
  // groups of 800 items, commas between them, joined by " Or " without brackets round the whole, so
  // that a caller who adds other conditions must bracket it.
  static Text SplitInClause(TextView strList, TextView strSeparator, TextView strField);

  // "f>='begin' And f<='end'", or the one of the two whose date is given, dates as "yyyy-MM-dd",
  // with " And " in front when IsShowAnd; the empty text without dates. The dates are texts that
  // the platform reads. An end that is no date, or not after day 0, counts as none; a begin that is
  // neither empty nor a date is an error, and the result the empty text.
  static Text FormatDateCond(TextView strDateField, TextView strBeginDate, TextView strEndDate,
                             bool IsShowAnd);

  // " AND c ", and " AND 1=1 " for a condition of blanks.
  static Text FormatCond(TextView strCond);

  // strText and strClause with strLinkSign between; the one that is not empty alone when the other
  // is.
  static Text FormatLink(TextView strClause, TextView strText, TextView strLinkSign);

  // strFormatText with each "{0}", "{1}", ... replaced by the value of that number, in the order of
  // the numbers over the growing text: a value that holds "{2}" gets value 2 in there when its own
  // number is below 2. Placeholders without a value stay.
  static Text FormatString(TextView strFormatText, const std::vector<Text>& arrValues);

  // The same for an array as hosts hand it over: its first item is number 0, whatever its lower
  // bound. The empty text when it is no array or an item is no text.
  static Text FormatString(TextView strFormatText, const Value& arrValues);
};

}  // namespace fetchkit
