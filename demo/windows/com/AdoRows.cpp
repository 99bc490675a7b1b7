#include "demo/windows/com/AdoRows.h"

#include <utility>
#include <variant>

#include "demo/windows/com/LateBound.h"
#include "fetchkit/base/Error.h"

namespace fetchkit::demo {
namespace {

// Asks one of this file's recordsets for itself; nobody else has the identifier.
constexpr IID kOwnRecordset = {
    0x8E6E64B1, 0x4D0F, 0x4B53, {0xA1, 0x2C, 0x7D, 0x0A, 0x52, 0x3B, 0x90, 0x6F}};

struct FieldsOfRows {
  std::shared_ptr<MemoryRecordset> rows;
};

struct FieldOfRows {
  std::shared_ptr<MemoryRecordset> rows;
  std::size_t column;
};

// ADO's numbers of the column types that there are: a text of any length where nothing is known.
int TypeNumber(const Value& example) {
  constexpr int kInteger = 3;
  constexpr int kDouble = 5;
  constexpr int kVarWChar = 202;
  if (std::holds_alternative<std::int32_t>(example.data())) return kInteger;
  return std::holds_alternative<double>(example.data()) ? kDouble : kVarWChar;
}

template <class I>
HRESULT ObjectInto(VARIANT& result, HRESULT called, I* object) {
  if (FAILED(called)) return called;
  result.vt = VT_DISPATCH;
  result.pdispVal = object;
  return called;
}

constexpr std::array<LateMember<ado::Field>, 3> kFieldMembers = {{
    {u"Value", [](ado::Field& field, const LateArguments&,
                  VARIANT& result) { return field.get_Value(&result); }},
    {u"Name",
     [](ado::Field& field, const LateArguments&, VARIANT& result) {
       result.vt = VT_BSTR;
       result.bstrVal = nullptr;
       return field.get_Name(&result.bstrVal);
     }},
    {u"Type",
     [](ado::Field& field, const LateArguments&, VARIANT& result) {
       result.vt = VT_I4;
       return field.get_Type(&result.intVal);
     }},
}};

class FieldObject : public LateBound<ado::Field, ado::Field::kId, FieldOfRows, kFieldMembers> {
 public:
  using Dual = ado::Field;
  using LateBound::LateBound;

  STDMETHODIMP get_Name(BSTR* name) noexcept override {
    return Answer(name, [&] { return core().rows->ColumnNames()[core().column]; });
  }
  STDMETHODIMP get_Type(int* type) noexcept override {
    if (!type) return E_POINTER;
    return Run([&] { *type = TypeNumber(core().rows->Example(core().column)); });
  }
  STDMETHODIMP get_Value(VARIANT* value) noexcept override {
    return Answer(value, [&] { return core().rows->At(core().column); });
  }
  STDMETHODIMP put_Value(VARIANT) noexcept override {
    return Run([] { throw Error(ErrorKind::Host, u"The recordset is read-only."); });
  }
};

HRESULT ItemInto(ado::Fields& fields, const VARIANT& nameOrIndex, VARIANT& result) {
  ado::Field* field = nullptr;
  const HRESULT called = fields.get_Item(nameOrIndex, &field);
  return ObjectInto(result, called, field);
}

constexpr std::array<LateMember<ado::Fields>, 2> kFieldsMembers = {{
    {u"Item",
     [](ado::Fields& fields, const LateArguments& arguments, VARIANT& result) {
       if (arguments.count() != 1) return DISP_E_BADPARAMCOUNT;
       return ItemInto(fields, arguments[0], result);
     },
     1},
    {u"Count",
     [](ado::Fields& fields, const LateArguments&, VARIANT& result) {
       result.vt = VT_I4;
       return fields.get_Count(&result.lVal);
     }},
}};

class FieldsObject : public LateBound<ado::Fields, ado::Fields::kId, FieldsOfRows, kFieldsMembers> {
 public:
  using Dual = ado::Fields;
  using LateBound::LateBound;

  STDMETHODIMP get_Count(long* count) noexcept override {
    return Answer(count,
                  [&] { return static_cast<std::int32_t>(core().rows->ColumnNames().size()); });
  }
  STDMETHODIMP get_Item(VARIANT nameOrIndex, ado::Field** field) noexcept override {
    return Answer(field, [&] {
      MemoryRecordset& rows = *core().rows;
      const Value key = ValueOf(nameOrIndex);
      std::size_t column = 0;
      if (const auto* name = std::get_if<Text>(&key.data())) {
        column = rows.Column(*name);
      } else {
        const std::int32_t index = ToLong(key);
        if (index < 0 || static_cast<std::size_t>(index) >= rows.ColumnNames().size())
          throw Error(ErrorKind::Host, Join(u"The recordset has no column ", index, u"."));
        column = static_cast<std::size_t>(index);
      }
      return ShellOf<FieldObject>(std::make_shared<FieldOfRows>(FieldOfRows{core().rows, column}));
    });
  }
};

template <HRESULT (STDMETHODCALLTYPE ado::Recordset::*move)()>
HRESULT Move(ado::Recordset& rows, const LateArguments&, VARIANT&) {
  return (rows.*move)();
}

constexpr std::array<LateMember<ado::Recordset>, 9> kRecordsetMembers = {{
    {u"Fields",
     [](ado::Recordset& rows, const LateArguments& arguments, VARIANT& result) {
       ComPtr<ado::Fields> fields;
       const HRESULT called = rows.get_Fields(fields.Out());
       if (FAILED(called)) return called;
       if (arguments.count() == 1) return ItemInto(*fields.get(), arguments[0], result);
       return ObjectInto(result, called, fields.Detach());
     },
     1},
    {u"BOF",
     [](ado::Recordset& rows, const LateArguments&, VARIANT& result) {
       result.vt = VT_BOOL;
       return rows.get_BOF(&result.boolVal);
     }},
    {u"EOF",
     [](ado::Recordset& rows, const LateArguments&, VARIANT& result) {
       result.vt = VT_BOOL;
       return rows.get_EOF(&result.boolVal);
     }},
    {u"RecordCount",
     [](ado::Recordset& rows, const LateArguments&, VARIANT& result) {
       ado::Position count = 0;
       const HRESULT called = rows.get_RecordCount(&count);
       result.vt = VT_I4;
       result.lVal = static_cast<LONG>(count);
       return called;
     }},
    {u"MoveFirst", Move<&ado::Recordset::MoveFirst>},
    {u"MoveLast", Move<&ado::Recordset::MoveLast>},
    {u"MoveNext", Move<&ado::Recordset::MoveNext>},
    {u"MovePrevious", Move<&ado::Recordset::MovePrevious>},
    {u"Close", Move<&ado::Recordset::Close>},
}};

class RecordsetObject
    : public LateBound<ado::Recordset, ado::Recordset::kId, MemoryRecordset, kRecordsetMembers> {
 public:
  using Dual = ado::Recordset;

  explicit RecordsetObject(std::shared_ptr<MemoryRecordset> rows)
      : LateBound(rows), rows_(std::move(rows)) {}

  const std::shared_ptr<MemoryRecordset>& rows() const { return rows_; }

  STDMETHODIMP QueryInterface(REFIID asked, void** object) noexcept override {
    if (object && asked == kOwnRecordset) {
      AddRef();
      *object = this;
      return S_OK;
    }
    return LateBound::QueryInterface(
        asked == ado::Recordset::kNewerId ? ado::Recordset::kId : asked, object);
  }

  STDMETHODIMP get_BOF(VARIANT_BOOL* bof) noexcept override {
    return Answer(bof, [&] { return core().Bof(); });
  }
  STDMETHODIMP get_EOF(VARIANT_BOOL* eof) noexcept override {
    return Answer(eof, [&] { return core().Eof(); });
  }
  STDMETHODIMP get_Fields(ado::Fields** fields) noexcept override {
    return Answer(fields, [&] {
      core().ColumnNames();  // fails once it is closed
      return ShellOf<FieldsObject>(std::make_shared<FieldsOfRows>(FieldsOfRows{rows_}));
    });
  }
  STDMETHODIMP get_RecordCount(ado::Position* count) noexcept override {
    if (!count) return E_POINTER;
    return Run([&] { *count = core().RecordCount(); });
  }
  // Frees the rows. The connection counts the recordset as open until it is given back to it.
  STDMETHODIMP Close() noexcept override {
    return Run([&] {
      if (!core().Close()) throw Error(ErrorKind::Host, u"The recordset is closed.");
    });
  }
  STDMETHODIMP MoveNext() noexcept override {
    return Run([&] { core().MoveNext(); });
  }
  STDMETHODIMP MovePrevious() noexcept override {
    return Run([&] { core().MovePrevious(); });
  }
  STDMETHODIMP MoveFirst() noexcept override {
    return Run([&] { core().MoveFirst(); });
  }
  STDMETHODIMP MoveLast() noexcept override {
    return Run([&] { core().MoveLast(); });
  }

 private:
  std::shared_ptr<MemoryRecordset> rows_;
};

}  // namespace

ado::Recordset* AdoRecordsetOf(std::shared_ptr<MemoryRecordset> rows) {
  return ShellOf<RecordsetObject>(std::move(rows));
}

std::shared_ptr<MemoryRecordset> RowsOf(IUnknown* object) {
  void* own = nullptr;
  if (!object || FAILED(object->QueryInterface(kOwnRecordset, &own))) return nullptr;
  const auto recordset = ComPtr<RecordsetObject>::Attach(static_cast<RecordsetObject*>(own));
  return recordset->rows();
}

}  // namespace fetchkit::demo
