#include "component/com/ClassFactory.h"

#include "component/com/Boundary.h"
#include "component/com/ComPtr.h"
#include "component/com/Module.h"

namespace fetchkit {
namespace {

class ClassFactory : public IClassFactory {
 public:
  explicit ClassFactory(const CreatableClass& of) : of_(of) { Module::Enter(); }
  ClassFactory(const ClassFactory&) = delete;
  ClassFactory& operator=(const ClassFactory&) = delete;

  STDMETHODIMP QueryInterface(REFIID asked, void** object) noexcept override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (asked != IID_IClassFactory && asked != IID_IUnknown) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() noexcept override {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
  }
  STDMETHODIMP_(ULONG) Release() noexcept override {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID asked, void** object) noexcept override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    return Run([&] {
      const auto fresh = ComPtr<IUnknown>::Attach(of_.create());
      const HRESULT result = fresh->QueryInterface(asked, object);
      if (FAILED(result)) throw ComError{result};
    });
  }
  STDMETHODIMP LockServer(BOOL lock) noexcept override {
    if (lock)
      Module::Enter();
    else
      Module::Leave();
    return S_OK;
  }

 private:
  virtual ~ClassFactory() { Module::Leave(); }

  LONG references_ = 0;
  const CreatableClass& of_;
};

}  // namespace

HRESULT GetClassObject(std::span<const CreatableClass> classes, REFCLSID asked, REFIID interfaceId,
                       void** object) noexcept {
  if (!object) return E_POINTER;
  *object = nullptr;
  for (const CreatableClass& each : classes) {
    if (*each.id != asked) continue;
    return Run([&] {
      const ComPtr<IClassFactory> factory(new ClassFactory(each));
      const HRESULT result = factory->QueryInterface(interfaceId, object);
      if (FAILED(result)) throw ComError{result};
    });
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace fetchkit
