#include "demo/commands/DateTable.h"

#include <string_view>
#include <utility>

#include "fetchkit/base/Utf8.h"
#include "fetchkit/utility/DateKeywords.h"

namespace fetchkit::demo {
namespace {

constexpr int kWideTable = 118;  // columns that the whole table takes
constexpr std::string_view kDash = "–";
constexpr int kNarrowKeyword = 16;  // leaves two ranges of dates and their costs within 80

}  // namespace

void ShowDateTable(
    Console& console, const std::string& loginDate,
    const std::function<std::vector<std::string>(TextView keyword, bool financial)>& evaluate) {
  console.Heading("Date ranges on " + loginDate);
  // On a narrow terminal both costs share a column, so that no date is wrapped.
  const bool narrow = console.columns() > 0 && console.columns() < kWideTable;
  if (narrow) {
    console.Note("cost: statements the first time / again");
    console.BeginTable({"keyword", "calendar", "cost", "accounting", "cost"});
  } else {
    console.BeginTable(
        {"keyword", "calendar", "statements", "again", "accounting", "statements", "again"});
  }
  const auto show = [&](TextView keyword) {
    std::vector<std::string> row = {ToUtf8(keyword)};
    if (narrow) row[0] = CutToWidth(row[0], kNarrowKeyword);
    for (const bool financial : {false, true}) {
      std::vector<std::string> cells = evaluate(keyword, financial);
      if (narrow) {
        const std::size_t dash = cells[0].find(" – ");
        if (dash != std::string::npos) cells[0].replace(dash, kDash.size() + 2, kDash);
        cells = {cells[0], cells[1] + "/" + cells[2]};
      }
      for (std::string& cell : cells)
        row.push_back(std::move(cell));
    }
    console.Row(std::move(row));
  };
  for (const TextView keyword : kDateKeywords)
    show(keyword);
  show(u"自定义:2004-03-31,2004-01-01");
  console.EndTable();
}

}  // namespace fetchkit::demo
