#include "demo/commands/DateTable.h"

#include <utility>

#include "fetchkit/base/Utf8.h"
#include "fetchkit/utility/DateKeywords.h"

namespace fetchkit::demo {

void ShowDateTable(
    Console& console, const std::string& loginDate,
    const std::function<std::vector<std::string>(TextView keyword, bool financial)>& evaluate) {
  console.Heading("Date ranges on " + loginDate);
  console.BeginTable(
      {"keyword", "calendar", "statements", "again", "accounting", "statements", "again"});
  const auto show = [&](TextView keyword) {
    std::vector<std::string> row = {ToUtf8(keyword)};
    for (const bool financial : {false, true})
      for (std::string& cell : evaluate(keyword, financial))
        row.push_back(std::move(cell));
    console.Row(std::move(row));
  };
  for (const TextView keyword : kDateKeywords)
    show(keyword);
  show(u"自定义:2004-03-31,2004-01-01");
  console.EndTable();
}

}  // namespace fetchkit::demo
