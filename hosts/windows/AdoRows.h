// A portable recordset as ADO shows it: a static, read-only cursor on the client's side.
//
// The system's own recordset cannot stand in everywhere, and the library reads ADO's interfaces
// whoever implements them. They are bound early; calls by name are not answered.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <variant>

#include "component/com/ComObject.h"
#include "component/com/ComPtr.h"
#include "component/host/Ado.h"
#include "fetchkit/base/Error.h"
#include "fetchkit/host/Recordset.h"

namespace fetchkit::hosts {

struct FieldOfRows {
  RecordsetPtr rows;
  std::size_t column;
};

class FieldObject : public ComObject<ado::Field, ado::Field::kId, FieldOfRows> {
 public:
  using ComObject::ComObject;

  STDMETHODIMP get_Name(BSTR* name) noexcept override {
    return Answer(name, [&] { return core().rows->ColumnNames().at(core().column); });
  }
  STDMETHODIMP get_Value(VARIANT* value) noexcept override {
    return Answer(value, [&] { return core().rows->At(core().column); });
  }
};

struct FieldsOfRows {
  RecordsetPtr rows;
};

class FieldsObject : public ComObject<ado::Fields, ado::Fields::kId, FieldsOfRows> {
 public:
  using ComObject::ComObject;

  STDMETHODIMP get_Count(long* count) noexcept override {
    return Answer(count,
                  [&] { return static_cast<std::int32_t>(core().rows->ColumnNames().size()); });
  }
  STDMETHODIMP get_Item(VARIANT nameOrIndex, ado::Field** field) noexcept override {
    return Answer(field, [&] {
      Recordset& rows = *core().rows;
      const Value key = ValueOf(nameOrIndex);
      const auto* name = std::get_if<Text>(&key.data());
      const std::size_t column = name ? rows.Column(*name) : static_cast<std::size_t>(ToLong(key));
      if (column >= rows.ColumnNames().size())
        throw Error(ErrorKind::Host, u"The recordset has no such column.");
      return ShellOf<FieldObject>(std::make_shared<FieldOfRows>(FieldOfRows{core().rows, column}));
    });
  }
};

// Asks one of this file's recordsets for itself; nobody else has the identifier.
constexpr IID kOwnRecordset = {
    0x8E6E64B1, 0x4D0F, 0x4B53, {0xA1, 0x2C, 0x7D, 0x0A, 0x52, 0x3B, 0x90, 0x6F}};

class RecordsetObject : public ComObject<ado::Recordset, ado::Recordset::kId, Recordset> {
 public:
  explicit RecordsetObject(RecordsetPtr rows) : ComObject(rows), rows_(std::move(rows)) {}

  const RecordsetPtr& rows() const { return rows_; }

  STDMETHODIMP QueryInterface(REFIID asked, void** object) noexcept override {
    if (object && asked == kOwnRecordset) {
      AddRef();
      *object = this;
      return S_OK;
    }
    return ComObject::QueryInterface(
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
      core().ColumnNames();  // fails where they can no longer be read
      return ShellOf<FieldsObject>(std::make_shared<FieldsOfRows>(FieldsOfRows{rows_}));
    });
  }
  STDMETHODIMP get_RecordCount(ado::Position* count) noexcept override {
    return count ? Run([&] { *count = core().RecordCount(); }) : E_POINTER;
  }
  STDMETHODIMP MoveNext() noexcept override {
    return Run([&] { core().MoveNext(); });
  }
  STDMETHODIMP MoveFirst() noexcept override {
    return Run([&] { core().MoveFirst(); });
  }
  STDMETHODIMP MoveLast() noexcept override {
    return Run([&] { core().MoveLast(); });
  }

 private:
  RecordsetPtr rows_;
};

// The rows behind an object of the above; null for any other object and for none.
inline RecordsetPtr RowsOf(IUnknown* object) {
  void* own = nullptr;
  if (!object || FAILED(object->QueryInterface(kOwnRecordset, &own))) return nullptr;
  const auto recordset = ComPtr<RecordsetObject>::Attach(static_cast<RecordsetObject*>(own));
  return recordset->rows();
}

}  // namespace fetchkit::hosts
