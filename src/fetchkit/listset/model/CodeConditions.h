// Conditions on code tables, as SQL.
#pragma once

#include <cstdint>
#include <optional>

#include "fetchkit/base/Text.h"

namespace fetchkit {

// An IN list longer than this many items (counted as its highest index) is cut into chunks; the
// database takes no more than 1000 in one list.
inline constexpr std::size_t kLongestIdIndex = 1000;
inline constexpr std::size_t kIdChunk = 800;

// The condition that the table's key is among the comma-separated ids; empty for no ids. Ids of
// the keyword "AssetType" are pairs of type and kind joined by "-". A text of more than one chunk
// or pair holds a bare " or ": see Bracketed.
Text CodeCondition(TextView table, TextView keyStem, TextView ids, TextView keyword);

// The condition that a fixed word stands for in a stored choice ("现金" of the accounts, "客户" of
// the customers, a currency code, ...); nothing when the ids are plain ids. Several words of the
// accounts are joined by a bare " Or ". naturalCurrencyId is what "本位币" means.
std::optional<Text> FixedCodeCondition(TextView table, TextView column, TextView keyword,
                                       TextView ids, std::int32_t naturalCurrencyId);

// The flags of the code table for the values of the enumeration "辅助核算", joined by " Or ";
// always false for a value that no flag covers. values: comma-separated, quoted or not.
Text CheckFlagCondition(TextView table, TextView values);

// In brackets when the text holds an " Or " or " or " that stands outside brackets and quotes, so
// that it can be joined with " And ".
Text Bracketed(Text sql);

}  // namespace fetchkit
