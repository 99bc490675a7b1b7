// The scans over blocks of units, whatever their width: included by the sources that know a width.
//
// Plain pointers and sizes only. A source that is compiled for a newer processor must not make a
// second copy of an inline function of the standard library, which the linker might then take for
// all of the program.
//
// A Block has kUnits, kFullMask (the mask with all units set), Load, Store, All (one unit
// everywhere), Zero, Equal (all bits of a unit set where two are equal), And, Or, Add, Subtract,
// Sum (of its units, each at most 32,767), Mask (one bit for each unit that is set), IsHan (set for
// U+4E00 to U+9FA5) and IsAscii (set below U+0080). A function that goes as far as whole blocks do
// says in at where it stopped.
#pragma once

#include <cstddef>
#include <cstdint>

namespace fetchkit::scan {

// What does not fit into a function's answer.
struct PairUnits {
  char16_t first;
  char16_t last;
  char16_t firstFold;  // 0x20 for a letter in either case
  char16_t lastFold;
};

// What a source offers for its width.
struct BlockScans {
  std::size_t (*count)(const char16_t* text, std::size_t size, char16_t unit, std::size_t& at);
  // Goes on until fewer than n are left in what follows at; n becomes what is left of it.
  void (*skip)(const char16_t* text, std::size_t size, char16_t unit, std::size_t& n,
               std::size_t& at);
  std::size_t (*pairs)(const char16_t* text, std::size_t end, std::size_t distance,
                       const PairUnits& units, std::size_t& at, std::size_t* places,
                       std::size_t capacity);
  std::size_t (*han)(const char16_t* text, std::size_t size, std::size_t& at);
  char16_t* (*replace)(char16_t* out, const char16_t* text, std::size_t size, char16_t unit,
                       const char16_t* joint4, std::size_t jointSize, std::size_t& at);
};

template <class Block>
struct Blocks {
  static constexpr std::size_t kUnits = Block::kUnits;
  static constexpr std::size_t kTurn = 8 * kUnits;

  // Hits among eight blocks, a number in each unit.
  static Block HitsOfTurn(const char16_t* text, Block wanted) {
    Block even = Equal(Block::Load(text), wanted);
    Block odd = Equal(Block::Load(text + kUnits), wanted);
    for (std::size_t i = 2; i < 8; i += 2) {
      even = Add(even, Equal(Block::Load(text + i * kUnits), wanted));
      odd = Add(odd, Equal(Block::Load(text + (i + 1) * kUnits), wanted));
    }
    return Subtract(Block::Zero(), Add(even, odd));
  }

  static std::size_t Count(const char16_t* text, std::size_t size, char16_t unit, std::size_t& at) {
    const Block wanted = Block::All(unit);
    std::size_t count = 0;
    while (at + kTurn <= size) {
      // The numbers are added up before they can pass what a unit holds.
      Block hits = Block::Zero();
      for (int turn = 0; turn < 4000 && at + kTurn <= size; ++turn, at += kTurn)
        hits = Add(hits, HitsOfTurn(text + at, wanted));
      count += hits.Sum();
    }
    Block hits = Block::Zero();
    for (; at + kUnits <= size; at += kUnits)
      hits = Subtract(hits, Equal(Block::Load(text + at), wanted));
    return count + hits.Sum();
  }

  static void Skip(const char16_t* text, std::size_t size, char16_t unit, std::size_t& n,
                   std::size_t& at) {
    const Block wanted = Block::All(unit);
    for (; at + kTurn <= size; at += kTurn) {
      const std::size_t hits = HitsOfTurn(text + at, wanted).Sum();
      if (hits >= n) return;
      n -= hits;
    }
  }

  template <bool kFolds>
  static std::size_t PairsOf(const char16_t* text, std::size_t end, std::size_t distance,
                             const PairUnits& units, std::size_t& at, std::size_t* places,
                             std::size_t capacity) {
    const Block first = Block::All(units.first);
    const Block last = Block::All(units.last);
    const Block firstFold = Block::All(units.firstFold);
    const Block lastFold = Block::All(units.lastFold);
    std::size_t found = 0;
    for (; at + kUnits <= end; at += kUnits) {
      Block front = Block::Load(text + at);
      Block back = Block::Load(text + at + distance);
      if (kFolds) {
        front = Or(front, firstFold);
        back = Or(back, lastFold);
      }
      std::uint32_t mask = And(Equal(front, first), Equal(back, last)).Mask();
      while (mask != 0) {
        const auto bit = static_cast<std::size_t>(__builtin_ctz(mask));
        places[found++] = at + bit;
        if (found == capacity) {
          at += bit + 1;
          return found;
        }
        mask &= mask - 1;
      }
    }
    return found;
  }

  static std::size_t Pairs(const char16_t* text, std::size_t end, std::size_t distance,
                           const PairUnits& units, std::size_t& at, std::size_t* places,
                           std::size_t capacity) {
    return (units.firstFold | units.lastFold) != 0
               ? PairsOf<true>(text, end, distance, units, at, places, capacity)
               : PairsOf<false>(text, end, distance, units, at, places, capacity);
  }

  static std::size_t HanUnits(const char16_t* text, std::size_t size, std::size_t& at) {
    std::size_t han = 0;
    while (at + kUnits <= size) {
      Block hits = Block::Zero();
      bool goesOn = true;
      for (int turn = 0; turn < 32000 && at + kUnits <= size; ++turn, at += kUnits) {
        const Block units = Block::Load(text + at);
        const Block isHan = units.IsHan();
        goesOn = Or(isHan, units.IsAscii()).Mask() == Block::kFullMask;
        if (!goesOn) break;
        hits = Subtract(hits, isHan);
      }
      han += hits.Sum();
      if (!goesOn) break;
    }
    return han;
  }

  // Whole blocks are stored where a part of one is wanted: as long as one more block of text
  // follows, what is written too much lies where that will be written.
  static char16_t* Replace(char16_t* out, const char16_t* text, std::size_t size, char16_t unit,
                           const char16_t* joint4, std::size_t jointSize, std::size_t& at) {
    const Block wanted = Block::All(unit);
    std::uint64_t joint;
    __builtin_memcpy(&joint, joint4, sizeof joint);
    for (; at + 2 * kUnits <= size; at += kUnits) {
      Block units = Block::Load(text + at);
      std::uint32_t mask = Equal(units, wanted).Mask();
      std::size_t copied = 0;
      while (mask != 0) {
        const auto bit = static_cast<std::size_t>(__builtin_ctz(mask));
        units.Store(out);
        out += bit - copied;
        __builtin_memcpy(out, &joint, sizeof joint);
        out += jointSize;
        copied = bit + 1;
        units = Block::Load(text + at + copied);
        mask &= mask - 1;
      }
      units.Store(out);
      out += kUnits - copied;
    }
    return out;
  }

  static constexpr BlockScans kScans = {&Count, &Skip, &Pairs, &HanUnits, &Replace};
};

}  // namespace fetchkit::scan
