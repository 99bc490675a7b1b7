// What the system knows of the terminal, the one part of the console that differs between systems.
#pragma once

#include <cstdio>
#include <string_view>

namespace fetchkit::demo {

// Whether the stream is a terminal; what an output needs to show colours is switched on.
bool IsTerminal(std::FILE* stream);

// Columns of the terminal, 100 when it does not tell.
int TerminalColumns(std::FILE* out);

// Columns that a character takes on it: Chinese glyphs two, combining marks none.
int CharacterWidth(char32_t character);

// UTF-8, to a terminal as to a file.
void Write(std::FILE* out, std::string_view text);

}  // namespace fetchkit::demo
