#include "demo/console/StatementList.h"

#include <fmt/format.h>

#include <algorithm>

#include "fetchkit/base/Utf8.h"

namespace fetchkit::demo {

std::string OneLine(TextView sql) {
  std::string line = ToUtf8(TrimBlanks(sql));
  std::replace(line.begin(), line.end(), '\n', ' ');
  return line;
}

std::string AnswerOf(const StatementReport& report) {
  if (!report.answered) return "refused";
  return fmt::format("{} row{}", report.rows, report.rows == 1 ? "" : "s");
}

void ListStatements(Console& console, const std::vector<StatementReport>& reports, bool trace) {
  console.BeginTable();
  for (std::size_t i = 0; i < reports.size(); ++i) {
    const StatementReport& report = reports[i];
    if (trace) {
      console.Note(fmt::format("{:>3}  {}, {} µs", i + 1, AnswerOf(report), report.microseconds));
      console.Line(ToUtf8(report.sql));
      if (!report.answered) {
        console.Line("     " + ToUtf8(report.error));
      } else if (!report.firstRow.empty()) {
        console.Note("     " + ToUtf8(report.firstRow));
      }
      continue;
    }
    const std::string sql = OneLine(report.sql);
    // Room for the number, the answer and the gaps between them.
    const int width = console.columns() - 20;
    console.Row({fmt::format("{:>3}", i + 1), AnswerOf(report),
                 console.styled() ? CutToWidth(sql, std::max(width, 20)) : sql});
  }
  console.EndTable();
}

void CountStatements(Console& console, std::size_t count) {
  console.Note(fmt::format("{} statement{}", count, count == 1 ? "" : "s"));
}

}  // namespace fetchkit::demo
