#include "component/com/Dispatch.h"

#include <algorithm>
#include <deque>
#include <vector>

#include "component/com/Boundary.h"
#include "component/com/ComPtr.h"
#include "component/com/TypeLibrary.h"

namespace fetchkit {
namespace {

// One by-reference argument of a call: the parameter's own variable in between.
class Between {
 public:
  // argument: in the call's own list, where the reference takes its place.
  Between(VARIANT& argument, VARTYPE type) : original_(argument) {
    VariantInit(&variable_);
    // The system's copying looks behind every reference.
    if ((argument.vt & VT_BYREF) != 0 && !argument.byref) throw ComError{DISP_E_TYPEMISMATCH};
    if (type == VT_VARIANT) {
      Check(VariantCopyInd(&variable_, &argument));
      reference_.pvarVal = &variable_;
    } else {
      Variant plain;
      Check(VariantCopyInd(plain.InOut(), &argument));
      if (plain.get().vt == VT_EMPTY && (type == VT_DISPATCH || type == VT_UNKNOWN)) {
        variable_.vt = type;
        variable_.pdispVal = nullptr;
      } else {
        Check(VariantChangeType(&variable_, plain.InOut(), VARIANT_ALPHABOOL, type));
      }
      reference_.byref = &variable_.llVal;
    }
    reference_.vt = static_cast<VARTYPE>(type | VT_BYREF);
    argument = reference_;
  }
  ~Between() { VariantClear(&variable_); }
  Between(const Between&) = delete;
  Between& operator=(const Between&) = delete;

  void WriteBack() {
    if ((original_.vt & VT_BYREF) == 0) return;
    Check(WriteThrough(&original_, &variable_));
  }

 private:
  static void Check(HRESULT result) {
    if (FAILED(result))
      throw ComError{result == DISP_E_OVERFLOW ? DISP_E_OVERFLOW : DISP_E_TYPEMISMATCH};
  }

  VARIANT original_;
  VARIANT variable_;
  VARIANT reference_{};
};

}  // namespace

HRESULT DispatchTypeInfo(const IID& interfaceId, UINT index, ITypeInfo** info) noexcept {
  if (!info) return E_POINTER;
  *info = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  return Run([&] { *info = TypeLibrary::Describe(interfaceId).Detach(); });
}

HRESULT DispatchClassInfo(const IID& interfaceId, ITypeInfo** info) noexcept {
  if (!info) return E_POINTER;
  *info = nullptr;
  return Run([&] { *info = TypeLibrary::ClassOf(interfaceId).Detach(); });
}

HRESULT DispatchIdsOfNames(const IID& interfaceId, REFIID reserved, LPOLESTR* names, UINT count,
                           DISPID* ids) noexcept {
  if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (!names || !ids) return E_POINTER;
  return Run([&] {
    const HRESULT result = TypeLibrary::Describe(interfaceId)->GetIDsOfNames(names, count, ids);
    if (FAILED(result)) throw ComError{result};
  });
}

HRESULT DispatchInvoke(const IID& interfaceId, REFIID reserved, IDispatch* object, DISPID member,
                       WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                       UINT* badArgument) noexcept {
  if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (!parameters) return E_POINTER;
  return Run([&] {
    const ComPtr<ITypeInfo> info = TypeLibrary::Describe(interfaceId);
    // Arguments stand last first, and the named ones in front of the others, each with the number
    // of its parameter. A property's new value has a number that is none: it is left to the system.
    std::deque<Between> betweens;
    std::vector<VARIANT> arguments(parameters->rgvarg, parameters->rgvarg + parameters->cArgs);
    DISPPARAMS converted = *parameters;
    converted.rgvarg = arguments.data();
    const std::vector<VARTYPE>& referred = TypeLibrary::Referred(interfaceId, member, flags);
    // From the first argument on, so that the first one that does not fit is the one that is named.
    for (UINT index = parameters->cArgs; index-- > 0;) {
      const DISPID parameter = index < parameters->cNamedArgs
                                   ? parameters->rgdispidNamedArgs[index]
                                   : static_cast<DISPID>(parameters->cArgs - 1 - index);
      const auto position = static_cast<std::size_t>(parameter);
      if (parameter < 0 || position >= referred.size() || referred[position] == VT_EMPTY) continue;
      try {
        betweens.emplace_back(arguments[index], referred[position]);
      } catch (const ComError&) {
        if (badArgument) *badArgument = index;
        throw;
      }
    }
    const HRESULT called =
        info->Invoke(object, member, flags, &converted, result, exception, badArgument);
    if (FAILED(called)) throw ComError{called};
    for (Between& each : betweens)
      each.WriteBack();
  });
}

HRESULT AsException(HRESULT result, EXCEPINFO* exception) noexcept {
  ComPtr<IErrorInfo> described;
  if (SUCCEEDED(result) || HRESULT_FACILITY(result) != FACILITY_CONTROL ||
      GetErrorInfo(0, described.Out()) != S_OK)
    return result;
  if (exception) {
    *exception = {};
    exception->scode = result;
    described->GetSource(&exception->bstrSource);
    described->GetDescription(&exception->bstrDescription);
  }
  return DISP_E_EXCEPTION;
}

}  // namespace fetchkit
