// The platform that works anywhere: code page 936, common date texts, the system clock.
#pragma once

#include "platform/Platform.h"

namespace fetchkit {

class PortablePlatform : public Platform {
 public:
  std::size_t AnsiLength(TextView text) const override;

  // "yyyy-MM-dd", "yyyy/M/d", "yyyy.M.d" and "yyyy年M月d日", each optionally with a time "H:mm" or
  // "H:mm:ss" behind a blank; blanks around the text are ignored. Days that the calendar does not
  // have are refused.
  std::optional<Date> ParseDate(TextView text) const override;

  Date Now() const override;
};

}  // namespace fetchkit
