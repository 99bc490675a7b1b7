#include "fetchkit/listset/model/ConditionWords.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace fetchkit {
namespace {

// One code, the operator words and the date word that share it. The first match counts, row by
// row, operator words before the date word.
struct CodeRow {
  TextView code;
  std::array<TextView, 2> operators;
  TextView date;
};

constexpr CodeRow kCodes[] = {
    {u"1", {words::kEqual}, u"今天"},
    {u"2", {words::kGreater}, u"本周"},
    {u"3", {words::kLess}, u"本周至今日"},
    {u"4", {words::kGreaterEqual}, u"本期"},
    {u"5", {words::kLessEqual}, u"本期至今日"},
    {u"6", {words::kBeginsWith, words::kBetween}, u"本月"},
    {u"7", {words::kContains, words::kZeroOrNull}, u"本月至今日"},
    {u"8", {words::kSimilar}, u"本季度"},
    {u"9", {words::kNotEqual}, u"本季至今日"},
    {u"10", {}, u"本年"},
    {u"11", {words::kNull}, u"本年至今日"},
    {u"12", {}, u"上周"},
    {u"13", {}, u"上期"},
    {u"14", {}, u"上月"},
    {u"15", {}, u"上季度"},
    {u"16", {}, u"去年"},
    {u"17", {}, u"自定义"},
    {u"18", {}, words::kAll},
    {u"19", {}, u"去年初至去年今日"},
    {u"20", {}, u"本月上旬"},
    {u"21", {}, u"本月中旬"},
    {u"22", {}, u"本月下旬"},
    {u"23", {}, u"去年初至去年本期"},
    {u"24", {}, u"年初至本期"},
};

constexpr Comparison kComparisons[] = {
    {words::kEqual, u"1", u" = "},      {words::kGreater, u"2", u" > "},
    {words::kLess, u"3", u" < "},       {words::kGreaterEqual, u"4", u" >= "},
    {words::kLessEqual, u"5", u" <= "}, {words::kNotEqual, u"9", u" <> "},
};

constexpr TextView kCodeCaptions[] = {
    u"科目编码",
    u"部门编码",
    u"统计编码",
    u"项目编码",
    u"货位编码",
    u"物品类型编码",
    u"单位类型编码",
    u"固资类别编码",
    u"职员类别编码",
    u"科目编号",
    u"部门编号",
    u"统计编号",
    u"项目编号",
    u"货位编号",
    u"物品类型编号",
    u"单位类型编号",
    u"固资类别编号",
    u"职员类别编号",
    u"编码",
    u"功能分类科目编码",
    u"政府经济分类科目编码",
    u"部门经济分类科目编码",
    u"功能分类科目编号",
    u"政府经济分类科目编号",
    u"部门经济分类科目编号",
};

template <class Rows, class Matches>
auto FindRow(const Rows& rows, Matches&& matches) {
  const auto found = std::find_if(std::begin(rows), std::end(rows), matches);
  return found == std::end(rows) ? nullptr : &*found;
}

}  // namespace

TextView CondStrToNum(TextView strOperate) {
  if (strOperate.empty()) return {};
  const auto* row = FindRow(kCodes, [&](const CodeRow& code) {
    return code.operators[0] == strOperate || code.operators[1] == strOperate ||
           code.date == strOperate;
  });
  return row == nullptr ? TextView() : row->code;
}

const Comparison* ComparisonByWord(TextView word) {
  return FindRow(kComparisons, [&](const Comparison& row) { return row.word == word; });
}

const Comparison* ComparisonByCode(TextView code) {
  return FindRow(kComparisons, [&](const Comparison& row) { return row.code == code; });
}

TextView DateWordByCode(TextView code) {
  const auto* row = FindRow(kCodes, [&](const CodeRow& stored) { return stored.code == code; });
  return row == nullptr ? TextView() : row->date;
}

bool IsCodeCaption(TextView caption) {
  return std::find(std::begin(kCodeCaptions), std::end(kCodeCaptions), caption) !=
         std::end(kCodeCaptions);
}

}  // namespace fetchkit
