// Fuzz targets: functions that make a case out of arbitrary bytes and check what must hold for it.
//
// A target is written as a test, with EXPECT_...; no exception may leave it. A build for fuzzing
// makes a program of each; in every other build each is an ordinary test, of the inputs kept in
// tests/fuzz/corpus and of random ones, the same in every run.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "fetchkit/base/Utf8.h"

namespace fetchkit::test {

// The bytes of an input, taken one after the other. Behind their end all are 0, so that every input
// is a case, and a shorter one is a simpler case.
class Input {
 public:
  explicit Input(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  bool AtEnd() const { return bytes_.empty(); }
  std::uint8_t Byte();
  bool Bool() { return Byte() % 2 != 0; }

  // 0 to count - 1; 0 for a count below 1.
  int Below(int count) { return count < 1 ? 0 : Byte() % count; }

  std::int32_t Long();   // any, small ones and the ends of its range more often
  double Number();       // any, also infinite and NaN; whole numbers and few decimals more often
  Text Units(int most);  // of any code units

  template <class T>
  T Pick(std::initializer_list<T> items) {
    return items.begin()[Below(static_cast<int>(items.size()))];
  }

  // Up to that many pieces one behind the other.
  Text Pieces(std::span<const TextView> pieces, int most);

 private:
  std::span<const std::uint8_t> bytes_;
};

using Target = void (*)(Input& in);

// Gives the target every file of tests/fuzz/corpus/NAME, then the random inputs.
void ReplayCorpus(const std::string& name, Target target);

// For LLVMFuzzerTestOneInput: ends the process when the target's checks fail.
int RunOne(std::span<const std::uint8_t> bytes, Target target);

}  // namespace fetchkit::test

// Introduces a target's body: FUZZ_TARGET(Texts) { ... in.Byte() ... }
#ifdef FETCHKIT_FUZZ
#define FUZZ_TARGET(name)                                                              \
  static void Fuzz##name(fetchkit::test::Input& in);                                   \
  extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);  \
  extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) { \
    return fetchkit::test::RunOne({bytes, size}, Fuzz##name);                          \
  }                                                                                    \
  static void Fuzz##name(fetchkit::test::Input& in)
#else
#define FUZZ_TARGET(name)                            \
  static void Fuzz##name(fetchkit::test::Input& in); \
  TEST(FuzzCorpus, name) {                           \
    fetchkit::test::ReplayCorpus(#name, Fuzz##name); \
  }                                                  \
  static void Fuzz##name(fetchkit::test::Input& in)
#endif
