#include "fuzz/Fuzz.h"

#include <bit>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>
#include <vector>

#include "fetchkit/base/ThreadState.h"

namespace fetchkit::test {

std::uint8_t Input::Byte() {
  if (bytes_.empty()) return 0;
  const std::uint8_t byte = bytes_.front();
  bytes_ = bytes_.subspan(1);
  return byte;
}

std::uint64_t Input::Bits(int bytes) {
  std::uint64_t bits = 0;
  for (; bytes > 0; --bytes)
    bits = bits << 8 | Byte();
  return bits;
}

std::int32_t Input::Long() {
  using Limits = std::numeric_limits<std::int32_t>;
  switch (Below(8)) {
    case 0:
      return Limits::max() - Below(2);
    case 1:
      return Limits::min() + Below(2);
    case 2:
    case 3:
      return static_cast<std::int32_t>(Bits(4));
    default:
      return Byte() - 128;
  }
}

double Input::Number() {
  switch (Below(8)) {
    case 0:
      return Pick({0.0, -0.0, 1e308, -1e308, 5e-324, 1e15, 9007199254740993.0,
                   std::numeric_limits<double>::infinity(),
                   std::numeric_limits<double>::quiet_NaN()});
    case 1:
      return std::bit_cast<double>(Bits(8));
    case 2:
      return Long();
    case 3:
      return Long() / 1000.0;
    case 4:
      return Long() * 1e6 + Long() / 1e5;
    default:
      return (Byte() - 128) / 8.0;
  }
}

Text Input::Units(int most) {
  Text text;
  for (int left = Below(most + 1); left > 0 && !AtEnd(); --left) {
    const std::uint8_t unit = Byte();
    text.push_back(unit < 0xE0 ? unit : static_cast<char16_t>(unit << 8 | Byte()));
  }
  return text;
}

Text Input::Pieces(std::span<const TextView> pieces, int most) {
  Text text;
  for (int left = Below(most + 1); left > 0; --left)
    text.append(pieces[static_cast<std::size_t>(Below(static_cast<int>(pieces.size())))]);
  return text;
}

Value AnyValue(Input& in, const Text& text) {
  const double number = in.Number();
  const std::int32_t whole = in.Long();
  return in.Pick<Value>({NullValue(), EmptyValue(), MissingValue(), whole % 2 == 0, whole,
                         static_cast<std::int16_t>(whole), static_cast<float>(whole) / 8, number,
                         Date{number}, Value(ValueArray{whole < 0, 0, {}}), text});
}

Text ReplaceByLoop(TextView text, TextView find, TextView replacement, bool ignoreCase) {
  Text result;
  for (std::size_t at = 0; at < text.size();) {
    const TextView here = text.substr(at, find.size());
    const bool hit = !find.empty() && (ignoreCase ? EqualFolded(here, find) : here == find);
    result.append(hit ? replacement : text.substr(at, 1));
    at += hit ? find.size() : 1;
  }
  return result;
}

bool IsWellFormed(TextView sql) {
  int depth = 0;
  bool quoted = false;
  for (const char16_t unit : sql) {
    if (unit == u'\'') quoted = !quoted;
    if (quoted) continue;
    depth += unit == u'(' ? 1 : unit == u')' ? -1 : 0;
    if (depth < 0) return false;
  }
  return depth == 0 && !quoted;
}

}  // namespace fetchkit::test

#ifdef FETCHKIT_FUZZ

// Ends the process when the target's checks fail.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  fetchkit::test::Input in({bytes, size});
  fetchkit::test::kTarget(in);
  fetchkit::ReleaseThread();
  if (testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed()) std::abort();
  return 0;
}

#else

void fetchkit::test::ReplayCorpus(const std::string& name, Target target) {
  std::vector<std::uint8_t> bytes;
  const auto run = [&] {
    Input in(bytes);
    target(in);
    ReleaseThread();
  };
  int files = 0;
  for (const auto& file : std::filesystem::directory_iterator(FETCHKIT_CORPUS "/" + name)) {
    SCOPED_TRACE(file.path().filename());
    std::ifstream stream(file.path(), std::ios::binary);
    bytes.assign(std::istreambuf_iterator<char>(stream), {});
    run();
    ++files;
  }
  EXPECT_GT(files, 0);
  std::mt19937 random;
  for (int number = 0; number < 1000 && !testing::Test::HasFailure(); ++number) {
    SCOPED_TRACE("random input " + std::to_string(number));
    bytes.resize(random() % 200);
    for (std::uint8_t& byte : bytes)
      byte = static_cast<std::uint8_t>(random());
    run();
  }
}

#endif
