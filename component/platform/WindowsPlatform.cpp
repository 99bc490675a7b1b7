#include "component/platform/WindowsPlatform.h"

#include <cstddef>

#include "component/Windows.h"
#include "component/host/HostCalls.h"
#include "component/platform/HostPtr.h"
#include "fetchkit/platform/CommonDates.h"
#include "idl/FetchKitHost.h"

namespace fetchkit {
namespace {

HWND ToHwnd(WindowHandle window) {
  return static_cast<HWND>(LongToHandle(window));
}

WindowHandle FromHwnd(HWND window) {
  return static_cast<WindowHandle>(HandleToLong(window));
}

const wchar_t* Wide(const Text& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}

}  // namespace

WindowHandle SystemWindows::GetActiveWindow() {
  return FromHwnd(::GetActiveWindow());
}

WindowHandle SystemWindows::GetDesktopWindow() {
  return FromHwnd(::GetDesktopWindow());
}

WindowHandle SystemWindows::GetForegroundWindow() {
  return FromHwnd(::GetForegroundWindow());
}

WindowHandle SystemWindows::FindWindowEx(WindowHandle parent, WindowHandle childAfter,
                                         TextView className, TextView caption) {
  const Text classText(className);
  const Text captionText(caption);
  return FromHwnd(
      FindWindowExW(ToHwnd(parent), ToHwnd(childAfter), Wide(classText), Wide(captionText)));
}

std::int32_t SystemWindows::IsWindow(WindowHandle window) {
  return ::IsWindow(ToHwnd(window));
}

std::int32_t SystemWindows::GetWindowThreadProcessId(WindowHandle window, std::int32_t& processId) {
  DWORD process = static_cast<DWORD>(processId);
  const DWORD thread = ::GetWindowThreadProcessId(ToHwnd(window), &process);
  if (thread != 0) processId = static_cast<std::int32_t>(process);
  return static_cast<std::int32_t>(thread);
}

std::int32_t SystemWindows::GetCurrentProcessId() {
  return static_cast<std::int32_t>(::GetCurrentProcessId());
}

std::int32_t SystemWindows::GetWindowLong(WindowHandle window, std::int32_t index) {
  return static_cast<std::int32_t>(GetWindowLongW(ToHwnd(window), index));
}

std::int32_t SystemWindows::SetWindowLong(WindowHandle window, std::int32_t index,
                                          std::int32_t value) {
  return static_cast<std::int32_t>(SetWindowLongW(ToHwnd(window), index, value));
}

std::int32_t SystemWindows::SetWindowPos(WindowHandle window, WindowHandle insertAfter,
                                         std::int32_t x, std::int32_t y, std::int32_t width,
                                         std::int32_t height, std::int32_t flags) {
  return ::SetWindowPos(ToHwnd(window), ToHwnd(insertAfter), x, y, width, height,
                        static_cast<UINT>(flags));
}

std::int32_t SystemWindows::GetWindowRect(WindowHandle window, WindowRect& rect) {
  RECT read{};
  const BOOL ok = ::GetWindowRect(ToHwnd(window), &read);
  if (ok) {
    rect = {static_cast<std::int32_t>(read.left), static_cast<std::int32_t>(read.top),
            static_cast<std::int32_t>(read.right), static_cast<std::int32_t>(read.bottom)};
  }
  return ok;
}

std::int32_t SystemWindows::GetCursorPos(WindowPoint& point) {
  POINT read{};
  const BOOL ok = ::GetCursorPos(&read);
  if (ok) point = {static_cast<std::int32_t>(read.x), static_cast<std::int32_t>(read.y)};
  return ok;
}

std::int32_t SystemWindows::ScreenToClient(WindowHandle window, WindowPoint& point) {
  POINT moved{point.x, point.y};
  const BOOL ok = ::ScreenToClient(ToHwnd(window), &moved);
  if (ok) point = {static_cast<std::int32_t>(moved.x), static_cast<std::int32_t>(moved.y)};
  return ok;
}

std::int32_t SystemWindows::MessageBox(TextView text, std::int32_t style, TextView title) {
  const Text textCopy(text);
  const Text titleCopy(title);
  return MessageBoxW(::GetActiveWindow(), Wide(textCopy), Wide(titleCopy),
                     static_cast<UINT>(style));
}

std::size_t WindowsPlatform::AnsiLength(TextView text) const {
  if (text.empty()) return 0;
  return static_cast<std::size_t>(
      WideCharToMultiByte(CP_ACP, 0, reinterpret_cast<const wchar_t*>(text.data()),
                          static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr));
}

namespace {

std::uint16_t CodeIn(UINT codePage, char16_t unit) {
  const auto wide = static_cast<wchar_t>(unit);
  unsigned char bytes[8] = {};
  const int length = WideCharToMultiByte(codePage, 0, &wide, 1, reinterpret_cast<char*>(bytes),
                                         sizeof bytes, nullptr, nullptr);
  if (length == 1) return bytes[0];
  return static_cast<std::uint16_t>(bytes[0] << 8 | bytes[1]);
}

}  // namespace

std::uint16_t WindowsPlatform::AnsiCode(char16_t unit) const {
  return CodeIn(CP_ACP, unit);
}

std::uint16_t WindowsPlatform::GbkCode(char16_t unit) const {
  return CodeIn(936, unit);
}

std::optional<char16_t> WindowsPlatform::AnsiCharacter(std::uint16_t code) const {
  const char bytes[] = {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
  const bool two = code > 0xFF;
  wchar_t wide[2] = {};
  const int length = MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, two ? bytes : bytes + 1,
                                         two ? 2 : 1, wide, 2);
  if (length != 1) return std::nullopt;
  return static_cast<char16_t>(wide[0]);
}

std::optional<Date> WindowsPlatform::ParseDate(TextView text) const {
  if (const auto date = ParseCommonDate(text)) return date;
  const Text copy(text);
  DATE serial = 0;
  if (FAILED(VarDateFromStr(const_cast<OLECHAR*>(Wide(copy)), LOCALE_USER_DEFAULT, 0, &serial)))
    return std::nullopt;
  return Date{serial};
}

Date WindowsPlatform::Now() const {
  SYSTEMTIME now;
  GetLocalTime(&now);
  now.wMilliseconds = 0;
  DATE serial = 0;
  SystemTimeToVariantTime(&now, &serial);
  return Date{serial};
}

namespace {

constexpr CLSID kLogClass = {
    0x78A8C12C, 0xB07A, 0x443A, {0x8C, 0xB5, 0xBC, 0x9F, 0x6A, 0x8F, 0x36, 0x5D}};

class HostLog : public LogComponent {
 public:
  HostLog() {
    Called(CoCreateInstance(kLogClass, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                            IID_IHostLog, reinterpret_cast<void**>(log_.Out())),
           nullptr);
  }

  bool Write(TextView message, TextView strA, TextView strB, std::int32_t lngC) override {
    VARIANT_BOOL written = VARIANT_FALSE;
    Called(log_->WriteLog(Bstr(message).get(), Bstr(strA).get(), Bstr(strB).get(), lngC, &written),
           log_.get());
    return written != VARIANT_FALSE;
  }

 private:
  HostPtr<IHostLog> log_;
};

// Not inside the function: guarding that would take a thread-local index and two handles at every
// load, which the run-time never gives back.
WindowsPlatform platform;

}  // namespace

std::shared_ptr<LogComponent> WindowsPlatform::CreateLog() {
  return std::make_shared<HostLog>();
}

Platform& DefaultPlatform() {
  return platform;
}

}  // namespace fetchkit
