#include "fuzz/Fuzz.h"

#include <algorithm>
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

std::int32_t Input::Long() {
  switch (Below(8)) {
    case 0:
      return std::numeric_limits<std::int32_t>::max() - Below(2);
    case 1:
      return std::numeric_limits<std::int32_t>::min() + Below(2);
    case 2:
    case 3: {
      std::uint32_t number = 0;
      for (int i = 0; i < 4; ++i)
        number = number << 8 | Byte();
      return static_cast<std::int32_t>(number);
    }
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
    case 1: {
      std::uint64_t bits = 0;
      for (int i = 0; i < 8; ++i)
        bits = bits << 8 | Byte();
      return std::bit_cast<double>(bits);
    }
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

#ifdef FETCHKIT_FUZZ

int RunOne(std::span<const std::uint8_t> bytes, Target target) {
  Input in(bytes);
  target(in);
  ReleaseThread();
  if (testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed()) std::abort();
  return 0;
}

#else

void ReplayCorpus(const std::string& name, Target target) {
  std::vector<std::filesystem::path> files;
  for (const auto& file : std::filesystem::directory_iterator(FETCHKIT_CORPUS "/" + name))
    files.push_back(file.path());
  std::sort(files.begin(), files.end());
  EXPECT_FALSE(files.empty());
  std::vector<std::uint8_t> bytes;
  const auto run = [&] {
    Input in(bytes);
    target(in);
    ReleaseThread();
  };
  for (const auto& file : files) {
    SCOPED_TRACE(file.filename());
    std::ifstream stream(file, std::ios::binary);
    bytes.assign(std::istreambuf_iterator<char>(stream), {});
    run();
  }
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

}  // namespace fetchkit::test
