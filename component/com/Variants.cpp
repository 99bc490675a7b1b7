#include "component/com/Variants.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>
#include <variant>

#include "component/com/Bstr.h"
#include "component/com/ComPtr.h"

namespace fetchkit {
namespace {

[[noreturn]] void ThrowTypeMismatch() {
  throw ConvertError(ErrorKind::TypeMismatch, u"a value of a type that is not known here");
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
    ThrowTypeMismatch();
  return Value(changed.dblVal);
}

Value ArrayValue(SAFEARRAY* array, VARTYPE itemType) {
  ValueArray values;
  // Without a descriptor, or with one that has no data: never dimensioned.
  if (!array || SafeArrayGetDim(array) == 0) return Value(std::move(values));
  if (SafeArrayGetDim(array) != 1) ThrowTypeMismatch();
  LONG lower = 0;
  LONG upper = -1;
  if (FAILED(SafeArrayGetLBound(array, 1, &lower)) || FAILED(SafeArrayGetUBound(array, 1, &upper)))
    ThrowTypeMismatch();
  values.dimensioned = true;
  values.lowerBound = static_cast<std::int32_t>(lower);
  void* data = nullptr;
  if (FAILED(SafeArrayAccessData(array, &data))) ThrowTypeMismatch();
  const std::unique_ptr<SAFEARRAY, HRESULT(STDAPICALLTYPE*)(SAFEARRAY*)> access(
      array, SafeArrayUnaccessData);
  const UINT size = SafeArrayGetElemsize(array);
  values.items.reserve(upper < lower ? 0 : static_cast<std::size_t>(upper - lower) + 1);
  auto* item = static_cast<std::uint8_t*>(data);
  for (LONG index = lower; index <= upper; ++index, item += size) {
    VARIANT view;
    VariantInit(&view);
    view.vt = static_cast<VARTYPE>(itemType | VT_BYREF);
    view.byref = item;
    values.items.push_back(ValueOf(view));
  }
  return Value(std::move(values));
}

}  // namespace

Variant::Variant(const Value& value) : Variant() {
  ToVariant(value, &variant_);
}

Value ValueOf(const VARIANT& variant) {
  if (variant.vt == (VT_BYREF | VT_VARIANT)) {
    // One level is what the system produces; more would be somebody's mistake.
    if (!variant.pvarVal || variant.pvarVal->vt == (VT_BYREF | VT_VARIANT)) ThrowTypeMismatch();
    return ValueOf(*variant.pvarVal);
  }
  const bool byReference = (variant.vt & VT_BYREF) != 0;
  if (byReference && !variant.byref) ThrowTypeMismatch();
  if (variant.vt & VT_ARRAY) {
    const auto itemType = static_cast<VARTYPE>(variant.vt & VT_TYPEMASK);
    return ArrayValue(byReference ? *variant.pparray : variant.parray, itemType);
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
      ThrowTypeMismatch();
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
      ThrowTypeMismatch();
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
  void operator()(const Value::Array& value) const {
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
};

}  // namespace

void ToVariant(const Value& value, VARIANT* variant) {
  VariantInit(variant);
  std::visit(VariantWriter{*variant}, value.data());
}

IUnknown* ObjectOf(const Value& value) {
  const auto* object = std::get_if<Value::Object>(&value.data());
  return object ? static_cast<IUnknown*>(object->get()) : nullptr;
}

}  // namespace fetchkit
