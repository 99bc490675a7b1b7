// FetchKit.Diagnostics.
//
// One line per member: arguments in, the core's member, the result out.
#pragma once

#include "component/com/Members.h"
#include "component/objects/Diagnostics.h"
#include "idl/FetchKit.h"

namespace fetchkit {

class DiagnosticsObject : public ComObject<IDiagnostics, IID_IDiagnostics, fetchkit::Diagnostics> {
 public:
  using ComObject::ComObject;

  FETCHKIT_GETTER(FailureCount)
  FETCHKIT_GETTER(LastMember)
  FETCHKIT_GETTER(LastText)
  FETCHKIT_GETTER(LastStatement)
  FETCHKIT_GETTER(LastDatabaseText)
  FETCHKIT_GETTER(LastFailure)
  STDMETHODIMP get_LoginState(LoginStateConstants* result) noexcept override {
    return Answer(result, [&] { return static_cast<LoginStateConstants>(core().LoginExtent()); });
  }
  FETCHKIT_GETTER(LoginReasons)
  FETCHKIT_METHOD(Clear, 0)
  STDMETHODIMP get_Listener(IDispatch** result) noexcept override {
    return Answer(result, [&] { return core().Listener().Detach(); });
  }
  // Some languages assign objects in the one way, some in the other.
  STDMETHODIMP put_Listener(IDispatch* object) noexcept override {
    return Run([&] { core().Listener(ComPtr<IDispatch>(object)); });
  }
  STDMETHODIMP putref_Listener(IDispatch* object) noexcept override { return put_Listener(object); }
  FETCHKIT_PROPERTY(LogFile)
};

}  // namespace fetchkit
