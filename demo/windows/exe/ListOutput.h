// What the subcommands show of a list, read through the library's interfaces.
#pragma once

#include <string>

#include "component/com/ComPtr.h"
#include "component/host/Ado.h"
#include "demo/console/Console.h"
#include "demo/windows/exe/LibrarySession.h"
#include "idl/FetchKit.h"
#include "idl/FetchKitHost.h"

namespace fetchkit::demo {

// A copy of the list record. The record is cleared member by member, because not every system's
// own clearing copes with the array of records in it.
class ListRecord {
 public:
  explicit ListRecord(const ComPtr<IListSet>& set);
  ~ListRecord();
  ListRecord(const ListRecord&) = delete;
  ListRecord& operator=(const ListRecord&) = delete;

  std::string Name() const;
  bool Empty() const { return begin() == end(); }
  const ListFieldType* begin() const { return fields_; }
  const ListFieldType* end() const;

 private:
  ListType record_{};
  ListFieldType* fields_ = nullptr;
};

// Sets the view. std::invalid_argument when the account has none of that number.
void OpenView(Console& console, LibrarySession& session, const ComPtr<IListSet>& set, long viewId);

// The columns that have a condition, in both its forms.
void ShowConditions(Console& console, const ComPtr<IListSet>& set);

// The four texts of which a host makes its query.
void ShowTexts(Console& console, const ComPtr<IListSet>& set);

// The rows of that query, at most so many.
void ShowRows(Console& console, const LibrarySession& session, const ComPtr<IListSet>& set,
              int most);

// A query of the host's own, as any host on ADO would run and read it.
class Query {
 public:
  Query(const LibrarySession& session, const std::string& sql);
  ~Query();
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;

  explicit operator bool() const { return static_cast<bool>(rows_); }
  ado::Recordset* operator->() const { return rows_.get(); }
  IDispatch* object() const { return object_.get(); }

  bool AtEnd() const;
  ComPtr<ado::Field> Column(BSTR name) const;

 private:
  ComPtr<ISessionConnection> connection_;
  ComPtr<IDispatch> object_;
  ComPtr<ado::Recordset> rows_;
};

}  // namespace fetchkit::demo
