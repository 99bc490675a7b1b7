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

void ShowTexts(Console& console, const ListSet& set) {
  console.BeginTable();
  console.Row({"ListFrom", ToUtf8(set.ListFrom())});
  console.Row({"ListWhere", ToUtf8(set.ListWhere())});
  console.Row({"ListPureWhere", ToUtf8(set.ListPureWhere())});
  console.Row({"GetListSelect", ToUtf8(set.GetListSelect())});
  console.EndTable();
}

void ShowRows(Console& console, DemoSession& session, const ListSet& set, int most) {
  Text where = set.ListWhere();
  if (!where.empty() && !set.ListPureWhere().empty()) where.append(u" And ");
  where.append(set.ListPureWhere());
  const Text sql = Join(u"Select", set.GetListSelect(), u" From ", set.ListFrom(),
                        where.empty() ? u"" : u" Where ", where);
  OpenedRecordset rows(session.connection(), sql, Cursor::Static);
  if (!rows) {
    console.Note("The database refused the query: " + ToUtf8(session.reports().back().error));
    return;
  }
  const ListType list = set.List();
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
