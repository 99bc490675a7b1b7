// Prints docs/statements.md, as ./run statements keeps it.
#include <cstdio>
#include <exception>

#include "tools/statements/Document.h"

int main() {
  try {
    std::fputs(fetchkit::statements::Document(fetchkit::statements::RecordStatements()).c_str(),
               stdout);
    return std::fclose(stdout) == 0 ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "statements: %s\n", error.what());
    return 1;
  }
}
