// Counts the calls that a loaded module makes of a function it imports.
#pragma once

#include "component/Windows.h"

namespace fetchkit {

// One at a time per function; the module must import it by name.
class ImportCounter {
 public:
  ImportCounter(HMODULE module, const char* function);

  // Calls made while the body runs; -1 when the module does not import the function.
  template <class Body>
  int During(Body body) {
    if (!slot_) return -1;
    Install();
    body();
    return Remove();
  }

 private:
  void Install();
  int Remove();

  void** slot_ = nullptr;
  bool text_;  // whether it is the function that makes texts, malloc otherwise
};

}  // namespace fetchkit
