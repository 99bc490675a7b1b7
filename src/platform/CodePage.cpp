// The only file that asks the C library's iconv; the Windows build leaves it out.
#include "platform/CodePage.h"

#include <iconv.h>

#include <bitset>
#include <memory>

namespace fetchkit {
namespace {

constexpr std::size_t kUnits = 0x10000;
using DoubleByteUnits = std::bitset<kUnits>;

// Asked once for all units: opening a converter for every text would cost more than the lengths.
std::unique_ptr<const DoubleByteUnits> ReadCodePage() {
  auto wide = std::make_unique<DoubleByteUnits>();
  const iconv_t converter = iconv_open("GBK", "UTF-16LE");
  // A C library without this converter still counts every Chinese character as 2.
  if (converter == reinterpret_cast<iconv_t>(-1)) {
    for (std::size_t unit = 0x2E80; unit < 0xD800; ++unit)
      wide->set(unit);
    for (std::size_t unit = 0xF900; unit < 0xFFF0; ++unit)
      wide->set(unit);
    return wide;
  }
  for (std::size_t unit = 0x80; unit < kUnits; ++unit) {
    char in[2] = {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    char out[4];
    char* inAt = in;
    char* outAt = out;
    std::size_t inLeft = sizeof in;
    std::size_t outLeft = sizeof out;
    if (iconv(converter, &inAt, &inLeft, &outAt, &outLeft) == 0 && sizeof out - outLeft == 2)
      wide->set(unit);
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
  }
  iconv_close(converter);
  return wide;
}

}  // namespace

int CodePageBytes(char16_t unit) {
  if (unit < 0x80) return 1;
  static const auto wide = ReadCodePage();
  return wide->test(unit) ? 2 : 1;
}

}  // namespace fetchkit
