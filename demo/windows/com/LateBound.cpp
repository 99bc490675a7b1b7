#include "demo/windows/com/LateBound.h"

#include "component/com/ComPtr.h"

namespace fetchkit::demo {

HRESULT RaiseLate(HRESULT failure, EXCEPINFO* exception) noexcept {
  ComPtr<IErrorInfo> info;
  if (!exception) return failure;
  *exception = {};
  exception->scode = failure;
  if (GetErrorInfo(0, info.Out()) == S_OK) {
    info->GetDescription(&exception->bstrDescription);
    info->GetSource(&exception->bstrSource);
  }
  return DISP_E_EXCEPTION;
}

}  // namespace fetchkit::demo
