#include <algorithm>

#include "component/Windows.h"
#include "demo/console/Terminal.h"
#include "fetchkit/base/Utf8.h"

namespace fetchkit::demo {
namespace {

// The system's handle of a standard stream; none for any other.
HANDLE HandleOf(std::FILE* out) {
  if (out == stdout) return GetStdHandle(STD_OUTPUT_HANDLE);
  return out == stderr ? GetStdHandle(STD_ERROR_HANDLE) : INVALID_HANDLE_VALUE;
}

bool IsConsole(HANDLE handle) {
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) != 0;
}

}  // namespace

bool IsTerminal(std::FILE* stream) {
#ifndef ENABLE_VIRTUAL_TERMINAL_PROCESSING
  constexpr DWORD ENABLE_VIRTUAL_TERMINAL_PROCESSING = 4;
#endif
  const HANDLE handle = HandleOf(stream);
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) != 0 &&
         SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

int TerminalColumns(std::FILE* out) {
  CONSOLE_SCREEN_BUFFER_INFO info;
  if (!GetConsoleScreenBufferInfo(HandleOf(out), &info)) return 100;
  return info.srWindow.Right - info.srWindow.Left + 1;
}

// The blocks of East Asian scripts and full-width forms, which is what the sample accounts hold.
int CharacterWidth(char32_t character) {
  struct Block {
    char32_t first;
    char32_t last;
  };
  constexpr Block kWide[] = {{0x1100, 0x115F}, {0x2E80, 0xA4CF},  {0xAC00, 0xD7A3},
                             {0xF900, 0xFAFF}, {0xFE30, 0xFE6F},  {0xFF01, 0xFF60},
                             {0xFFE0, 0xFFE6}, {0x20000, 0x3FFFD}};
  const bool wide = std::any_of(std::begin(kWide), std::end(kWide), [&](const Block& block) {
    return character >= block.first && character <= block.last;
  });
  return wide ? 2 : 1;
}

// Past the run-time library, which would turn line ends and characters into others.
void Write(std::FILE* out, std::string_view text) {
  const HANDLE handle = HandleOf(out);
  std::fflush(out);
  DWORD written = 0;
  if (handle == INVALID_HANDLE_VALUE || !handle) {
    std::fwrite(text.data(), 1, text.size(), out);
  } else if (IsConsole(handle)) {
    const Text units = FromUtf8(text);
    WriteConsoleW(handle, units.data(), static_cast<DWORD>(units.size()), &written, nullptr);
  } else {
    WriteFile(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
  }
}

}  // namespace fetchkit::demo
