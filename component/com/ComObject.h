// Base of the COM objects: counting, identity, late-bound calls, error information.
#pragma once

#include <memory>
#include <utility>

#include "component/Windows.h"
#include "component/com/Boundary.h"
#include "component/com/Dispatch.h"
#include "component/com/Module.h"
#include "component/com/Shells.h"

namespace fetchkit {

// The shell of a core object under one dual interface I. It shares the core object and keeps the
// DLL loaded; the core object does not keep it. While it lives, asking for the same core object
// again gives the same shell (ShellOf below).
template <class I, const IID& id, class CoreObject>
class ComObject : public I, public ISupportErrorInfo, public IProvideClassInfo {
 public:
  using Dual = I;
  using Core = CoreObject;

  explicit ComObject(std::shared_ptr<Core> core) : core_(std::move(core)) {
    Shells::Add(core_.get(), static_cast<I*>(this));
    Module::Enter();
  }
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  STDMETHODIMP QueryInterface(REFIID asked, void** object) noexcept override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (asked == id || asked == IID_IDispatch || asked == IID_IUnknown)
      *object = static_cast<I*>(this);
    else if (asked == IID_ISupportErrorInfo)
      *object = static_cast<ISupportErrorInfo*>(this);
    else if (asked == IID_IProvideClassInfo)
      *object = static_cast<IProvideClassInfo*>(this);
    else
      return E_NOINTERFACE;
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

  STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept override {
    return DispatchTypeInfo(id, index, info);
  }
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                             DISPID* ids) noexcept override {
    return DispatchIdsOfNames(id, reserved, names, count, ids);
  }
  STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept override {
    return DispatchInvoke(id, reserved, static_cast<I*>(this), member, flags, parameters, result,
                          exception, badArgument);
  }

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID asked) noexcept override {
    return asked == id ? S_OK : S_FALSE;
  }

  STDMETHODIMP GetClassInfo(ITypeInfo** info) noexcept override {
    return DispatchClassInfo(id, info);
  }

 protected:
  // Destroyed by the last Release only.
  virtual ~ComObject() {
    Shells::Remove(core_.get());
    // What goes with the core may be slow or the caller's own code: the DLL stays until it has
    // gone.
    core_.reset();
    Module::Leave();
  }

  Core& core() const { return *core_; }

 private:
  LONG references_ = 0;
  std::shared_ptr<Core> core_;
};

// The shell of the core object, with a reference for the caller: the living one, or a new one. Null
// for no object.
template <class Shell, class Core>
auto ShellOf(std::shared_ptr<Core> core) -> typename Shell::Dual* {
  using Dual = typename Shell::Dual;
  if (!core) return nullptr;
  if (auto* living = static_cast<Dual*>(Shells::Find(core.get()))) {
    living->AddRef();
    return living;
  }
  Dual* fresh = new Shell(std::move(core));
  fresh->AddRef();
  return fresh;
}

}  // namespace fetchkit
