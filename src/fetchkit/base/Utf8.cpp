#include "fetchkit/base/Utf8.h"

namespace fetchkit {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

void AppendUtf8(std::string& bytes, char32_t point) {
  const auto tail = [&](int shift) {
    bytes.push_back(static_cast<char>(0x80 | ((point >> shift) & 0x3F)));
  };
  if (point < 0x80) {
    bytes.push_back(static_cast<char>(point));
  } else if (point < 0x800) {
    bytes.push_back(static_cast<char>(0xC0 | (point >> 6)));
    tail(0);
  } else if (point < 0x10000) {
    bytes.push_back(static_cast<char>(0xE0 | (point >> 12)));
    tail(6);
    tail(0);
  } else {
    bytes.push_back(static_cast<char>(0xF0 | (point >> 18)));
    tail(12);
    tail(6);
    tail(0);
  }
}

// Reads one code point at the front of bytes and says how many bytes it took; a malformed
// sequence is one byte long.
char32_t ReadUtf8(std::string_view bytes, std::size_t& taken) {
  const auto at = [&](std::size_t i) {
    return static_cast<char32_t>(static_cast<unsigned char>(bytes[i]));
  };
  taken = 1;
  const char32_t lead = at(0);
  if (lead < 0x80) return lead;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
  if (length == 0 || lead > 0xF4 || bytes.size() < length) return kReplacement;
  char32_t point = lead & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if ((at(i) & 0xC0) != 0x80) return kReplacement;
    point = (point << 6) | (at(i) & 0x3F);
  }
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (point < kSmallest[length] || point > 0x10FFFF || (point >= 0xD800 && point < 0xE000))
    return kReplacement;
  taken = length;
  return point;
}

}  // namespace

std::string ToUtf8(TextView text) {
  std::string bytes;
  bytes.reserve(text.size() + text.size() / 2);
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t point = text[i];
    if (IsHighSurrogate(point) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      point = 0x10000 + ((point - 0xD800) << 10) + (char32_t{text[++i]} - 0xDC00);
    } else if (IsHighSurrogate(point) || IsLowSurrogate(point)) {
      point = kReplacement;
    }
    AppendUtf8(bytes, point);
  }
  return bytes;
}

Text FromUtf8(std::string_view bytes) {
  Text text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    std::size_t taken = 0;
    char32_t point = ReadUtf8(bytes, taken);
    bytes.remove_prefix(taken);
    if (point >= 0x10000) {
      point -= 0x10000;
      text.push_back(static_cast<char16_t>(0xD800 + (point >> 10)));
      text.push_back(static_cast<char16_t>(0xDC00 + (point & 0x3FF)));
    } else {
      text.push_back(static_cast<char16_t>(point));
    }
  }
  return text;
}

}  // namespace fetchkit
