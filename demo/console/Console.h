// What the demo prints with: colour and aligned columns on a terminal, plain tab-separated text
// everywhere else, so that the output can be read by people and compared by programs.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "fetchkit/base/Text.h"

namespace fetchkit::demo {

enum class ColourMode { Auto, Always, Never };

class Console {
 public:
  // out must outlive the console. Auto: a terminal gets colour and columns.
  explicit Console(std::FILE* out, ColourMode mode = ColourMode::Auto);

  void Heading(std::string_view text);
  void Line(std::string_view text = "");

  // Dimmed on a terminal: what is said about the output rather than being part of it.
  void Note(std::string_view text);

  // A row of cells that belong together; the table is printed by EndTable. The first row added is
  // the header when header is not empty.
  void BeginTable(std::vector<std::string> header = {});
  void Row(std::vector<std::string> cells);
  void EndTable();

  bool styled() const { return styled_; }

  // Columns of the terminal; 0 when the output is none.
  int columns() const { return columns_; }

 private:
  void Print(std::string_view text);
  void Styled(const char* code, std::string_view text);

  std::FILE* out_;
  bool styled_;
  int columns_;
  bool hasHeader_ = false;
  std::vector<std::vector<std::string>> rows_;
};

// Terminal columns that the UTF-8 text takes: Chinese glyphs two, combining marks none.
int DisplayWidth(std::string_view text);

// The text cut to at most that many columns, "…" at the end when something was cut.
std::string CutToWidth(std::string_view text, int width);

std::string Utf8(TextView text);

}  // namespace fetchkit::demo
