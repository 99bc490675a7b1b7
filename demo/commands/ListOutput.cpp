#include "demo/commands/ListOutput.h"

#include <fmt/format.h>

#include <string>
#include <vector>

#include "fetchkit/base/Utf8.h"
#include "fetchkit/host/OpenedRecordset.h"

namespace fetchkit::demo {

void ShowConditions(Console& console, const ListType& list) {
  console.BeginTable({"column", "type", "condition", "machine form"});
  for (const ListFieldType& field : list.ListField) {
    if (field.strFilter.empty()) continue;
    console.Row({ToUtf8(field.strListFieldDesc), ToUtf8(field.strFieldType),
                 ToUtf8(field.strFilter), ToUtf8(field.strExtValue)});
  }
  console.EndTable();
}

ListTexts TextsOf(const ListSet& set) {
  return {set.ListFrom(), set.ListWhere(), set.ListPureWhere(), set.GetListSelect()};
}

void ShowTexts(Console& console, const ListTexts& texts) {
  console.BeginTable();
  console.Row({"ListFrom", ToUtf8(texts.from)});
  console.Row({"ListWhere", ToUtf8(texts.where)});
  console.Row({"ListPureWhere", ToUtf8(texts.pureWhere)});
  console.Row({"GetListSelect", ToUtf8(texts.select)});
  console.EndTable();
}

void ShowRows(Console& console, DemoSession& session, const ListType& list, const ListTexts& texts,
              int most) {
  Text where = texts.where;
  if (!where.empty() && !texts.pureWhere.empty()) where.append(u" And ");
  where.append(texts.pureWhere);
  const Text sql =
      Join(u"Select", texts.select, u" From ", texts.from, where.empty() ? u"" : u" Where ", where);
  OpenedRecordset rows(session.connection(), sql, Cursor::Static);
  if (!rows) {
    console.Note("The database refused the query: " + ToUtf8(session.reports().back().error));
    return;
  }
  std::vector<std::string> header;
  std::vector<std::size_t> columns;
  for (const ListFieldType& field : list.ListField) {
    if (!field.blnIsChoosed) continue;
    header.push_back(ToUtf8(field.strListFieldDesc));
    columns.push_back(rows->Column(field.strListFieldDesc));
  }
  console.BeginTable(header);
  int shown = 0;
  for (; !rows->Eof() && shown < most; rows->MoveNext(), ++shown) {
    std::vector<std::string> cells;
    for (const std::size_t column : columns)
      cells.push_back(ToUtf8(ToTextOrEmpty(rows->At(column))));
    console.Row(std::move(cells));
  }
  console.EndTable();
  console.Note(fmt::format("{} of {} rows", shown, rows->RecordCount()));
}

}  // namespace fetchkit::demo
