// What the system knows of the terminal, the one part of the console that differs between systems.
#pragma once

#include <cstdio>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace fetchkit::demo {

// Whether the stream is a terminal; what an output needs to show colours is switched on.
bool IsTerminal(std::FILE* stream);

// Columns of the terminal, 100 when it does not tell.
int TerminalColumns(std::FILE* out);

// Columns that a character takes on it: Chinese glyphs two, combining marks none.
int CharacterWidth(char32_t character);

// The command line without the program's name, in UTF-8.
std::vector<std::string> Arguments(int argc, char** argv);

// The standard input, in UTF-8; lives as long as the program.
std::istream& Input();

// UTF-8, to a terminal as to a file.
void Write(std::FILE* out, std::string_view text);

}  // namespace fetchkit::demo
