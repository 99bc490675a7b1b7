// What a process holds: measured by walking its heaps, because not every system that runs these
// programs counts private bytes and handles.
#pragma once

#include "component/Windows.h"

namespace fetchkit::test {

struct Footprint {
  long long blocks = 0;  // on all heaps
  long long bytes = 0;
  long long resident = 0;  // bytes of memory in use, heaps or not
  long handle = 0;         // the number of a fresh handle: they are given out from the lowest
  int freeSlots = 0;       // of thread-local storage

  static Footprint Now();
};

}  // namespace fetchkit::test
