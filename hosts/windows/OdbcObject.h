// FetchKitHost.Odbc: a database over ODBC and a login to it behind one dual interface.
#pragma once

#include <memory>

#include "component/com/Members.h"
#include "hosts/odbc/OdbcConnection.h"
#include "idl/FetchKitHostLibrary.h"

namespace fetchkit::hosts {

// What the object holds.
class OdbcHost {
 public:
  OdbcSettings settings;  // for the next Open

  // May be told before the database is opened, and stays when it is opened again.
  Login& login() { return connection_ ? connection_->login : login_; }

  // Error (Host) in the driver's words; InvalidCall for an engine that is none. On failure nothing
  // is open.
  void Open(TextView connectionString, TextView engine);
  void Close();

  // Error (ObjectMissing) when nothing is open.
  const std::shared_ptr<OdbcConnection>& Connection() const;
  bool IsOpen() const { return connection_ != nullptr; }

 private:
  std::shared_ptr<OdbcConnection> connection_;
  Login login_;  // while nothing is open
};

class OdbcObject : public ComObject<IOdbcHost, IID_IOdbcHost, OdbcHost> {
 public:
  using Dual = IOdbcHost;
  using ComObject::ComObject;

  FETCHKIT_METHOD(Open, 2)
  FETCHKIT_METHOD(Close, 0)
  STDMETHODIMP get_IsOpen(VARIANT_BOOL* result) noexcept override;
  STDMETHODIMP get_Connection(IDispatch** result) noexcept override;
  STDMETHODIMP get_AccountType(long* result) noexcept override;
  STDMETHODIMP put_AccountType(long value) noexcept override;
  STDMETHODIMP get_Server(BSTR* result) noexcept override;
  STDMETHODIMP put_Server(BSTR value) noexcept override;
  STDMETHODIMP get_UserId(BSTR* result) noexcept override;
  STDMETHODIMP put_UserId(BSTR value) noexcept override;
  STDMETHODIMP get_LoginDate(BSTR* result) noexcept override;
  STDMETHODIMP put_LoginDate(BSTR value) noexcept override;
  STDMETHODIMP get_OrganizationId(long* result) noexcept override;
  STDMETHODIMP put_OrganizationId(long value) noexcept override;
  STDMETHODIMP get_OperatorId(long* result) noexcept override;
  STDMETHODIMP put_OperatorId(long value) noexcept override;
  STDMETHODIMP put_Password(BSTR value) noexcept override;
  STDMETHODIMP get_Item(BSTR strName, VARIANT* result) noexcept override;
  STDMETHODIMP put_Item(BSTR strName, VARIANT value) noexcept override;
  STDMETHODIMP get_StatementTimeout(long* result) noexcept override;
  STDMETHODIMP put_StatementTimeout(long value) noexcept override;
  STDMETHODIMP get_LoginTimeout(long* result) noexcept override;
  STDMETHODIMP put_LoginTimeout(long value) noexcept override;
  STDMETHODIMP get_ReadOnly(VARIANT_BOOL* result) noexcept override;
  STDMETHODIMP put_ReadOnly(VARIANT_BOOL value) noexcept override;
  STDMETHODIMP OpenRecordset(BSTR strSql, IDispatch** result) noexcept override;
  STDMETHODIMP CloseRecordset(IDispatch* objRecordset) noexcept override;
  STDMETHODIMP get_LastRefusal(BSTR* result) noexcept override;
};

}  // namespace fetchkit::hosts
