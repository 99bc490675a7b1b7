#include "demo/console/Console.h"

#include <fmt/format.h>

#include <algorithm>

#include "demo/console/Terminal.h"
#include "fetchkit/base/Utf8.h"

namespace fetchkit::demo {
namespace {

// Calls each(width, bytes of the character) for every character of the text; a stray byte is one
// column wide.
template <class Each>
void ForEachCharacter(std::string_view text, Each&& each) {
  while (!text.empty()) {
    std::size_t taken = 1;
    while (taken < text.size() && (text[taken] & 0xC0) == 0x80)
      ++taken;
    const Text units = FromUtf8(text.substr(0, taken));
    const bool pair = units.size() == 2 && units[0] >= 0xD800 && units[0] < 0xDC00;
    const char32_t character =
        pair ? 0x10000U + ((units[0] & 0x3FFU) << 10) + (units[1] & 0x3FFU) : units[0];
    each(CharacterWidth(character), taken);
    text.remove_prefix(taken);
  }
}

}  // namespace

int DisplayWidth(std::string_view text) {
  int width = 0;
  ForEachCharacter(text, [&](int columns, std::size_t) { width += columns; });
  return width;
}

std::string CutToWidth(std::string_view text, int width) {
  if (DisplayWidth(text) <= width) return std::string(text);
  int used = 0;
  std::size_t length = 0;
  bool full = false;
  ForEachCharacter(text, [&](int columns, std::size_t bytes) {
    if (!full && used + columns <= width - 1) {
      used += columns;
      length += bytes;
    } else {
      full = true;
    }
  });
  return std::string(text.substr(0, length)) + "…";
}

std::string Utf8(TextView text) {
  return ToUtf8(text);
}

Console::Console(std::FILE* out, ColourMode mode)
    : out_(out),
      styled_(mode == ColourMode::Always || (mode == ColourMode::Auto && IsTerminal(out))),
      columns_(styled_ ? TerminalColumns(out) : 0) {}

void Console::Heading(std::string_view text) {
  Print("\n");
  Styled("1;36", text);
  Print("\n");
}

void Console::Line(std::string_view text) {
  Print(text);
  Print("\n");
}

void Console::Note(std::string_view text) {
  Styled("2", text);
  Print("\n");
}

void Console::BeginTable(std::vector<std::string> header) {
  rows_.clear();
  hasHeader_ = !header.empty();
  if (hasHeader_) rows_.push_back(std::move(header));
}

void Console::Row(std::vector<std::string> cells) {
  rows_.push_back(std::move(cells));
}

void Console::EndTable() {
  std::vector<int> widths;
  for (const auto& row : rows_) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i)
      widths[i] = std::max(widths[i], DisplayWidth(row[i]));
  }
  for (std::size_t r = 0; r < rows_.size(); ++r) {
    const auto& row = rows_[r];
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (!styled_) {
        line += (i > 0 ? "\t" : "") + row[i];
        continue;
      }
      line += "  " + row[i];
      if (i + 1 < row.size())
        line.append(static_cast<std::size_t>(widths[i] - DisplayWidth(row[i])), ' ');
    }
    if (hasHeader_ && r == 0) {
      Styled("1", line);
    } else {
      Print(line);
    }
    Print("\n");
  }
  rows_.clear();
}

void Console::Print(std::string_view text) {
  Write(out_, text);
}

void Console::Styled(const char* code, std::string_view text) {
  if (styled_) {
    Print(fmt::format("\033[{}m{}\033[0m", code, text));
  } else {
    Print(text);
  }
}

}  // namespace fetchkit::demo
