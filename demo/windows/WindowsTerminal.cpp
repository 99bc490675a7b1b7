// The second needs the first.
// clang-format off
#include "component/Windows.h"
#include <shellapi.h>
// clang-format on

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <streambuf>

#include "demo/console/Terminal.h"
#include "fetchkit/base/Utf8.h"

namespace fetchkit::demo {
namespace {

// The system's handle of a standard stream; none for any other.
HANDLE HandleOf(std::FILE* out) {
  if (out == stdin) return GetStdHandle(STD_INPUT_HANDLE);
  if (out == stdout) return GetStdHandle(STD_OUTPUT_HANDLE);
  return out == stderr ? GetStdHandle(STD_ERROR_HANDLE) : INVALID_HANDLE_VALUE;
}

bool IsConsole(HANDLE handle) {
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) != 0;
}

std::string Utf8Of(const wchar_t* text) {
  return ToUtf8(reinterpret_cast<const char16_t*>(text));
}

// What is typed at the console, line by line.
class ConsoleInput : public std::streambuf {
 protected:
  int_type underflow() override {
    wchar_t units[1024];
    DWORD read = 0;
    if (!ReadConsoleW(GetStdHandle(STD_INPUT_HANDLE), units, 1024, &read, nullptr) || read == 0)
      return traits_type::eof();
    line_ = ToUtf8({reinterpret_cast<const char16_t*>(units), read});
    std::erase(line_, '\r');
    if (line_.empty() || line_.front() == '\x1A') return traits_type::eof();  // Ctrl+Z
    setg(line_.data(), line_.data(), line_.data() + line_.size());
    return traits_type::to_int_type(line_.front());
  }

 private:
  std::string line_;
};

}  // namespace

// The variable with the connection string, too, comes in the code page of the machine.
std::vector<std::string> Arguments(int, char**) {
  constexpr const wchar_t* kVariable = L"FETCHKIT_ODBC";
  if (const wchar_t* string = _wgetenv(kVariable))
    _putenv_s(Utf8Of(kVariable).c_str(), Utf8Of(string).c_str());
  int count = 0;
  const std::unique_ptr<wchar_t*, decltype(&LocalFree)> texts(
      CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
  std::vector<std::string> arguments;
  for (int i = 1; texts && i < count; ++i)
    arguments.push_back(Utf8Of(texts.get()[i]));
  return arguments;
}

std::istream& Input() {
  static ConsoleInput typed;
  static std::istream console(&typed);
  return IsConsole(GetStdHandle(STD_INPUT_HANDLE)) ? console : std::cin;
}

bool IsTerminal(std::FILE* stream) {
#ifndef ENABLE_VIRTUAL_TERMINAL_PROCESSING
  constexpr DWORD ENABLE_VIRTUAL_TERMINAL_PROCESSING = 4;
#endif
  const HANDLE handle = HandleOf(stream);
  if (stream == stdin) return IsConsole(handle);
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
