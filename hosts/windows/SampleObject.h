// FetchKitHost.Sample: the sample accounts behind one dual interface.
#pragma once

#include "component/com/ComObject.h"
#include "demo/SampleHost.h"
#include "idl/FetchKitHostLibrary.h"

namespace fetchkit::hosts {

class SampleObject : public ComObject<ISampleHost, IID_ISampleHost, demo::SampleHost> {
 public:
  using Dual = ISampleHost;
  using ComObject::ComObject;

  STDMETHODIMP get_Logins(VARIANT* result) noexcept override;
  STDMETHODIMP Connection(BSTR strLogin, BSTR strServer, IDispatch** result) noexcept override;
  STDMETHODIMP get_StatementCount(long* result) noexcept override;
  STDMETHODIMP get_StatementText(long lngNumber, BSTR* result) noexcept override;
  STDMETHODIMP get_StatementAnswer(long lngNumber, BSTR* result) noexcept override;
  STDMETHODIMP ForgetStatements() noexcept override;
  STDMETHODIMP get_OpenRecordsets(long* result) noexcept override;
  STDMETHODIMP OpenRecordset(BSTR strSql, IDispatch** result) noexcept override;
  STDMETHODIMP CloseRecordset(IDispatch* objRecordset) noexcept override;
  STDMETHODIMP get_Keywords(VARIANT* result) noexcept override;
  STDMETHODIMP Unescaped(BSTR strText, BSTR* result) noexcept override;
  STDMETHODIMP WriteLine(BSTR strText) noexcept override;

 private:
  // Error (InvalidCall) for a number that no statement has.
  const StatementReport& Report(long number) const;
  TracedConnection& CurrentConnection() const;
};

}  // namespace fetchkit::hosts
