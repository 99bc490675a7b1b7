#include "component/com/Boundary.h"

#include <new>

#include "component/com/ComPtr.h"
#include "component/com/Module.h"
#include "fetchkit/base/Error.h"

namespace fetchkit {
namespace {

HRESULT ScriptNumber(ErrorKind kind) {
  return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, static_cast<int>(kind));
}

void LeaveErrorInfo(TextView description) noexcept {
  try {
    ComPtr<ICreateErrorInfo> fresh;
    if (FAILED(CreateErrorInfo(fresh.Out()))) return;
    fresh->SetDescription(Bstr(description).get());
    fresh->SetSource(Bstr(Module::Source()).get());
    if (const auto info = fresh.As<IErrorInfo>(IID_IErrorInfo)) SetErrorInfo(0, info.get());
  } catch (...) {
    // The number alone must do.
  }
}

}  // namespace

HRESULT ReportCurrentError() noexcept {
  try {
    throw;
  } catch (const ComError& error) {
    return error.result;
  } catch (const Error& error) {
    LeaveErrorInfo(error.description());
    return ScriptNumber(error.kind());
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

InOutText::InOutText(BSTR* argument) : argument_(argument) {
  if (!argument) throw ComError{E_POINTER};
  value_ = ViewOf(*argument);
}

InOutText::~InOutText() {
  if (value_ == ViewOf(*argument_)) return;
  const BSTR fresh = SysAllocStringLen(reinterpret_cast<const OLECHAR*>(value_.data()),
                                       static_cast<UINT>(value_.size()));
  if (!fresh) return;
  SysFreeString(*argument_);
  *argument_ = fresh;
}

InOutValue::InOutValue(VARIANT* argument) : argument_(argument) {
  if (!argument) throw ComError{E_POINTER};
  value_ = before_ = ValueOf(*argument);
}

InOutValue::~InOutValue() {
  if (IsSame(value_, before_)) return;
  VARIANT fresh;
  const HRESULT made = Run([&] { ToVariant(value_, &fresh); });
  if (FAILED(made)) return;
  WriteThrough(argument_, &fresh);
  VariantClear(&fresh);
}

}  // namespace fetchkit
