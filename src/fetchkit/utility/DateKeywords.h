// The words of date conditions, in one table: what each means, how it is stored, where it is
// offered. Text helpers, date services, lists and dialogs read them from here.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

#include "fetchkit/base/Text.h"

namespace fetchkit {

// The range that a word stands for; activity/DateRanges.cpp has one case for each.
enum class DateRule {
  None,  // no range of its own
  Today,
  ThisWeek,
  WeekToDate,
  ThisPeriod,
  PeriodToDate,
  ThisMonth,
  FirstTenDays,
  SecondTenDays,
  RestOfMonth,
  MonthToDate,
  ThisQuarter,
  QuarterToDate,
  ThisYear,
  YearToDate,
  LastWeek,
  LastPeriod,
  LastMonth,
  LastQuarter,
  LastYear,
  SamePeriodLastYear,
  SameMonthLastYear,
  LastYearToDate,
};

// The range of one's own: this word, ":", and two date texts separated by ",".
inline constexpr TextView kCustomRange = u"自定义";

// The word for no condition at all.
inline constexpr TextView kAllDates = u"所有";

struct DateWord {
  // Not an aggregate, so that no part of a row can be left out.
  constexpr DateWord(TextView theWord, DateRule theRule, TextView theCode, std::size_t thePlace)
      : word(theWord), rule(theRule), code(theCode), place(thePlace) {}

  TextView word;
  DateRule rule;
  TextView code;      // what conditions store it as; empty where none can hold it
  std::size_t place;  // in the dialog's list, from 1 on; 0: not offered
};

// In the order in which the words are tested and shown.
inline constexpr DateWord kDateWords[] = {
    {u"今天", DateRule::Today, u"1", 2},
    {u"本周", DateRule::ThisWeek, u"2", 3},
    {u"本周至今日", DateRule::WeekToDate, u"3", 4},
    {u"本期", DateRule::ThisPeriod, u"4", 6},
    {u"本期至今日", DateRule::PeriodToDate, u"5", 7},
    {u"本月", DateRule::ThisMonth, u"6", 9},
    {u"本月上旬", DateRule::FirstTenDays, u"20", 10},
    {u"本月中旬", DateRule::SecondTenDays, u"21", 11},
    {u"本月下旬", DateRule::RestOfMonth, u"22", 12},
    {u"本月至今日", DateRule::MonthToDate, u"7", 13},
    {u"本季度", DateRule::ThisQuarter, u"8", 15},
    {u"本季至今日", DateRule::QuarterToDate, u"9", 16},
    {u"本年", DateRule::ThisYear, u"10", 18},
    {u"本年至今日", DateRule::YearToDate, u"11", 19},
    {u"上周", DateRule::LastWeek, u"12", 5},
    {u"上期", DateRule::LastPeriod, u"13", 8},
    {u"上月", DateRule::LastMonth, u"14", 14},
    {u"上季度", DateRule::LastQuarter, u"15", 17},
    {u"去年", DateRule::LastYear, u"16", 21},
    {u"去年同期", DateRule::SamePeriodLastYear, u"", 0},
    {u"去年同月", DateRule::SameMonthLastYear, u"", 0},
    {u"去年初至去年今日", DateRule::LastYearToDate, u"19", 20},
    {kCustomRange, DateRule::None, u"17", 22},
    {kAllDates, DateRule::None, u"18", 1},
    // Of older data alone.
    {u"去年初至去年本期", DateRule::None, u"23", 0},
    {u"年初至本期", DateRule::None, u"24", 0},
};

// The first row whose part (&DateWord::word, ...) is that; null when none is.
template <class Part>
constexpr const DateWord* FindDateWord(Part DateWord::*part, Part value) {
  const auto* row = std::find_if(std::begin(kDateWords), std::end(kDateWords),
                                 [&](const DateWord& each) { return each.*part == value; });
  return row == std::end(kDateWords) ? nullptr : row;
}

namespace detail {
constexpr std::size_t DateWordSlot(TextView word) {
  return word.empty() ? 0 : (word.front() * 31u + word.back() * 7u + word.size()) % 64;
}

// Each row's number, from 1, in the slot of its word or behind it; 0 where none is.
inline constexpr auto kDateWordSlots = [] {
  std::array<unsigned char, 64> slots{};
  static_assert(std::size(kDateWords) < 64);
  for (std::size_t row = 0; row < std::size(kDateWords); ++row) {
    std::size_t slot = DateWordSlot(kDateWords[row].word);
    while (slots[slot] != 0)
      slot = (slot + 1) % slots.size();
    slots[slot] = static_cast<unsigned char>(row + 1);
  }
  return slots;
}();
}  // namespace detail

// The row of a word, as quickly as a formula is recalculated; null when it is none.
constexpr const DateWord* DateWordOf(TextView word) {
  for (std::size_t slot = detail::DateWordSlot(word); detail::kDateWordSlots[slot] != 0;
       slot = (slot + 1) % detail::kDateWordSlots.size()) {
    const DateWord& row = kDateWords[detail::kDateWordSlots[slot] - 1];
    if (row.word == word) return &row;
  }
  return nullptr;
}

// The words with a range.
inline constexpr auto kDateKeywords = [] {
  constexpr auto hasRange = [](const DateWord& each) { return each.rule != DateRule::None; };
  std::array<TextView, std::count_if(std::begin(kDateWords), std::end(kDateWords), hasRange)> words;
  std::size_t next = 0;
  for (const DateWord& each : kDateWords)
    if (hasRange(each)) words[next++] = each.word;
  return words;
}();

// The words that the dialog offers, in its order.
inline constexpr auto kOfferedDateWords = [] {
  constexpr auto isOffered = [](const DateWord& each) { return each.place != 0; };
  std::array<TextView, std::count_if(std::begin(kDateWords), std::end(kDateWords), isOffered)>
      words;
  for (const DateWord& each : kDateWords)
    if (isOffered(each)) words[each.place - 1] = each.word;
  return words;
}();
static_assert(std::count(kOfferedDateWords.begin(), kOfferedDateWords.end(), TextView()) == 0,
              "every place from 1 on has one word");

}  // namespace fetchkit
