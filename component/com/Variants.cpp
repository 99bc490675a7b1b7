#include "component/com/Variants.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>
#include <variant>

#include "component/com/Bstr.h"
#include "component/com/ComPtr.h"

namespace fetchkit {
namespace {

// Bytes of a variable of a plain type.
std::size_t SizeOf(VARTYPE type) {
  switch (type) {
    case VT_UI1:
    case VT_I1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
      return 4;
    default:
      return 8;
  }
}

// A copy of its own, for values that give it back later. Null for what the system does not copy.
std::shared_ptr<const Variant> Copied(const VARIANT& variant) {
  const auto copy = std::make_shared<Variant>();
  const HRESULT result = VariantCopyInd(copy->InOut(), const_cast<VARIANT*>(&variant));
  if (result == E_OUTOFMEMORY) throw std::bad_alloc();
  return SUCCEEDED(result) ? copy : nullptr;
}

Value Opaque(const VARIANT& variant, bool isArray = false) {
  return Value(OpaqueValue{isArray, Copied(variant)});
}

Value ObjectValue(IUnknown* object) {
  if (!object) return Value(Value::Object());
  object->AddRef();
  return Value(Value::Object(object, [](void* held) { static_cast<IUnknown*>(held)->Release(); }));
}

Value ChangedToDouble(const VARIANT& variant) {
  VARIANT changed;
  VariantInit(&changed);
  if (FAILED(VariantChangeType(&changed, const_cast<VARIANT*>(&variant), 0, VT_R8)))
    return Opaque(variant);
  return Value(changed.dblVal);
}

// Items whose type a value keeps.
bool ComesBackAsItWas(VARTYPE type) {
  constexpr VARTYPE kKept[] = {VT_EMPTY, VT_NULL, VT_BOOL, VT_UI1,  VT_I2,      VT_I4,
                               VT_R4,    VT_R8,   VT_DATE, VT_BSTR, VT_DISPATCH};
  return std::find(std::begin(kKept), std::end(kKept), type) != std::end(kKept);
}

// Items that stand in the array as they stand in a variant, and of which ValueOf knows the type.
bool IsPlainItem(VARTYPE type) {
  constexpr VARTYPE kPlain[] = {VT_VARIANT, VT_BOOL, VT_UI1,   VT_I1,       VT_I2,     VT_UI2,
                                VT_I4,      VT_UI4,  VT_INT,   VT_UINT,     VT_I8,     VT_UI8,
                                VT_R4,      VT_R8,   VT_CY,    VT_DECIMAL,  VT_DATE,   VT_BSTR,
                                VT_ERROR,   VT_NULL, VT_EMPTY, VT_DISPATCH, VT_UNKNOWN};
  return std::find(std::begin(kPlain), std::end(kPlain), type) != std::end(kPlain);
}

// whole: the variant in which the array stands.
Value ArrayValue(const VARIANT& whole, SAFEARRAY* array, VARTYPE itemType) {
  ValueArray values;
  // Without a descriptor, or with one that has no data: never dimensioned.
  if (!array || SafeArrayGetDim(array) == 0) return Value(std::move(values));
  LONG lower = 0;
  LONG upper = -1;
  void* data = nullptr;
  if (SafeArrayGetDim(array) != 1 || !IsPlainItem(itemType) ||
      FAILED(SafeArrayGetLBound(array, 1, &lower)) ||
      FAILED(SafeArrayGetUBound(array, 1, &upper)) || FAILED(SafeArrayAccessData(array, &data)))
    return Opaque(whole, true);
  const std::unique_ptr<SAFEARRAY, HRESULT(STDAPICALLTYPE*)(SAFEARRAY*)> access(
      array, SafeArrayUnaccessData);
  values.dimensioned = true;
  values.lowerBound = static_cast<std::int32_t>(lower);
  const UINT size = SafeArrayGetElemsize(array);
  values.items.reserve(upper < lower ? 0 : static_cast<std::size_t>(upper - lower) + 1);
  auto* item = static_cast<std::uint8_t*>(data);
  bool comesBack = itemType == VT_VARIANT;
  for (LONG index = lower; index <= upper; ++index, item += size) {
    VARIANT view;
    VariantInit(&view);
    view.vt = static_cast<VARTYPE>(itemType | VT_BYREF);
    view.byref = item;
    comesBack = comesBack && ComesBackAsItWas(view.pvarVal->vt);
    values.items.push_back(ValueOf(view));
  }
  if (!comesBack) values.original = Copied(whole);
  return Value(std::move(values));
}

}  // namespace

Variant::Variant(const Value& value) : Variant() {
  ToVariant(value, &variant_);
}

Value ValueOf(const VARIANT& variant) {
  if (variant.vt == (VT_BYREF | VT_VARIANT)) {
    // A caller's variable, or one in a list of arguments that he hands on: more levels would be
    // somebody's mistake, and may have no end.
    const VARIANT* inner = variant.pvarVal;
    for (int level = 0; level < 2 && inner && inner->vt == (VT_BYREF | VT_VARIANT); ++level)
      inner = inner->pvarVal;
    if (!inner || inner->vt == (VT_BYREF | VT_VARIANT)) return Value(OpaqueValue{});
    return ValueOf(*inner);
  }
  const bool byReference = (variant.vt & VT_BYREF) != 0;
  if (byReference && !variant.byref) return Value(OpaqueValue{});
  if (variant.vt & VT_ARRAY) {
    const auto itemType = static_cast<VARTYPE>(variant.vt & VT_TYPEMASK);
    return ArrayValue(variant, byReference ? *variant.pparray : variant.parray, itemType);
  }
  // The data stand at the same place for every plain type.
  const auto& data =
      byReference ? *static_cast<const decltype(variant.llVal)*>(variant.byref) : variant.llVal;
  const auto read = [&](auto type) {
    decltype(type) value;
    std::copy_n(reinterpret_cast<const char*>(&data), sizeof value,
                reinterpret_cast<char*>(&value));
    return value;
  };
  switch (variant.vt & VT_TYPEMASK) {
    case VT_EMPTY:
      return {};
    case VT_NULL:
      return Value(NullValue{});
    case VT_ERROR:
      if (read(SCODE{}) == DISP_E_PARAMNOTFOUND) return Value(MissingValue{});
      return Opaque(variant);
    case VT_BOOL:
      return Value(read(VARIANT_BOOL{}) != VARIANT_FALSE);
    case VT_UI1:
      return Value(read(std::uint8_t{}));
    case VT_I1:
      return Value(static_cast<std::int16_t>(read(std::int8_t{})));
    case VT_I2:
      return Value(read(std::int16_t{}));
    case VT_UI2:
      return Value(static_cast<std::int32_t>(read(std::uint16_t{})));
    case VT_I4:
    case VT_INT:
      return Value(read(std::int32_t{}));
    case VT_UI4:
    case VT_UINT: {
      const auto number = read(std::uint32_t{});
      if (number > INT32_MAX) return Value(static_cast<double>(number));
      return Value(static_cast<std::int32_t>(number));
    }
    case VT_I8:
      return Value(static_cast<double>(read(std::int64_t{})));
    case VT_UI8:
      return Value(static_cast<double>(read(std::uint64_t{})));
    case VT_R4:
      return Value(read(float{}));
    case VT_R8:
      return Value(read(double{}));
    case VT_DATE:
      return Value(Date{read(double{})});
    case VT_BSTR:
      return Value(ViewOf(read(BSTR{})));
    case VT_CY:
    case VT_DECIMAL:
      return ChangedToDouble(variant);
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return ObjectValue(read(static_cast<IUnknown*>(nullptr)));
    default:
      return Opaque(variant);
  }
}

namespace {

struct VariantWriter {
  VARIANT& to;

  void operator()(EmptyValue) const { to.vt = VT_EMPTY; }
  void operator()(NullValue) const { to.vt = VT_NULL; }
  void operator()(MissingValue) const {
    to.vt = VT_ERROR;
    to.scode = DISP_E_PARAMNOTFOUND;
  }
  void operator()(bool value) const {
    to.vt = VT_BOOL;
    to.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  }
  void operator()(std::uint8_t value) const {
    to.vt = VT_UI1;
    to.bVal = value;
  }
  void operator()(std::int16_t value) const {
    to.vt = VT_I2;
    to.iVal = value;
  }
  void operator()(std::int32_t value) const {
    to.vt = VT_I4;
    to.lVal = value;
  }
  void operator()(float value) const {
    to.vt = VT_R4;
    to.fltVal = value;
  }
  void operator()(double value) const {
    to.vt = VT_R8;
    to.dblVal = value;
  }
  void operator()(Date value) const {
    to.vt = VT_DATE;
    to.date = value.serial;
  }
  void operator()(const Text& value) const {
    to.bstrVal = NewBstr(value);
    to.vt = VT_BSTR;
  }
  void operator()(const OpaqueValue& value) const { Restore(value.content); }
  void operator()(const Value::Array& value) const {
    if (value && value->original) {
      Restore(value->original);
      return;
    }
    if (!value || !value->dimensioned) {
      to.vt = VT_ARRAY | VT_VARIANT;
      to.parray = nullptr;
      return;
    }
    SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, value->lowerBound,
                                             static_cast<ULONG>(value->items.size()));
    if (!array) throw std::bad_alloc();
    // From here on the variant owns what has been filled.
    to.vt = VT_ARRAY | VT_VARIANT;
    to.parray = array;
    auto* item = static_cast<VARIANT*>(array->pvData);
    for (const Value& each : value->items)
      ToVariant(each, item++);
  }
  void operator()(const Value::Object& value) const {
    auto* object = static_cast<IUnknown*>(value.get());
    to.pdispVal = nullptr;
    to.vt = VT_DISPATCH;
    if (!object) return;
    void* dispatch = nullptr;
    if (SUCCEEDED(object->QueryInterface(IID_IDispatch, &dispatch))) {
      to.pdispVal = static_cast<IDispatch*>(dispatch);
      return;
    }
    object->AddRef();
    to.punkVal = object;
    to.vt = VT_UNKNOWN;
  }

 private:
  void Restore(const std::shared_ptr<const void>& content) const {
    if (!content) return;
    const VARIANT& kept = static_cast<const Variant*>(content.get())->get();
    if (FAILED(VariantCopy(&to, const_cast<VARIANT*>(&kept)))) throw std::bad_alloc();
  }
};

}  // namespace

void ToVariant(const Value& value, VARIANT* variant) {
  VariantInit(variant);
  std::visit(VariantWriter{*variant}, value.data());
}

HRESULT WriteThrough(VARIANT* target, VARIANT* value) noexcept {
  while (target->vt == (VT_BYREF | VT_VARIANT) && target->pvarVal)
    target = target->pvarVal;
  if ((target->vt & VT_BYREF) == 0) return VariantCopy(target, value);
  if (!target->byref) return DISP_E_TYPEMISMATCH;
  const auto type = static_cast<VARTYPE>(target->vt & ~VT_BYREF);
  if ((type & VT_ARRAY) != 0) return S_OK;
  Variant changed;
  const HRESULT result = VariantChangeType(changed.InOut(), value, 0, type);
  if (FAILED(result)) return result;
  VARIANT& fresh = *changed.InOut();
  if (type == VT_BSTR) {
    std::swap(*target->pbstrVal, fresh.bstrVal);
  } else if (type == VT_DISPATCH || type == VT_UNKNOWN) {
    std::swap(*target->ppunkVal, fresh.punkVal);
  } else if (type == VT_DECIMAL) {
    *target->pdecVal = fresh.decVal;
    target->pdecVal->wReserved = 0;  // where the variant has its type
  } else {
    std::memcpy(target->byref, &fresh.llVal, SizeOf(type));
  }
  return S_OK;
}

bool IsSame(const Value& a, const Value& b) {
  if (a.data().index() != b.data().index()) return false;
  return std::visit(
      [&b](const auto& data) {
        using T = std::decay_t<decltype(data)>;
        const auto& other = std::get<T>(b.data());
        if constexpr (std::is_empty_v<T>)
          return true;
        else if constexpr (std::is_same_v<T, OpaqueValue>)
          return data.content == other.content;
        else if constexpr (std::is_same_v<T, Date>)
          return data.serial == other.serial;
        else
          return data == other;
      },
      a.data());
}

IUnknown* ObjectOf(const Value& value) {
  const auto* object = std::get_if<Value::Object>(&value.data());
  return object ? static_cast<IUnknown*>(object->get()) : nullptr;
}

}  // namespace fetchkit
