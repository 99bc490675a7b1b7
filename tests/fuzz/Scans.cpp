// The scans by blocks against the loops that define them, around the sizes at which they change.
#include "fetchkit/base/Scan.h"
#include "fuzz/Fuzz.h"

namespace fetchkit::test {
namespace {

// Up to 400 units of few kinds; a short pattern repeated now and then, so that hits lie at each
// place of a block.
Text LongText(Input& in) {
  static constexpr TextView kKinds =
      u"aAbB,,,[{\x60@ 019\x7F\x80ÿ部财\x4DFF\x4E00\x9FA5\x9FA6\xD83D，\x2C61\xFF21";
  const auto size = static_cast<std::size_t>(in.Below(100) * 4 + in.Below(9));
  const int kinds = in.Bool() ? 4 : static_cast<int>(kKinds.size());
  Text pattern;
  for (int i = in.Below(24); i >= 0; --i)
    pattern.push_back(kKinds[static_cast<std::size_t>(in.Below(kinds))]);
  Text text;
  while (text.size() < size)
    text.append(pattern);
  text.resize(size);
  for (int i = in.Below(4); i > 0 && size > 0; --i)
    text[static_cast<std::size_t>(in.Below(256)) * 2 % size] =
        kKinds[static_cast<std::size_t>(in.Below(static_cast<int>(kKinds.size())))];
  return text;
}

void CheckPairs(TextView text, const scan::Pair& pair, std::size_t from, std::size_t capacity) {
  EXPECT_EQ(scan::FindPair(text, pair, from), scan::loop::FindPair(text, pair, from));
  std::size_t places[40];
  std::size_t expected = scan::loop::FindPair(text, pair, from);
  while (const std::size_t count = scan::FindPairs(text, pair, from, places, capacity)) {
    ASSERT_LE(count, capacity);
    for (std::size_t i = 0; i < count; ++i) {
      ASSERT_EQ(places[i], expected);
      expected = scan::loop::FindPair(text, pair, expected + 1);
    }
  }
  EXPECT_EQ(expected, TextView::npos);
}

}  // namespace

FUZZ_TARGET(Scans) {
  const Text text = LongText(in);
  const char16_t unit = text.empty() || in.Bool() ? u',' : text[text.size() / 2];
  EXPECT_EQ(scan::CountUnit(text, unit), scan::loop::CountUnit(text, unit));
  for (const std::size_t n :
       {std::size_t{0}, std::size_t{1}, static_cast<std::size_t>(in.Below(90)),
        scan::loop::CountUnit(text, unit)})
    EXPECT_EQ(scan::FindNthUnit(text, unit, n), scan::loop::FindNthUnit(text, unit, n)) << n;

  const char16_t last = in.Bool() ? unit : u'B';
  const scan::Pair pair{unit, last, static_cast<std::size_t>(in.Below(5)),
                        IsAsciiLetter(unit) && in.Bool(), IsAsciiLetter(last) && in.Bool()};
  const auto from = static_cast<std::size_t>(in.Below(70));
  CheckPairs(text, pair, from, 1 + static_cast<std::size_t>(in.Below(40)));

  scan::AsciiSet set;
  for (int i = in.Below(6); i > 0; --i)
    set.Add(static_cast<char16_t>(1 + in.Below(0x7F)));
  EXPECT_EQ(scan::FindAnyOf(text, set), scan::loop::FindAnyOf(text, set));

  // It may stop a block early, and counts what it has looked at.
  const scan::Han all = scan::loop::LeadingHan(text);
  const scan::Han leading = scan::LeadingHan(text);
  EXPECT_LE(leading.units, all.units);
  EXPECT_LT(all.units - leading.units, 16u);
  EXPECT_EQ(leading.han, scan::loop::LeadingHan(TextView(text).substr(0, leading.units)).han);

  const TextView joint = TextView(u"','x").substr(0, 1 + static_cast<std::size_t>(in.Below(4)));
  const std::size_t hits = scan::loop::CountUnit(text, unit);
  Text expected(text.size() + hits * (joint.size() - 1), u'\0');
  Text copied = expected;
  EXPECT_EQ(scan::loop::CopyReplacing(expected.data(), text, unit, joint),
            expected.data() + expected.size());
  EXPECT_EQ(scan::CopyReplacing(copied.data(), text, unit, joint), copied.data() + copied.size());
  EXPECT_EQ(copied, expected);
}

}  // namespace fetchkit::test
