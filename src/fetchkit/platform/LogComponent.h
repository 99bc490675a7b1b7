// The error log of the host's environment.
#pragma once

#include <cstdint>

#include "fetchkit/base/Text.h"

namespace fetchkit {

class LogComponent {
 public:
  virtual ~LogComponent() = default;

  // Writes one entry: the message, then the caller's two texts and number unchanged. Answers
  // whether it was written; may throw.
  virtual bool Write(TextView message, TextView strA, TextView strB, std::int32_t lngC) = 0;
};

}  // namespace fetchkit
