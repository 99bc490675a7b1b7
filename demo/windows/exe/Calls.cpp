#include "demo/windows/exe/Calls.h"

#include <fmt/format.h>

#include <stdexcept>

namespace fetchkit::demo {

std::string DescribeResult(HRESULT result) {
  wchar_t* message = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, static_cast<DWORD>(result), 0, reinterpret_cast<wchar_t*>(&message), 0, nullptr);
  std::string text = ToUtf8({reinterpret_cast<const char16_t*>(message), message ? length : 0});
  LocalFree(message);
  while (!text.empty() && static_cast<unsigned char>(text.back()) <= ' ')
    text.pop_back();
  const auto number = fmt::format("0x{:08X}", static_cast<unsigned long>(result));
  return text.empty() ? number : fmt::format("{} {}", number, text);
}

void Check(HRESULT result) {
  if (SUCCEEDED(result)) return;
  ComPtr<IErrorInfo> info;
  Bstr description;
  if (GetErrorInfo(0, info.Out()) == S_OK) info->GetDescription(description.Out());
  const std::string own = ToUtf8(description.view());
  throw std::runtime_error(own.empty() ? DescribeResult(result) : own);
}

}  // namespace fetchkit::demo
