// FetchKit from C++, bound early: prints what stands in ../prints.txt.
//
// FetchKit.h comes with the component. The same program runs registered or not: with First.manifest
// inside (or beside it, as First.exe.manifest) it takes the DLLs that lie in its own folder.
//
//     cl /std:c++17 /EHsc /utf-8 First.cpp ole32.lib oleaut32.lib
#include <windows.h>

#include <oleauto.h>

#include <cstdio>
#include <string>

#include "FetchKit.h"

namespace {

// Owns an object; address() is for who fills it.
template <class T>
class Com {
 public:
  Com() = default;
  Com(const Com&) = delete;
  Com& operator=(const Com&) = delete;
  ~Com() {
    if (pointer_) pointer_->Release();
  }
  T** address() { return &pointer_; }
  T* operator->() const { return pointer_; }

 private:
  T* pointer_ = nullptr;
};

// Owns a text of the system's; null is the empty text.
class Bstr {
 public:
  explicit Bstr(const wchar_t* text = nullptr) : text_(text ? SysAllocString(text) : nullptr) {}
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  ~Bstr() { SysFreeString(text_); }
  operator BSTR() const { return text_; }
  BSTR* address() { return &text_; }
  std::wstring str() const { return {text_ ? text_ : L"", SysStringLen(text_)}; }

 private:
  BSTR text_;
};

void Print(const std::wstring& line) {
  std::string utf8(line.size() * 3, '\0');
  const int size = WideCharToMultiByte(CP_UTF8, 0, line.data(), static_cast<int>(line.size()),
                                       &utf8[0], static_cast<int>(utf8.size()), nullptr, nullptr);
  std::printf("%.*s\n", size, utf8.data());
}

std::wstring Iso(DATE date) {
  SYSTEMTIME time{};
  wchar_t text[40];
  VariantTimeToSystemTime(date, &time);
  std::swprintf(text, 40, L"%04d-%02d-%02d", time.wYear, time.wMonth, time.wDay);
  return text;
}

template <class T>
HRESULT Create(const wchar_t* progId, Com<T>& object) {
  CLSID id;
  const HRESULT result = CLSIDFromProgID(progId, &id);
  if (FAILED(result)) return result;
  return CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(T),
                          reinterpret_cast<void**>(object.address()));
}

// host.Connection("main"); a host of your own is the connection itself.
HRESULT SampleConnection(IDispatch* host, IDispatch** connection) {
  wchar_t member[] = L"Connection";
  LPOLESTR name = member;
  DISPID id = 0;
  HRESULT result = host->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(result)) return result;
  const Bstr login(L"main");
  VARIANT argument, answer;
  VariantInit(&argument);
  VariantInit(&answer);
  argument.vt = VT_BSTR;
  argument.bstrVal = login;
  DISPPARAMS arguments{&argument, nullptr, 1, 0};
  result = host->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &arguments, &answer,
                        nullptr, nullptr);
  if (SUCCEEDED(result)) *connection = answer.pdispVal;
  return result;
}

int Run() {
  // Keep one Interface for as long as the login is to last: when the last object of the library is
  // gone, the system may let the library go, and the login with it.
  Com<IDispatch> host, connection;
  Com<IInterface> fetch;
  HRESULT result = Create(L"FetchKitHost.Sample", host);
  if (SUCCEEDED(result)) result = SampleConnection(*host.address(), connection.address());
  if (SUCCEEDED(result)) result = Create(L"FetchKit.Interface", fetch);
  if (SUCCEEDED(result)) result = fetch->Initialize(connection.address());  // once per login
  Bstr name;
  if (SUCCEEDED(result)) fetch->get_LoginOrganizationName(name.address());
  if (name.str().empty()) {
    std::fprintf(stderr, "The login did not come in (0x%08lX).\n",
                 static_cast<unsigned long>(result));
    return 1;
  }

  Bstr code, date;
  fetch->get_LoginOrganizationCode(code.address());
  fetch->get_LoginDate(date.address());
  Print(code.str() + L" " + name.str() + L", " + date.str());

  Com<IActivity> activity;
  fetch->get_Activity(activity.address());
  DATE first = 0, last = 0;
  VARIANT_BOOL answer = VARIANT_FALSE;
  activity->GetDateRange(Bstr(L"\u672C\u6708"), &first, &last, &answer);
  if (answer) Print(L"this month: " + Iso(first) + L" to " + Iso(last));

  Com<IOperatorRight> rights;
  fetch->get_LoginOperatorRight(rights.address());
  rights->UserRight(Bstr(L"12"), &answer);
  Print(std::wstring(L"right 12: ") + (answer ? L"yes" : L"no"));

  Com<IListSet> list;
  if (FAILED(Create(L"FetchKit.ListSet", list))) return 1;
  list->put_ViewId(103);  // loads the view and the operator's list for it
  Bstr select, from, where;
  list->GetListSelect(select.address());
  list->get_ListFrom(from.address());
  list->get_ListWhere(where.address());
  Print(L"list 103: SELECT" + select.str() + L" FROM " + from.str() + L" WHERE " + where.str());
  return 0;
}

}  // namespace

int main() {
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
  const int status = Run();  // every object is released before the apartment ends
  CoUninitialize();
  return status;
}
