// What a call of the component costs, as ratios to a plain virtual call and to the native core.
// Runs beside FetchKit.dll. Usage: fetchkit-call-costs
#include <algorithm>
#include <cstdint>
#include <cstdio>

#include "bench/windows/ImportCounter.h"
#include "component/Windows.h"
#include "component/com/Bstr.h"
#include "component/com/ComPtr.h"
#include "fetchkit/utility/Utility.h"
#include "idl/FetchKit.h"

namespace fetchkit {
namespace {

class Plain {
 public:
  virtual ~Plain() = default;
  virtual std::int32_t Answer() const { return 1; }
};

volatile std::int64_t sink;  // keeps the calls alive

std::int64_t Ticks() {
  LARGE_INTEGER now;
  QueryPerformanceCounter(&now);
  return now.QuadPart;
}

// Nanoseconds per call: the best of several rounds.
template <class Body>
double Time(int calls, Body body) {
  LARGE_INTEGER frequency;
  QueryPerformanceFrequency(&frequency);
  std::int64_t best = INT64_MAX;
  for (int round = 0; round < 7; ++round) {
    const std::int64_t start = Ticks();
    for (int i = 0; i < calls; ++i)
      body();
    best = std::min(best, Ticks() - start);
  }
  return static_cast<double>(best) * 1e9 / static_cast<double>(frequency.QuadPart) / calls;
}

void Row(const char* what, double time, double plain, double core) {
  std::printf("%-44s %9.1f ns %9.0f x", what, time, time / plain);
  if (core > 0) std::printf(" %9.1f x", time / core);
  std::printf("\n");
}

int Main() {
  const HMODULE module = LoadLibraryW(L"FetchKit.dll");
  if (!module || FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {
    std::printf("FetchKit.dll is not beside this program\n");
    return 2;
  }
  const auto getClass = reinterpret_cast<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>(
      reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
  ComPtr<IClassFactory> factory;
  ComPtr<IUtility> utility;
  if (FAILED(getClass(CLSID_Utility, IID_IClassFactory, reinterpret_cast<void**>(factory.Out()))) ||
      FAILED(
          factory->CreateInstance(nullptr, IID_IUtility, reinterpret_cast<void**>(utility.Out()))))
    return 2;

  const Plain object;
  const Plain* volatile seen = &object;
  const Utility native;
  const Bstr text(u"科目编码");
  const Bstr mark(u"目");
  const Bstr list(u"AB12");
  long handle = 0;

  const double plain = Time(2000000, [&] { sink = seen->Answer(); });
  const double coreNumber =
      Time(500000, [&] { sink = native.CharCount(text.view(), mark.view()); });
  const double coreText = Time(500000, [&] {
    sink = static_cast<int>(native.GetStrAfter(text.view(), mark.view(), true).size());
  });

  std::printf("%-44s %12s %11s %11s\n", "call", "time", "to virtual", "to native");
  Row("virtual call", plain, plain, 0);
  Row("native, number of two texts", coreNumber, plain, coreNumber);
  Row("native, text of two texts", coreText, plain, coreText);
  Row("early-bound, number",
      Time(500000,
           [&] {
             utility->CharCount(text.get(), mark.get(), &handle);
             sink = handle;
           }),
      plain, coreNumber);
  Row("early-bound, text",
      Time(500000,
           [&] {
             Bstr result;
             VARIANT_BOOL must = VARIANT_TRUE;
             utility->GetStrAfter(text.get(), mark.get(), &must, result.Out());
             sink = static_cast<int>(result.view().size());
           }),
      plain, coreText);
  Row("early-bound, two texts made for the call",
      Time(500000,
           [&] {
             const Bstr first(text.view());
             const Bstr second(mark.view());
             Bstr result;
             VARIANT_BOOL must = VARIANT_TRUE;
             utility->GetStrAfter(first.get(), second.get(), &must, result.Out());
             sink = static_cast<int>(result.view().size());
           }),
      plain, coreText);

  wchar_t member[] = L"CharCount";
  LPOLESTR name = member;
  DISPID id = 0;
  const auto invoke = [&] {
    VARIANT arguments[2];
    arguments[0].vt = arguments[1].vt = VT_BSTR;
    arguments[1].bstrVal = text.get();
    arguments[0].bstrVal = mark.get();
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    VARIANT result;
    VariantInit(&result);
    utility->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, &result,
                    nullptr, nullptr);
    sink = result.lVal;
  };
  utility->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  Row("late-bound by id, number", Time(20000, invoke), plain, coreNumber);
  Row("late-bound by name, number",
      Time(20000,
           [&] {
             utility->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
             invoke();
           }),
      plain, coreNumber);

  const Bstr longText(u"科目编码,科目名称,科目类别,余额方向,期初余额");
  const int nativeAllocations = ImportCounter(GetModuleHandleW(nullptr), "malloc").During([&] {
    sink = static_cast<int>(native.GetStrAfter(longText.view(), mark.view(), true).size());
  });
  int texts = 0;
  const int allocations = ImportCounter(module, "malloc").During([&] {
    texts = ImportCounter(module, "SysAllocStringLen").During([&] {
      Bstr result;
      VARIANT_BOOL must = VARIANT_TRUE;
      utility->GetStrAfter(longText.get(), mark.get(), &must, result.Out());
    });
  });
  std::printf("allocations for a text of two texts: %d native; %d and %d texts early-bound\n",
              nativeAllocations, allocations, texts);
  return 0;
}

}  // namespace
}  // namespace fetchkit

int main() {
  return fetchkit::Main();
}
