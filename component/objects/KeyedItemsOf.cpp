#include "component/objects/KeyedItemsOf.h"

#include "component/com/Boundary.h"

namespace fetchkit {
namespace {

// Calls a member that takes the key, as a method or a property. False when the object has no such
// member.
bool Ask(IDispatch* object, const wchar_t* member, TextView key, VARIANT* answer) {
  auto* name = const_cast<LPOLESTR>(member);
  DISPID id = 0;
  if (FAILED(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id))) return false;
  const Bstr text(key);
  VARIANT argument;
  VariantInit(&argument);
  argument.vt = VT_BSTR;
  argument.bstrVal = text.get();
  DISPPARAMS parameters{&argument, nullptr, 1, 0};
  const HRESULT result =
      object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                     &parameters, answer, nullptr, nullptr);
  if (FAILED(result)) throw ComError{result};
  return true;
}

}  // namespace

bool KeyedItemsOf::Has(TextView key) const {
  if (!object_) throw ComError{E_POINTER};
  Variant answer;
  if (Ask(object_, L"Exists", key, answer.Out())) return ToBoolean(ValueOf(answer.get()));
  return Ask(object_, L"Item", key, answer.Out());
}

std::vector<std::int32_t> LongsOf(const VARIANT& array) {
  const Value value = ValueOf(array);
  const auto* items = std::get_if<Value::Array>(&value.data());
  if (!items) throw ConvertError(ErrorKind::TypeMismatch, u"an array of numbers is needed");
  std::vector<std::int32_t> numbers;
  numbers.reserve((*items)->items.size());
  for (const Value& item : (*items)->items)
    numbers.push_back(ToLong(item));
  return numbers;
}

}  // namespace fetchkit
