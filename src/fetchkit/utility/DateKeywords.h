// The words that name date ranges, kept here so that both the text helpers, which test for them,
// and the date services, which evaluate them, read one list.
#pragma once

#include <array>

#include "fetchkit/base/Text.h"

namespace fetchkit {

// In the order in which they are tested.
inline constexpr std::array<TextView, 22> kDateKeywords = {u"今天",       u"本周",
                                                           u"本周至今日", u"本期",
                                                           u"本期至今日", u"本月",
                                                           u"本月上旬",   u"本月中旬",
                                                           u"本月下旬",   u"本月至今日",
                                                           u"本季度",     u"本季至今日",
                                                           u"本年",       u"本年至今日",
                                                           u"上周",       u"上期",
                                                           u"上月",       u"上季度",
                                                           u"去年",       u"去年同期",
                                                           u"去年同月",   u"去年初至去年今日"};

// The range of one's own: this word, ":", and two date texts separated by ",".
inline constexpr TextView kCustomRange = u"自定义";

}  // namespace fetchkit
