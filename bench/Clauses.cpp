#include <absl/strings/str_cat.h>
#include <absl/strings/str_join.h>
#include <absl/strings/str_split.h>
#include <absl/types/span.h>

#include <boost/algorithm/string.hpp>

#include "Pairs.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/utility/SqlClauses.h"

namespace fetchkit::bench {
namespace {

Text Ids(int count) {
  Text ids;
  for (int id = 1; id <= count; ++id) {
    if (id > 1) ids.push_back(u',');
    ids.append(Join(id * 37));
  }
  return ids;
}

// What the two builders write, made of splitting and joining in UTF-8; the own side is compared in
// UTF-8 once, before the timing.
std::string DecomposedPeer(const std::string& list, bool quoted) {
  const std::vector<absl::string_view> items = absl::StrSplit(list, ',');
  std::string sql = "(";
  std::size_t from = 0;
  while (from < items.size()) {
    // The first of several groups holds one item less than the others.
    const std::size_t size = items.size() > 1000 ? (from == 0 ? 999 : 1000) : items.size();
    const std::size_t to = std::min(items.size(), from + size);
    const absl::Span<const absl::string_view> group(items.data() + from, to - from);
    absl::StrAppend(&sql, from > 0 ? "OR " : "", "lngX In(", quoted ? "'" : "",
                    absl::StrJoin(group, quoted ? "','" : ","), quoted ? "'" : "", ") ");
    from = to;
  }
  return sql + ")";
}

std::string SplitPeer(const std::string& list) {
  const std::vector<absl::string_view> items = absl::StrSplit(list, ',');
  if (items.size() < 1000) return absl::StrCat("lngX IN (", list, ")");
  std::string sql;
  for (std::size_t from = 0; from < items.size(); from += 800) {
    const std::size_t to = std::min(items.size(), from + 800);
    const absl::Span<const absl::string_view> group(items.data() + from, to - from);
    absl::StrAppend(&sql, from > 0 ? " Or " : "", "lngX IN (", absl::StrJoin(group, ","), ")");
  }
  return sql;
}

// A UTF-16 text that compares with a UTF-8 one, so that neither side is timed with a conversion.
struct Either {
  Text wide;
  std::string narrow;
  friend bool operator==(const Either& a, const Either& b) {
    return ToUtf8(a.wide) + a.narrow == ToUtf8(b.wide) + b.narrow;
  }
};

void RegisterFor(int count) {
  const Text ids = Ids(count);
  const std::string narrow = ToUtf8(ids);
  const std::string size = std::to_string(count) + " items";
  for (const bool quoted : {false, true})
    Pair(
        std::string("DecomposeInClause, ") + (quoted ? "quoted, " : "plain, ") + size,
        "Abseil split and join",
        [=] {
          return Either{SqlClauses::DecomposeInClause(u"lngX", ids, quoted, u""), {}};
        },
        [=] {
          return Either{{}, DecomposedPeer(narrow, quoted)};
        });
  Pair(
      "SplitInClause, " + size, "Abseil split and join",
      [=] {
        return Either{SqlClauses::SplitInClause(ids, u",", u"lngX"), {}};
      },
      [=] {
        return Either{{}, SplitPeer(narrow)};
      });
}

}  // namespace

void RegisterClauses() {
  for (const int count : {10, 1000, 10000, 100000})
    RegisterFor(count);

  const Text format = u"SELECT {0} FROM {1} WHERE {2} AND {3} ORDER BY {0}";
  const std::vector<Text> values = {u"lngID", u"Voucher", u"blnPosted=1", u"strDate>='2004-01-01'"};
  Pair(
      "FormatString, 4 values", "Boost replace_all",
      [=] { return SqlClauses::FormatString(format, values); },
      [=] {
        Text text = format;
        for (std::size_t i = 0; i < values.size(); ++i)
          boost::replace_all(text, Join(u"{", i, u"}"), values[i]);
        return text;
      });
}

}  // namespace fetchkit::bench
