// The functions of texts, numbers, dates, cells and clauses, played from a text: below a line each,
// named after what would go wrong.
#include <gtest/gtest.h>

#include "fetchkit/base/Numbers.h"
#include "fetchkit/listset/ListQuery.h"
#include "fetchkit/platform/CommonDates.h"
#include "fetchkit/platform/DateText.h"
#include "fetchkit/utility/CodeTables.h"
#include "fetchkit/utility/DateKeywords.h"
#include "fetchkit/utility/Utility.h"
#include "support/Play.h"

namespace fetchkit::test {
namespace {

// clang-format off
#define PLAY(function) {#function, Play(function)}
#define MEMBER(member) {#member, Play(Utility::member)}

const std::map<std::string, Played> kFunctions = {
    PLAY(TrimBlanks), PLAY(EqualFolded), PLAY(LeadingNumber), PLAY(IsNumericText),
    PLAY(NumericTextToDouble), PLAY(NumberText),
    PLAY(CodeStem), PLAY(ToLong), PLAY(ToBoolean), PLAY(ToText), PLAY(ToTextOrEmpty),
    PLAY(IsNumeric), PLAY(ToDateText), PLAY(ToDate), PLAY(ParseCommonDate),
    PLAY(DefaultDateText), PLAY(DateFromYmd), PLAY(WeekdayOf), PLAY(AddDays), PLAY(AddMonths),
    PLAY(AddYears), MEMBER(StrLen), MEMBER(StrLeft), MEMBER(GetFilePath), MEMBER(GetSpace),
    MEMBER(GetStrAfter), MEMBER(GetStrBefore), MEMBER(GetStrBetween), MEMBER(StrInStr),
    MEMBER(GetNoXPos), MEMBER(ArrayIsEmpty), MEMBER(DateIsValid), MEMBER(NotNull),
    MEMBER(CellNameToAbsolute), MEMBER(CellNameToRowCol), MEMBER(CellIsValid),
    MEMBER(CellColToString), MEMBER(C2Dbl), MEMBER(FourLostFiveAdd), MEMBER(FormatDec),
    MEMBER(DecomposeInClause), MEMBER(SplitInClause), MEMBER(FormatDateCond),
    MEMBER(FormatLink), MEMBER(FormatCond), PLAY(MListSet::ModifyTableName)};
// clang-format on

TEST(Functions, Answer) {
  PlayLines(kFunctions,
#include "utility/Functions.txt"
  );
}

TEST(Functions, PublishedSets) {
  for (const TextView keyword : kDateKeywords)
    EXPECT_TRUE(Utility::DateIsValid(keyword)) << ToUtf8(keyword);
  EXPECT_TRUE(Utility::ContainErrorChar(u"a'b", Utility::kErrorChars, u""));
  EXPECT_FALSE(Utility::ContainErrorChar(u"部门(一)-2", Utility::kErrorChars, u""));
  EXPECT_EQ(Utility::kErrorChars.size(), 21u);
  EXPECT_EQ(Utility::kAllErrorChars.size(), 31u);
}

}  // namespace
}  // namespace fetchkit::test
