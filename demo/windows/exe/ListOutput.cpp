#include "demo/windows/exe/ListOutput.h"

#include <fmt/format.h>

#include <stdexcept>
#include <utility>
#include <vector>

#include "demo/windows/exe/Calls.h"
#include "hosts/windows/ConnectionObject.h"

namespace fetchkit::demo {
namespace {

std::string Shown(BSTR text) {
  return ToUtf8(ViewOf(text));
}

struct ListTexts {
  std::string from;
  std::string where;
  std::string conditions;
  std::string select;

  explicit ListTexts(const ComPtr<IListSet>& set)
      : from(TextOf(set, &IListSet::get_ListFrom)),
        where(TextOf(set, &IListSet::get_ListWhere)),
        conditions(TextOf(set, &IListSet::get_ListPureWhere)),
        select(TextOf(set, &IListSet::GetListSelect)) {}

  // The host's own query.
  std::string Query() const {
    std::string both = where;
    if (!where.empty() && !conditions.empty()) both += " And ";
    both += conditions;
    return fmt::format("Select{} From {}{}{}", select, from, both.empty() ? "" : " Where ", both);
  }
};

}  // namespace

ListRecord::ListRecord(const ComPtr<IListSet>& set) {
  Check(set->get_List(&record_));
  if (record_.ListField &&
      FAILED(SafeArrayAccessData(record_.ListField, reinterpret_cast<void**>(&fields_))))
    fields_ = nullptr;
}

ListRecord::~ListRecord() {
  if (fields_) SafeArrayUnaccessData(record_.ListField);
  SafeArrayDestroy(record_.ListField);
  for (const BSTR text :
       {record_.strViewName, record_.strListName, record_.strListFrom, record_.strListWhere,
        record_.strListPureWhere, record_.strCurTable, record_.strPrimaryKey})
    SysFreeString(text);
}

std::string ListRecord::Name() const {
  return Shown(record_.strViewName);
}

const ListFieldType* ListRecord::end() const {
  return fields_ ? fields_ + record_.ListField->rgsabound[0].cElements : nullptr;
}

Query::Query(const LibrarySession& session, const std::string& sql)
    : connection_(hosts::ConnectionObjectOf(session.connection())) {
  VARIANT_BOOL opened = VARIANT_FALSE;
  Check(connection_->OpenStaticRecordset(Bstr(FromUtf8(sql)).get(), object_.InOut(), 3, 1, 1, 0,
                                         &opened));
  if (opened) rows_ = object_.As<ado::Recordset>(ado::Recordset::kId);
}

Query::~Query() {
  rows_ = nullptr;
  if (object_) connection_->CloseRecordset(object_.InOut());
}

bool Query::AtEnd() const {
  VARIANT_BOOL end = VARIANT_TRUE;
  Check(rows_->get_EOF(&end));
  return end != VARIANT_FALSE;
}

ComPtr<ado::Field> Query::Column(BSTR name) const {
  ComPtr<ado::Fields> fields;
  ComPtr<ado::Field> field;
  Check(rows_->get_Fields(fields.Out()));
  const Variant key{Value(ViewOf(name))};
  Check(fields->get_Item(key.get(), field.Out()));
  return field;
}

void OpenView(Console& console, LibrarySession& session, const ComPtr<IListSet>& set, long viewId) {
  console.Heading(fmt::format("View {}", viewId));
  session.Run([&] { Check(set->put_ViewId(viewId)); });
  if (ListRecord(set).Empty())
    throw std::invalid_argument(fmt::format("the account has no view {}; try 101 or 102", viewId));
}

void ShowConditions(Console& console, const ComPtr<IListSet>& set) {
  const ListRecord list(set);
  console.Heading(list.Name() + ": saved conditions");
  console.BeginTable({"column", "type", "condition", "machine form"});
  for (const ListFieldType& field : list) {
    if (ViewOf(field.strFilter).empty()) continue;
    console.Row({Shown(field.strListFieldDesc), Shown(field.strFieldType), Shown(field.strFilter),
                 Shown(field.strExtValue)});
  }
  console.EndTable();
}

void ShowTexts(Console& console, const ComPtr<IListSet>& set) {
  const ListTexts texts(set);
  console.Heading("Texts for the host's query");
  console.BeginTable();
  console.Row({"ListFrom", texts.from});
  console.Row({"ListWhere", texts.where});
  console.Row({"ListPureWhere", texts.conditions});
  console.Row({"GetListSelect", texts.select});
  console.EndTable();
}

void ShowRows(Console& console, const LibrarySession& session, const ComPtr<IListSet>& set,
              int most) {
  const ListRecord list(set);
  console.Heading("Rows");
  const Query rows(session, ListTexts(set).Query());
  if (!rows) {
    console.Note("The database refused the query: " + session.LastRefusal());
    return;
  }
  std::vector<std::string> header;
  std::vector<ComPtr<ado::Field>> columns;
  for (const ListFieldType& field : list) {
    if (!field.blnIsChoosed) continue;
    header.push_back(Shown(field.strListFieldDesc));
    columns.push_back(rows.Column(field.strListFieldDesc));
  }
  console.BeginTable(std::move(header));
  int shown = 0;
  for (; shown < most && !rows.AtEnd(); Check(rows->MoveNext()), ++shown) {
    std::vector<std::string> cells;
    for (const ComPtr<ado::Field>& column : columns) {
      Variant value;
      Check(column->get_Value(value.Out()));
      cells.push_back(ToUtf8(ToTextOrEmpty(ValueOf(value.get()))));
    }
    console.Row(std::move(cells));
  }
  console.EndTable();
  ado::Position count = 0;
  Check(rows->get_RecordCount(&count));
  console.Note(fmt::format("{} of {} rows", shown, count));
}

}  // namespace fetchkit::demo
