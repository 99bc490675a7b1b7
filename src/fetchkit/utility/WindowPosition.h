// Where a window is to stand.
#pragma once

#include <cstdint>

namespace fetchkit {

enum WindowPositionConstants : std::int32_t {
  wpDefault = 0,       // where it is
  wpScreenCenter = 1,  // in the middle of the screen
  wpOwnerCenter = 2,   // in the middle of the foreground window, as if that stood at the origin
  wpManual = 3,        // as given
};

}  // namespace fetchkit
