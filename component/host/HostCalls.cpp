#include "component/host/HostCalls.h"

#include <cwchar>

#include "component/com/ComPtr.h"
#include "fetchkit/base/Error.h"

namespace fetchkit {
namespace {

Text NumberAsText(HRESULT result) {
  wchar_t digits[16];
  const int length =
      std::swprintf(digits, sizeof digits / sizeof *digits, L"0x%08lX", static_cast<long>(result));
  return {reinterpret_cast<const char16_t*>(digits), static_cast<std::size_t>(length)};
}

// What the callee left for its caller; empty when it leaves nothing.
Text LeftDescription() {
  ComPtr<IErrorInfo> info;
  Bstr description;
  if (GetErrorInfo(0, info.Out()) == S_OK) info->GetDescription(description.Out());
  return Text(description.view());
}

}  // namespace

void Called(HRESULT result, IUnknown* callee) {
  if (SUCCEEDED(result)) return;
  Text description = callee ? LeftDescription() : Text();
  if (description.empty()) description = u"the host answered " + NumberAsText(result);
  throw Error(ErrorKind::Host, description);
}

}  // namespace fetchkit
