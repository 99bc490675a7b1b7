#include <unicode/regex.h>

#include <memory>

#include "MadeLists.h"
#include "Pairs.h"
#include "fetchkit/listset/ListQuery.h"
#include "fetchkit/listset/ListSet.h"
#include "fetchkit/session/model/Session.h"
#include "fetchkit/utility/ListSearch.h"

namespace fetchkit::bench {
namespace {

const std::vector<Text> kFieldColumns = {
    u"lngViewFieldID",  u"strViewFieldDesc", u"strFieldType",   u"lngListFieldID",
    u"strBiaTableName", u"lngListFieldNO1",  u"lngViewFieldNO", u"bytHead",
    u"bytFieldSize",    u"blnIsMust",        u"blnIsPrep",      u"strKeyField",
    u"bytPrepOrder",    u"strTableName",     u"strFieldName",   u"bytFieldDec",
    u"blnIsFilter",     u"blnIsChoose",      u"blnIsFixed",     u"blnIsFind",
    u"blnIsNotList",    u"blnIsFilt",        u"bytFormat",      u"blnNotZero",
    u"blnIsChoosed1",   u"lngdisplaywidth",  u"bytSort1",       u"Strpath",
    u"Strstringop",     u"Strstring1",       u"Strstring2",     u"Strdateop",
    u"Dtmdate1",        u"Dtmdate2",         u"Strdoubleop",    u"Dbldouble1",
    u"Dbldouble2",      u"Blnismulicond",    u"Blnboolean",     u"Strcodeid",
    u"Strkeyname"};

// Ten rows a field, as for a condition of ten codes, every field with a number condition.
Value FieldCell(std::size_t row, std::size_t column) {
  const auto field = static_cast<std::int32_t>(row / 10) + 1;
  switch (column) {
    case 0:
      return field;
    case 1:
      return Join(u"字段", field);
    case 2:
      return u"DOUBLE";
    case 14:
      return Join(u"V.dblField", field);
    case 27:
      return Join(u"字段", field);
    case 34:
      return u"2";
    case 35:
      return 100.0;
    default:
      return NullValue();
  }
}

std::size_t LoadFields(std::size_t fields) {
  MAction::CurrentSession().Connection =
      std::make_shared<MadeConnection>([fields](TextView sql) -> RecordsetPtr {
        if (!sql.starts_with(u"select nvl")) return nullptr;
        return std::make_shared<MadeRows>(kFieldColumns, fields * 10, FieldCell);
      });
  ListSet set;
  set.RefreshListField();
  return set.List().ListField.size();
}

// The least that a reader of these rows must do: take each cell of a field's first row once.
std::size_t ReadCells(std::size_t fields) {
  MadeRows rows(kFieldColumns, fields * 10, FieldCell);
  std::vector<std::vector<Value>> all;
  for (std::size_t row = 0; !rows.Eof(); rows.MoveNext(), ++row) {
    if (row % 10 != 0) {
      rows.At(0);
      continue;
    }
    auto& cells = all.emplace_back();
    for (std::size_t column = 0; column < kFieldColumns.size(); ++column)
      cells.push_back(rows.At(column));
  }
  return all.size();
}

Text ReplaceWithIcu(const Text& text, const char16_t* pattern, const char16_t* replacement) {
  UErrorCode error = U_ZERO_ERROR;
  const icu::UnicodeString input(text.data(), static_cast<std::int32_t>(text.size()));
  icu::RegexMatcher matcher(icu::UnicodeString(pattern), input, UREGEX_CASE_INSENSITIVE, error);
  const icu::UnicodeString replaced = matcher.replaceAll(icu::UnicodeString(replacement), error);
  return Text(replaced.getBuffer(), static_cast<std::size_t>(replaced.length()));
}

Text CodeOf(std::size_t row) {
  return Join(row % 200, u"-", row % 17, u"-", row);
}

Text ManyCodes() {
  Text codes;
  for (int code = 0; code < 100; ++code)
    codes.append(Join(code, u" "));
  return codes;
}

Text IdsByPrefixTests(std::size_t rows) {
  const Text many = ManyCodes();
  std::vector<Text> prefixes;
  for (const TextView code : Split(TrimBlanks(many), u" "))
    prefixes.push_back(Join(code, u"-"));
  Text ids;
  for (std::size_t row = 0; row < rows; ++row) {
    const Text code = CodeOf(row);
    for (const Text& prefix : prefixes) {
      if (!code.starts_with(prefix)) continue;
      if (!ids.empty()) ids.push_back(u',');
      ids.append(Join(row));
    }
  }
  return ids;
}

std::size_t CountFound(const std::vector<Text>& list, TextView typed) {
  ListSearch search;
  search.SearchFor(typed);
  std::size_t found = 0;
  for (const Text& text : list)
    found += search.Matches(text) ? 1 : 0;
  return found;
}

}  // namespace

void RegisterLists() {
  for (const std::size_t fields : {50, 500, 5000})
    Pair(
        "RefreshListField, " + std::to_string(fields) + " fields", "reading each cell once",
        [fields] { return LoadFields(fields); }, [fields] { return ReadCells(fields); });

  Text sql = u"Select ";
  while (sql.size() < 100000)
    sql.append(u"Voucher.dblDebit, voucher.dblCredit, Other.lngID, ");
  sql.append(u"1 From Voucher Where 1=1");
  Pair(
      "ModifyTableName, 100,000 characters", "ICU regular expression",
      [sql] { return MListSet::ModifyTableName(sql, u"VOUCHER ", u"Voucher2004 "); },
      [sql] {
        return ReplaceWithIcu(ReplaceWithIcu(sql, u"VOUCHER ", u"Voucher2004 "), u"VOUCHER\\.",
                              u"Voucher2004.");
      });

  for (const std::size_t rows : {10000, 100000})
    Pair(
        "FindAllKeyID, 100 codes, " + std::to_string(rows) + " rows", "prefix tests one by one",
        [rows] {
          Session& session = MAction::CurrentSession();
          session.Connection = std::make_shared<MadeConnection>([rows](TextView) {
            return std::make_shared<MadeRows>(
                std::vector<Text>{u"a1", u"b1"}, rows, [](std::size_t row, std::size_t column) {
                  return column == 0 ? Value(CodeOf(row)) : Value(static_cast<std::int32_t>(row));
                });
          });
          return MListSet::FindAllKeyID(session, u"DEPARTMENT", ManyCodes());
        },
        [rows] { return IdsByPrefixTests(rows); });

  const auto list = std::make_shared<std::vector<Text>>(CodesAndNames(100000));
  const auto initials = std::make_shared<std::vector<Text>>(InitialsByIcu(*list));
  Pair(
      "ListSearch, \"kjly\" in 100,000 entries", "std find in both, initials made beforehand",
      [list] { return CountFound(*list, u"kjly"); },
      [list, initials] {
        std::size_t found = 0;
        for (std::size_t i = 0; i < list->size(); ++i)
          found +=
              (*list)[i].find(u"kjly") != Text::npos || (*initials)[i].find(u"kjly") != Text::npos
                  ? 1
                  : 0;
        return found;
      });
}

}  // namespace fetchkit::bench
