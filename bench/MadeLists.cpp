#include "MadeLists.h"

#include <unicode/translit.h>

#include <unordered_map>

namespace fetchkit::bench {

std::vector<Text> CodesAndNames(std::size_t count) {
  constexpr TextView kWords[] = {u"客户", u"银川", u"科技", u"贸易", u"公司",
                                 u"粮油", u"电力", u"苏州", u"青岛", u"服装"};
  std::vector<Text> list;
  for (std::size_t i = 0; i < count; ++i)
    list.push_back(Join(100000 + i, u" ", kWords[i % 10], kWords[i / 10 % 10], kWords[i / 100 % 10],
                        kWords[i / 1000 % 10]));
  return list;
}

std::vector<Text> InitialsByIcu(const std::vector<Text>& list) {
  UErrorCode error = U_ZERO_ERROR;
  const std::unique_ptr<icu::Transliterator> latin(
      icu::Transliterator::createInstance("Han-Latin; Latin-ASCII; Lower", UTRANS_FORWARD, error));
  std::unordered_map<char16_t, char16_t> initials;
  std::vector<Text> all = list;
  for (Text& text : all)
    for (char16_t& unit : text) {
      const auto [entry, isNew] = initials.try_emplace(unit);
      if (isNew) {
        icu::UnicodeString read(unit);
        latin->transliterate(read);
        entry->second = read.charAt(0);
      }
      unit = entry->second;
    }
  return all;
}

}  // namespace fetchkit::bench
