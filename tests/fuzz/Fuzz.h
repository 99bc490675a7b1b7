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

#include "fetchkit/base/Utf8.h"
#include "fetchkit/base/Value.h"

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
  // The next bytes as one number.
  std::uint64_t Bits(int bytes);

  std::span<const std::uint8_t> bytes_;
};

// A value of any type that a database may hand over; a text is the given one.
Value AnyValue(Input& in, const Text& text);

// The plainest loop that replaces, from left to right; an empty find replaces nothing.
Text ReplaceByLoop(TextView text, TextView find, TextView replacement, bool ignoreCase = false);

// Whether brackets and apostrophes come in pairs.
bool IsWellFormed(TextView sql);

using Target = void (*)(Input& in);

#ifdef FETCHKIT_FUZZ
extern const Target kTarget;  // the program's
#define FUZZ_ENTRY(name) const Target kTarget = Fuzz##name
#else
// Gives the target every file of tests/fuzz/corpus/NAME, then the random inputs.
void ReplayCorpus(const std::string& name, Target target);
#define FUZZ_ENTRY(name)             \
  TEST(FuzzCorpus, name) {           \
    ReplayCorpus(#name, Fuzz##name); \
  }
#endif

}  // namespace fetchkit::test

// Introduces a target's body: FUZZ_TARGET(Texts) { ... in.Byte() ... }
#define FUZZ_TARGET(name)            \
  static void Fuzz##name(Input& in); \
  FUZZ_ENTRY(name);                  \
  static void Fuzz##name(Input& in)
