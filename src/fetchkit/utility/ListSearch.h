// Searching the texts of a list for what a user types, by the Pinyin initials of their characters
// as well.
#pragma once

#include <cstdint>
#include <vector>

#include "fetchkit/base/Text.h"

namespace fetchkit {

// How a text is found, the better the greater.
enum class SearchRank { None, Inside, Begins };

// What was typed, made ready once to be looked for in many texts; a look allocates nothing.
//
// A text is found where it contains what was typed, without regard to the case of ASCII letters and
// to full or half width; a letter also stands for a character that has it as the initial of one of
// its readings. So "银行存款" is found by "存款", "yhck", "hck" and "银行ck", "会计" by "kj" and
// "hj", "A类客户" by "alkh". Blanks and punctuation marks may be left out beside a character that
// is found by its initial: "工商银行（北京）" is found by "gsyhbj", but "100 2" is not by "1002".
// Characters that code page 936 lacks have no initial; without that code page none has.
//
// Kept by the form that searches: the initials are read from the installed platform at the first
// letter that is searched for and then stay with the object. Not to be shared by threads.
class ListSearch {
 public:
  // Looks for this from now on, without the blanks around it. Nothing typed is found in every text,
  // at its beginning.
  void SearchFor(TextView typed);

  bool NothingTyped() const { return typed_.empty(); }

  // Whether the text is found, and whether at its beginning: Rank in two words.
  bool Matches(TextView text) const { return Rank(text) != SearchRank::None; }
  bool Begins(TextView text) const;
  SearchRank Rank(TextView text) const;

  // The entry to go to of count ones, from 0: the first that begins with what was typed, else the
  // first that is found, -1 for none. rankOf(entry) is its Rank, of several texts the greatest.
  template <class RankOf>
  static int FirstFound(int count, RankOf rankOf) {
    int inside = -1;
    for (int entry = 0; entry < count; ++entry) {
      const SearchRank rank = rankOf(entry);
      if (rank == SearchRank::Begins) return entry;
      if (rank == SearchRank::Inside && inside < 0) inside = entry;
    }
    return inside;
  }

 private:
  bool IsInitialOf(char16_t sought, char16_t unit) const;
  bool FoundAt(TextView text, std::size_t at) const;

  Text typed_;
  // By unit from the first one with a reading on; bit n is the initial 'A' + n. Empty until a
  // letter is searched for.
  std::vector<std::uint32_t> initials_;
};

}  // namespace fetchkit
