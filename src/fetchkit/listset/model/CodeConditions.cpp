#include "fetchkit/listset/model/CodeConditions.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "fetchkit/base/Numbers.h"
#include "fetchkit/base/TextSearch.h"

namespace fetchkit {
namespace {

struct FixedWord {
  TextView word;
  TextView sql;  // behind the table's name
};

constexpr FixedWord kAccountWords[] = {
    {u"一级科目", u".intLevel=1"},       {u"现金", u".lngAccountNatureID=1"},
    {u"银行", u".lngAccountNatureID=2"}, {u"应收", u".lngAccountNatureID=3"},
    {u"应付", u".lngAccountNatureID=4"}, {u"存货", u".lngAccountNatureID=5"},
    {u"其它", u".lngAccountNatureID=0"},
};

constexpr FixedWord kCustomerWords[] = {{u"客户", u".strCategory='2'"},
                                        {u"供应商", u".strCategory='1'"},
                                        {u"供销", u".strCategory='3'"}};
constexpr TextView kOtherCustomers = u".strCategory='0'";

constexpr FixedWord kCheckFlags[] = {
    {u"单位", u".blnIsCustomer=1 "},
    {u"部门", u".blnIsDepartment=1 "},
    {u"职员", u".blnIsEmployee=1 "},
    {u"统计", u".blnIsClass1=1 "},
    {u"项目", u".blnIsClass2=1 "},
    {u"功能分类科目", u".blnIsFunctional=1 "},
    {u"政府经济分类科目", u".blnIsGovernmentECO=1 "},
    {u"部门经济分类科目", u".blnIsDepartmentECO=1 "},
    {u"智能核算", u".blnUseFlexibleCheck=1 "},
};
constexpr TextView kNever = u" 1>2 ";

template <class Words>
const FixedWord* FindWord(const Words& words, TextView word) {
  const auto found = std::find_if(std::begin(words), std::end(words),
                                  [&](const FixedWord& row) { return row.word == word; });
  return found == std::end(words) ? nullptr : &*found;
}

TextView WithoutQuotes(TextView item) {
  item = TrimBlanks(item);
  if (item.size() >= 2 && item.front() == u'\'' && item.back() == u'\'')
    item = item.substr(1, item.size() - 2);
  return item;
}

bool AreNumbers(TextView ids) {
  const auto items = Split(ids, u",");
  return std::all_of(items.begin(), items.end(), [](TextView id) { return IsNumericText(id); });
}

// Nothing unless every item is one of the words.
std::optional<Text> AccountCondition(TextView table, TextView ids) {
  Text sql;
  for (const TextView item : Split(ids, u",")) {
    const FixedWord* row = FindWord(kAccountWords, WithoutQuotes(item));
    if (row == nullptr) return std::nullopt;
    if (!sql.empty()) sql.append(u" Or ");
    sql.append(table).append(row->sql);
  }
  return sql;
}

Text AssetCondition(TextView table, TextView keyStem, const std::vector<TextView>& ids) {
  const auto parts = [](TextView id) {
    const std::size_t at = id.find(u'-');
    if (at == TextView::npos) return std::pair(id, TextView());
    return std::pair(id.substr(0, at), id.substr(at + 1));
  };
  if (ids.size() == 1) {
    const auto [type, kind] = parts(ids.front());
    return Join(table, u".lng", keyStem, u"ID = ", type, u" And ", table, u".lngAssetKindID=",
                kind);
  }
  Text sql;
  for (const TextView id : ids) {
    const auto [type, kind] = parts(id);
    if (!sql.empty()) sql.append(u" Or ");
    sql.append(Join(u"(", table, u".lng", keyStem, u"ID =", type, u" And ", table,
                    u".lngAssetKindID =", kind, u")"));
  }
  return sql;
}

}  // namespace

Text CodeCondition(TextView table, TextView keyStem, TextView ids, TextView keyword) {
  if (ids.empty()) return {};
  const std::size_t highest = CountUnit(ids, u',');
  if (highest <= kLongestIdIndex) {
    if (EqualFolded(keyword, u"AssetType")) return AssetCondition(table, keyStem, Split(ids, u","));
    return Join(table, u".lng", keyStem, u"ID IN (", ids, u")");
  }
  // By the highest index, not by the count: where that leaves one id over, the last chunk takes it.
  const std::size_t chunks = highest / kIdChunk + (highest % kIdChunk != 0 ? 1 : 0);
  const Text open = Join(table, u".lng", keyStem, u"ID IN (");
  Text sql;
  sql.reserve(ids.size() + chunks * (open.size() + 5));
  std::size_t from = 0;
  for (std::size_t chunk = 1; chunk <= chunks; ++chunk) {
    std::size_t to = ids.size();
    if (chunk < chunks) {
      to = from;
      for (std::size_t id = 0; id < kIdChunk; ++id)
        to = FindText(ids, u",", to) + 1;
      --to;
    }
    if (chunk > 1) sql.append(u" or ");
    sql.append(open).append(ids.substr(from, to - from)).push_back(u')');
    from = to + 1;
  }
  return sql;
}

std::optional<Text> FixedCodeCondition(TextView table, TextView column, TextView keyword,
                                       TextView ids, std::int32_t naturalCurrencyId) {
  if (ids.empty()) return std::nullopt;
  const TextView word = WithoutQuotes(ids);
  if (EqualFolded(keyword, u"OPERATOR") && word == u"空值")
    return Join(table, u".lngOperatorID IS NULL");
  if (EqualFolded(keyword, u"CURRENCYS")) {
    if (word == u"本位币") return Join(table, u".lngCurrencyID IN(", naturalCurrencyId, u")");
    if (AreNumbers(ids)) return Join(table, u".lngCurrencyID IN(", ids, u")");
    Text codes;
    for (const TextView code : Split(ids, u",")) {
      if (!codes.empty()) codes.append(u"','");
      codes.append(WithoutQuotes(code));
    }
    return Join(column, u" in ('", codes, u"')");
  }
  if (AreNumbers(ids)) return std::nullopt;
  if (EqualFolded(keyword, u"ACCOUNT")) return AccountCondition(table, ids);
  if (EqualFolded(keyword, u"CUSTOMER")) {
    const FixedWord* row = FindWord(kCustomerWords, word);
    return Join(table, row != nullptr ? row->sql : kOtherCustomers);
  }
  return std::nullopt;
}

Text CheckFlagCondition(TextView table, TextView values) {
  Text sql;
  for (const TextView value : Split(values, u",")) {
    if (!sql.empty()) sql.append(u" Or ");
    if (const FixedWord* row = FindWord(kCheckFlags, WithoutQuotes(value))) {
      sql.append(table).append(row->sql);
    } else {
      sql.append(kNever);
    }
  }
  return sql;
}

Text Bracketed(Text sql) {
  // Most hold none at all.
  if (FindText(sql, u" Or ") == Text::npos && FindText(sql, u" or ") == Text::npos) return sql;
  int depth = 0;
  bool quoted = false;
  for (std::size_t at = 0; at < sql.size(); ++at) {
    const char16_t unit = sql[at];
    if (unit == u'\'') quoted = !quoted;
    if (quoted) continue;
    if (unit == u'(') ++depth;
    if (unit == u')') --depth;
    if (unit != u' ' || depth != 0) continue;
    const TextView here = TextView(sql).substr(at, 4);
    if (here == u" Or " || here == u" or ") return Join(u"(", sql, u")");
  }
  return sql;
}

}  // namespace fetchkit
