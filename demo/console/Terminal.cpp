#include "demo/console/Terminal.h"

#include <fmt/format.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <utf8proc.h>

#include <algorithm>
#include <iostream>

namespace fetchkit::demo {

bool IsTerminal(std::FILE* stream) {
  return isatty(fileno(stream)) != 0;
}

int TerminalColumns(std::FILE* out) {
  winsize size{};
  if (ioctl(fileno(out), TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
  return 100;
}

int CharacterWidth(char32_t character) {
  return utf8proc_charwidth(static_cast<utf8proc_int32_t>(character));
}

std::vector<std::string> Arguments(int argc, char** argv) {
  return {argv + std::min(argc, 1), argv + argc};
}

std::istream& Input() {
  return std::cin;
}

void Write(std::FILE* out, std::string_view text) {
  fmt::print(out, "{}", text);
}

}  // namespace fetchkit::demo
