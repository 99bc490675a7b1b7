#include "demo/windows/Library.h"

#include <fmt/format.h>

#include <stdexcept>

#include "component/com/Bstr.h"
#include "fetchkit/base/Utf8.h"
#include "hosts/windows/ConnectionObject.h"

namespace fetchkit::demo {
namespace {

// The system's text for an HRESULT, with its number.
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

}  // namespace

void Check(HRESULT result) {
  if (SUCCEEDED(result)) return;
  ComPtr<IErrorInfo> info;
  Bstr description;
  if (GetErrorInfo(0, info.Out()) == S_OK) info->GetDescription(description.Out());
  const std::string own = ToUtf8(description.view());
  throw std::runtime_error(own.empty() ? DescribeResult(result) : own);
}

Apartment::Apartment() {
  Check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
}

Apartment::~Apartment() {
  CoUninitialize();
}

Library::Library(const SessionConnectionPtr& connection) {
  const HRESULT result = CoCreateInstance(CLSID_Interface, nullptr, CLSCTX_INPROC_SERVER,
                                          IID_IInterface, reinterpret_cast<void**>(entry_.Out()));
  if (FAILED(result))
    throw std::runtime_error(
        fmt::format("FetchKit.dll cannot be activated: {}\nIt has to lie beside FetchKitDemo.exe, "
                    "built for the same processor ({} bits). Without it: --ask or --script.",
                    DescribeResult(result), 8 * sizeof(void*)));
  const auto object = hosts::ConnectionObjectOf(connection);
  ComPtr<IDispatch> argument(object.get());
  Check(entry_->Initialize(argument.InOut()));
}

// The library lets the connection go when it is asked whether it can be unloaded.
Library::~Library() {
  entry_ = nullptr;
  CoFreeUnusedLibrariesEx(0, 0);
}

}  // namespace fetchkit::demo
