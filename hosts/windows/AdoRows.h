// A portable recordset as ADO shows it: a static, read-only cursor on the client's side.
//
// The system's own recordset cannot stand in everywhere, and callers read ADO's interfaces whoever
// implements them. By name they answer in FetchKitHost.dll, which describes them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <variant>
#include <vector>

#include "component/com/ComObject.h"
#include "component/com/ComPtr.h"
#include "component/host/Ado.h"
#include "fetchkit/base/Error.h"
#include "fetchkit/host/Recordset.h"
#include "fetchkit/host/SessionConnection.h"
#include "hosts/shared/MemoryRecordset.h"

namespace fetchkit::hosts {

struct FieldOfRows {
  RecordsetPtr rows;
  std::size_t column;
};

// ADO's number for the kind of the column's values, which is found in the rows: a column of whole
// numbers is one of Longs, one without values is one of texts.
inline std::int32_t AdoTypeOf(Recordset& rows, std::size_t column) {
  enum : std::int32_t { kLong = 3, kDouble = 5, kDate = 7, kBoolean = 11, kText = 202 };
  auto* memory = dynamic_cast<MemoryRecordset*>(&rows);
  if (!memory) return kText;
  const std::size_t columns = memory->ColumnNames().size();
  std::int32_t type = 0;
  for (std::size_t at = column; at < memory->cells().size(); at += columns) {
    const Value& cell = memory->cells()[at];
    if (cell.IsNull()) continue;
    const auto own = std::holds_alternative<std::int32_t>(cell.data()) ? kLong
                     : std::holds_alternative<double>(cell.data())     ? kDouble
                     : std::holds_alternative<Date>(cell.data())       ? kDate
                     : std::holds_alternative<bool>(cell.data())       ? kBoolean
                                                                       : kText;
    const bool isNumber = own == kLong || own == kDouble;
    if (type == 0)
      type = own;
    else if (type != own)
      type = isNumber && (type == kLong || type == kDouble) ? kDouble : kText;
    if (type == kText) break;
  }
  return type == 0 ? kText : type;
}

class FieldObject : public ComObject<ado::Field, ado::Field::kId, FieldOfRows> {
 public:
  using ComObject::ComObject;

  STDMETHODIMP get_Name(BSTR* name) noexcept override {
    return Answer(name, [&] { return core().rows->ColumnNames().at(core().column); });
  }
  STDMETHODIMP get_Type(long* type) noexcept override {
    return Answer(type, [&] { return AdoTypeOf(*core().rows, core().column); });
  }
  STDMETHODIMP get_Value(VARIANT* value) noexcept override {
    return Answer(value, [&] { return core().rows->At(core().column); });
  }
};

// For Each over the columns.
class FieldEnumeration : public IEnumVARIANT {
 public:
  explicit FieldEnumeration(RecordsetPtr rows, std::size_t next = 0)
      : rows_(std::move(rows)), next_(next) {
    Module::Enter();
  }
  FieldEnumeration(const FieldEnumeration&) = delete;
  FieldEnumeration& operator=(const FieldEnumeration&) = delete;

  STDMETHODIMP QueryInterface(REFIID asked, void** object) noexcept override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (asked != IID_IEnumVARIANT && asked != IID_IUnknown) return E_NOINTERFACE;
    *object = static_cast<IEnumVARIANT*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() noexcept override {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
  }
  STDMETHODIMP_(ULONG) Release() noexcept override {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  STDMETHODIMP Next(ULONG asked, VARIANT* fields, ULONG* fetched) noexcept override {
    if (!fields) return E_POINTER;
    ULONG given = 0;
    const HRESULT result = Run([&] {
      const std::size_t count = rows_->ColumnNames().size();
      for (; given < asked && next_ < count; ++given, ++next_) {
        VARIANT& field = fields[given];
        VariantInit(&field);
        field.pdispVal =
            ShellOf<FieldObject>(std::make_shared<FieldOfRows>(FieldOfRows{rows_, next_}));
        field.vt = VT_DISPATCH;
      }
    });
    if (fetched) *fetched = given;
    return FAILED(result) ? result : given == asked ? S_OK : S_FALSE;
  }
  STDMETHODIMP Skip(ULONG count) noexcept override {
    next_ += count;
    return S_OK;
  }
  STDMETHODIMP Reset() noexcept override {
    next_ = 0;
    return S_OK;
  }
  STDMETHODIMP Clone(IEnumVARIANT** clone) noexcept override {
    return Answer(clone, [&] {
      auto* fresh = new FieldEnumeration(rows_, next_);
      fresh->AddRef();
      return static_cast<IEnumVARIANT*>(fresh);
    });
  }

 private:
  // Destroyed by the last Release only.
  virtual ~FieldEnumeration() {
    rows_.reset();  // the DLL stays until they have gone
    Module::Leave();
  }

  LONG references_ = 0;
  RecordsetPtr rows_;
  std::size_t next_;
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
  STDMETHODIMP get_NewEnum(IUnknown** enumeration) noexcept override {
    return Answer(enumeration, [&] {
      auto* fresh = new FieldEnumeration(core().rows);
      fresh->AddRef();
      return static_cast<IUnknown*>(fresh);
    });
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
  // connection: to which Close gives the rows back.
  explicit RecordsetObject(RecordsetPtr rows, SessionConnectionPtr connection = nullptr)
      : ComObject(rows), rows_(std::move(rows)), connection_(std::move(connection)) {}

  const RecordsetPtr& rows() const { return rows_; }

  // Whether it was closed by Close, so that nothing is left to be given back.
  bool wasClosed() const { return wasClosed_; }

  STDMETHODIMP QueryInterface(REFIID asked, void** object) noexcept override {
    if (object && asked == kOwnRecordset) {
      AddRef();
      *object = this;
      return S_OK;
    }
    return ComObject::QueryInterface(
        asked == ado::Recordset::kNewerId ? ado::Recordset::kId : asked, object);
  }
  // Not every script knows integers as wide as a pointer, which RecordCount is.
  STDMETHODIMP Invoke(DISPID member, REFIID asked, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept override {
    const HRESULT called =
        ComObject::Invoke(member, asked, locale, flags, parameters, result, exception, badArgument);
    if (SUCCEEDED(called) && result && result->vt == VT_I8)
      VariantChangeType(result, result, 0, VT_I4);
    return called;
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
  STDMETHODIMP Close() noexcept override {
    return Run([&] {
      if (!connection_) throw Error(ErrorKind::InvalidCall, u"Its connection closes it.");
      RecordsetPtr rows = rows_;
      connection_->CloseRecordset(rows);
      wasClosed_ = true;
    });
  }
  STDMETHODIMP MoveNext() noexcept override {
    return Run([&] { core().MoveNext(); });
  }
  STDMETHODIMP MovePrevious() noexcept override {
    return Run([&] {
      auto* memory = dynamic_cast<MemoryRecordset*>(&core());
      if (!memory) throw Error(ErrorKind::InvalidCall, u"The recordset goes forward only.");
      memory->MovePrevious();
    });
  }
  STDMETHODIMP MoveFirst() noexcept override {
    return Run([&] { core().MoveFirst(); });
  }
  STDMETHODIMP MoveLast() noexcept override {
    return Run([&] { core().MoveLast(); });
  }
  STDMETHODIMP get_State(long* state) noexcept override {
    return Answer(state, [&] {
      try {
        core().Eof();
        return std::int32_t{1};
      } catch (const Error&) {
        return std::int32_t{0};
      }
    });
  }

 private:
  RecordsetPtr rows_;
  SessionConnectionPtr connection_;
  bool wasClosed_ = false;
};

// The recordset that a connection opened, with a reference for the caller; null for none.
inline IDispatch* RecordsetOf(RecordsetPtr rows, SessionConnectionPtr connection) {
  if (!rows) return nullptr;
  ado::Recordset* fresh = new RecordsetObject(std::move(rows), std::move(connection));
  fresh->AddRef();
  return fresh;
}

// An object of the above as itself; empty for any other object and for none.
inline ComPtr<RecordsetObject> OwnRecordset(IUnknown* object) {
  return ComPtr<IUnknown>(object).As<RecordsetObject>(kOwnRecordset);
}
inline RecordsetPtr RowsOf(IUnknown* object) {
  const auto own = OwnRecordset(object);
  return own ? own->rows() : nullptr;
}

// Gives back what stands behind an object of the above; what its Close gave back before is no
// failure. For any other object and for none what the connection throws.
inline void GiveBack(IUnknown* object, SessionConnection& connection) {
  const auto own = OwnRecordset(object);
  if (own && own->wasClosed()) return;
  RecordsetPtr rows = own ? own->rows() : nullptr;
  connection.CloseRecordset(rows);
}

}  // namespace fetchkit::hosts
