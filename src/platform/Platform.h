// What the operating system offers, behind one object.
#pragma once

#include <cstddef>
#include <optional>

#include "base/Date.h"
#include "base/Text.h"

namespace fetchkit {

// Its members are called from every thread that uses the library and hold no state of a thread.
class Platform {
 public:
  virtual ~Platform() = default;

  // Bytes of the text in the system's ANSI code page, inner NULs counted. A character that the
  // code page lacks counts as the one that stands in for it.
  virtual std::size_t AnsiLength(TextView text) const = 0;

  // The date that a text stands for, in the forms that the system's locale accepts; nothing when
  // it is no date. "yyyy-MM-dd" is always accepted.
  virtual std::optional<Date> ParseDate(TextView text) const = 0;

  // The local wall clock.
  virtual Date Now() const = 0;
};

// The installed platform: the portable one until another is installed.
Platform& CurrentPlatform();

// Installs a platform for the whole process (null: the portable one again) and returns the one
// before it, or null when that was the portable one. Not owned. To be called before the first
// thread uses the library.
Platform* SetPlatform(Platform* platform);

}  // namespace fetchkit
