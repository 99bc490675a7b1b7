#include <fmt/format.h>

#include <stdexcept>
#include <utility>
#include <vector>

#include "component/host/Ado.h"
#include "demo/windows/com/ConnectionObject.h"
#include "demo/windows/exe/Calls.h"
#include "demo/windows/exe/LibrarySession.h"
#include "demo/windows/exe/WindowsCommands.h"

namespace fetchkit::demo {
namespace {

// A copy of the list record. The record is cleared member by member, because not every system's
// own clearing copes with the array of records in it.
class ListRecord {
 public:
  explicit ListRecord(const ComPtr<IListSet>& set) {
    Check(set->get_List(&record_));
    if (record_.ListField &&
        FAILED(SafeArrayAccessData(record_.ListField, reinterpret_cast<void**>(&fields_))))
      fields_ = nullptr;
  }
  ~ListRecord() {
    if (fields_) SafeArrayUnaccessData(record_.ListField);
    SafeArrayDestroy(record_.ListField);
    for (const BSTR text :
         {record_.strViewName, record_.strListName, record_.strListFrom, record_.strListWhere,
          record_.strListPureWhere, record_.strCurTable, record_.strPrimaryKey})
      SysFreeString(text);
  }
  ListRecord(const ListRecord&) = delete;
  ListRecord& operator=(const ListRecord&) = delete;

  std::string Name() const { return ToUtf8(ViewOf(record_.strViewName)); }
  bool Empty() const { return begin() == end(); }
  const ListFieldType* begin() const { return fields_; }
  const ListFieldType* end() const {
    return fields_ ? fields_ + record_.ListField->rgsabound[0].cElements : nullptr;
  }

 private:
  ListType record_{};
  ListFieldType* fields_ = nullptr;
};

std::string Shown(BSTR text) {
  return ToUtf8(ViewOf(text));
}

void ShowConditions(Console& console, const ListRecord& list) {
  console.Heading(list.Name() + ": saved conditions");
  console.BeginTable({"column", "type", "condition", "machine form"});
  for (const ListFieldType& field : list) {
    if (ViewOf(field.strFilter).empty()) continue;
    console.Row({Shown(field.strListFieldDesc), Shown(field.strFieldType), Shown(field.strFilter),
                 Shown(field.strExtValue)});
  }
  console.EndTable();
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

void ShowTexts(Console& console, const ListTexts& texts) {
  console.Heading("Texts for the host's query");
  console.BeginTable();
  console.Row({"ListFrom", texts.from});
  console.Row({"ListWhere", texts.where});
  console.Row({"ListPureWhere", texts.conditions});
  console.Row({"GetListSelect", texts.select});
  console.EndTable();
}

// A query of the host's own, as any host on ADO would run and read it.
class Query {
 public:
  Query(const LibrarySession& session, const std::string& sql)
      : connection_(ComPtr<ISessionConnection>::Attach(ConnectionObjectOf(session.connection()))) {
    VARIANT_BOOL opened = VARIANT_FALSE;
    Check(connection_->OpenStaticRecordset(Bstr(FromUtf8(sql)).get(), object_.InOut(), 3, 1, 1, 0,
                                           &opened));
    if (opened) rows_ = object_.As<ado::Recordset>(ado::Recordset::kId);
  }
  ~Query() {
    rows_ = nullptr;
    if (object_) connection_->CloseRecordset(object_.InOut());
  }
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;

  explicit operator bool() const { return static_cast<bool>(rows_); }
  ado::Recordset* operator->() const { return rows_.get(); }

  bool AtEnd() const {
    VARIANT_BOOL end = VARIANT_TRUE;
    Check(rows_->get_EOF(&end));
    return end != VARIANT_FALSE;
  }
  ComPtr<ado::Field> Column(BSTR name) const {
    ComPtr<ado::Fields> fields;
    ComPtr<ado::Field> field;
    Check(rows_->get_Fields(fields.Out()));
    const Variant key{Value(ViewOf(name))};
    Check(fields->get_Item(key.get(), field.Out()));
    return field;
  }

 private:
  ComPtr<ISessionConnection> connection_;
  ComPtr<IDispatch> object_;
  ComPtr<ado::Recordset> rows_;
};

void ShowRows(Console& console, const LibrarySession& session, const ListRecord& list,
              const ListTexts& texts, int most) {
  console.Heading("Rows");
  const Query rows(session, texts.Query());
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

}  // namespace

int ShowList(Console& console, const CommonOptions& options, const ListOptions& list) {
  LibrarySession session(console, options.trace);
  session.LogIn(options.login);
  const ComPtr<IListSet> set = ObjectOf(session.entry(), &IInterface::get_ListSet);

  console.Heading(fmt::format("View {}", list.viewId));
  session.Run([&] { Check(set->put_ViewId(list.viewId)); });
  const ListRecord record(set);
  if (record.Empty())
    throw std::invalid_argument(
        fmt::format("the account has no view {}; try 101 or 102", list.viewId));
  const ListTexts texts(set);
  ShowConditions(console, record);
  ShowTexts(console, texts);
  ShowRows(console, session, record, texts, list.rows);
  return 0;
}

}  // namespace fetchkit::demo
