#include <unicode/ucnv.h>

#include <algorithm>
#include <boost/algorithm/string.hpp>
#include <memory>
#include <stdexcept>

#include "Pairs.h"
#include "fetchkit/utility/StringHelpers.h"

namespace fetchkit::bench {
namespace {

// Words, commas and Chinese captions, as lists of codes and captions look.
Text Sample(std::size_t length) {
  constexpr TextView kPiece = u"01-02-05 财务部, 生产一车间, Item ab/c,, 7,381.50,";
  Text text;
  while (text.size() < length)
    text.append(kPiece);
  text.resize(length);
  return text;
}

std::size_t IcuLength(TextView text) {
  UErrorCode error = U_ZERO_ERROR;
  static const std::unique_ptr<UConverter, decltype(&ucnv_close)> converter(
      ucnv_open("GBK", &error), ucnv_close);
  const auto length = ucnv_fromUChars(converter.get(), nullptr, 0, text.data(),
                                      static_cast<std::int32_t>(text.size()), &error);
  return static_cast<std::size_t>(length);
}

// Occurrences as TextCount counts them: one unit is skipped behind each hit.
std::int32_t CountWithFind(TextView text, TextView find) {
  std::int32_t count = 0;
  for (std::size_t at = text.find(find); at != TextView::npos;
       at = text.find(find, at + find.size() + 1))
    ++count;
  return count;
}

std::int32_t NthWithFind(TextView text, std::int16_t number, TextView find) {
  std::size_t from = 0;
  for (;;) {
    const std::size_t at = text.find(find, from);
    if (at == TextView::npos) return 0;
    if (--number == 0) return static_cast<std::int32_t>(at + 1);
    from = at + 1;
  }
}

void RegisterFor(const std::string& size, const Text& text) {
  Pair(
      "GetNoXString, last piece, " + size, "Boost split and trim",
      [text] { return StringHelpers::GetNoXString(text, 32767, u","); },
      [text] {
        std::vector<Text> pieces;
        boost::split(pieces, text, [](char16_t unit) { return unit == u','; });
        // The count of pieces may pass 32,767; the helper then answers with that one.
        const std::size_t index = std::min<std::size_t>(pieces.size(), 32767) - 1;
        return boost::trim_copy_if(pieces[index], [](char16_t unit) { return unit == u' '; });
      });
  Pair(
      "StrCount, " + size, "std::count", [text] { return StringHelpers::StrCount(text, u","); },
      [text] { return static_cast<std::int32_t>(std::count(text.begin(), text.end(), u',')); });
  Pair(
      "StrCount, two characters, " + size, "Boost find_all",
      [text] { return StringHelpers::StrCount(text, u", "); },
      [text] {
        std::vector<boost::iterator_range<Text::const_iterator>> hits;
        boost::find_all(hits, text, Text(u", "));
        return static_cast<std::int32_t>(hits.size());
      });
  Pair(
      "TextCount, " + size, "std find",
      [text] { return StringHelpers::TextCount(text, u"车间", CompareMethod::Binary); },
      [text] { return CountWithFind(text, u"车间"); });
  Pair(
      "GetNoXPos, " + size, "std find",
      [text] { return StringHelpers::GetNoXPos(text, 30000, u"车间"); },
      [text] { return NthWithFind(text, 30000, u"车间"); });
  Pair(
      "ContainErrorChar, none, " + size, "std find_first_of",
      [text] { return StringHelpers::ContainErrorChar(text, StringHelpers::kErrorChars, u",/"); },
      [text] { return text.find_first_of(u"`~!@#$%^&*=+'\";:?|\\") != Text::npos; });
  Pair(
      "StrLen, " + size, "ICU converter",
      [text] { return static_cast<std::size_t>(StringHelpers::StrLen(text)); },
      [text] { return IcuLength(text); });
}

}  // namespace

void RegisterTextHelpers() {
  RegisterFor("40 characters", Sample(40));
  RegisterFor("1 MiB", Sample(std::size_t{1} << 20));
}

}  // namespace fetchkit::bench
