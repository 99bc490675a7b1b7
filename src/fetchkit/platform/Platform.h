// What the operating system offers, behind one object.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "fetchkit/base/Date.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/platform/LogComponent.h"
#include "fetchkit/platform/WindowSystem.h"

namespace fetchkit {

// Its members are called from every thread that uses the library and hold no state of a thread.
class Platform {
 public:
  virtual ~Platform() = default;

  // Bytes of the text in the system's ANSI code page, inner NULs counted. A character that the
  // code page lacks counts as the one that stands in for it.
  virtual std::size_t AnsiLength(TextView text) const = 0;

  // The unit's code in the ANSI code page: one byte, or two with the lead byte in front. A
  // character that the code page lacks has the code of the one that stands in for it.
  virtual std::uint16_t AnsiCode(char16_t unit) const = 0;

  // The character with that code; nothing when no character has it.
  virtual std::optional<char16_t> AnsiCharacter(std::uint16_t code) const = 0;

  // The unit's code in code page 936 (GBK), whatever the system's own code page is: one byte, or
  // two with the lead byte in front. That of "?" for what code page 936 lacks.
  virtual std::uint16_t GbkCode(char16_t unit) const = 0;

  // The date that a text stands for, in the forms that the system's locale accepts; nothing when
  // it is no date. "yyyy-MM-dd" is always accepted.
  virtual std::optional<Date> ParseDate(TextView text) const = 0;

  // The local wall clock.
  virtual Date Now() const = 0;

  // Lives as long as the platform.
  virtual WindowSystem& Windows() = 0;

  // A new log component of the host's environment, for the calling thread. Null, or an error, when
  // there is none.
  virtual std::shared_ptr<LogComponent> CreateLog() = 0;
};

// The installed platform: the default one until another is installed.
Platform& CurrentPlatform();

// Installs a platform for the whole process (null: the default one again) and returns the one
// before it, or null when that was the default one. Not owned. To be called before the first
// thread uses the library.
Platform* SetPlatform(Platform* platform);

// The platform that is linked in: the portable one, or the component's own on Windows. Lives until
// the process ends.
Platform& DefaultPlatform();

}  // namespace fetchkit
