#include "fetchkit/platform/PortablePlatform.h"

#include <algorithm>
#include <chrono>
#include <ctime>

#include "fetchkit/platform/CodePage.h"
#include "fetchkit/platform/CommonDates.h"

namespace fetchkit {
std::size_t PortablePlatform::AnsiLength(TextView text) const {
  return CodePageLength(text);
}

std::uint16_t PortablePlatform::AnsiCode(char16_t unit) const {
  return CodePageCode(unit);
}

std::optional<char16_t> PortablePlatform::AnsiCharacter(std::uint16_t code) const {
  return CodePageCharacter(code);
}

std::uint16_t PortablePlatform::GbkCode(char16_t unit) const {
  return CodePageCode(unit);
}

std::optional<Date> PortablePlatform::ParseDate(TextView text) const {
  return ParseCommonDate(text);
}

Date PortablePlatform::Now() const {
  // localtime is the only way to the local clock in this library version's chrono; its static
  // result is not shared, because the reentrant form is used.
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm local{};
  localtime_r(&now, &local);
  const auto date = DateFromYmd(local.tm_year + 1900, static_cast<unsigned>(local.tm_mon) + 1,
                                static_cast<unsigned>(local.tm_mday));
  const int second = local.tm_hour * 3600 + local.tm_min * 60 + std::min(local.tm_sec, 59);
  return Date{date.value_or(Date{}).serial + second / 86400.0};
}

Platform& DefaultPlatform() {
  static PortablePlatform portable;
  return portable;
}

}  // namespace fetchkit
