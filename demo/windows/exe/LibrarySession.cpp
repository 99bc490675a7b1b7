#include "demo/windows/exe/LibrarySession.h"

#include <fmt/format.h>

#include <stdexcept>

#include "demo/windows/exe/Calls.h"
#include "fetchkit/base/Utf8.h"
#include "hosts/windows/ConnectionObject.h"

namespace fetchkit::demo {

Apartment::Apartment() {
  Check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
}

Apartment::~Apartment() {
  CoUninitialize();
}

LibrarySession::LibrarySession(Console& console, bool trace) : console_(console), trace_(trace) {
  const HRESULT result = CoCreateInstance(CLSID_Interface, nullptr, CLSCTX_INPROC_SERVER,
                                          IID_IInterface, reinterpret_cast<void**>(entry_.Out()));
  if (FAILED(result))
    throw std::runtime_error(
        fmt::format("FetchKit.dll cannot be activated: {}\nIt has to lie beside FetchKitDemo.exe, "
                    "built for the same processor ({} bits).",
                    DescribeResult(result), 8 * sizeof(void*)));
}

// The library lets the connection go when it is asked whether it can be unloaded, so that happens
// while the connection's rows and statements are still there.
LibrarySession::~LibrarySession() {
  entry_ = nullptr;
  CoFreeUnusedLibrariesEx(0, 0);
}

void LibrarySession::LogIn(std::string_view loginName) {
  host_.Switch(loginName);
  Initialize();
}

void LibrarySession::LogInAfresh() {
  connection()->login.server = Join(u"DBSRV", std::int32_t{++freshLogins_});
  Initialize();
}

void LibrarySession::Initialize() {
  const auto object = hosts::ConnectionObjectOf(connection());
  ComPtr<IDispatch> argument(object.get());
  Check(entry_->Initialize(argument.InOut()));
  host_.reports().clear();
}

ComPtr<IActivity> LibrarySession::Activity() const {
  return ObjectOf(entry_, &IInterface::get_Activity);
}

std::string LibrarySession::LastRefusal() const {
  return host_.reports().empty() ? std::string() : ToUtf8(host_.reports().back().error);
}

}  // namespace fetchkit::demo
