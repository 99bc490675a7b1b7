// A portable connection and its login as the component expects its host's. ConnectionObject is the
// way in; ShellOf makes it.
#pragma once

#include <memory>
#include <utility>

#include "component/com/Members.h"
#include "fetchkit/host/SessionConnection.h"
#include "hosts/windows/AdoRows.h"
#include "idl/FetchKitHost.h"

namespace fetchkit::hosts {

class AccountTypeObject
    : public ComObject<IHostAccountType, IID_IHostAccountType, HostAccountType> {
 public:
  using ComObject::ComObject;

  STDMETHODIMP get_AccountType(long* result) noexcept override {
    return Answer(result, [&] { return ToLong(core().AccountType()); });
  }
};

class AccountLoginObject
    : public ComObject<IHostAccountLogin, IID_IHostAccountLogin, HostAccountLogin> {
 public:
  using ComObject::ComObject;

  STDMETHODIMP get_ServerName(BSTR* result) noexcept override {
    return Answer(result, [&] { return ToText(core().ServerName()); });
  }
  STDMETHODIMP get_UserId(BSTR* result) noexcept override {
    return Answer(result, [&] { return ToText(core().UserId()); });
  }
};

class LoginContextObject
    : public ComObject<IHostLoginContext, IID_IHostLoginContext, HostLoginContext> {
 public:
  using ComObject::ComObject;

  STDMETHODIMP get_LoginDate(BSTR* result) noexcept override {
    return Answer(result, [&] { return ToText(core().LoginDate()); });
  }
  STDMETHODIMP get_OrganizationId(long* result) noexcept override {
    return Answer(result, [&] { return ToLong(core().OrganizationId()); });
  }
  STDMETHODIMP get_OperatorId(long* result) noexcept override {
    return Answer(result, [&] { return ToLong(core().OperatorId()); });
  }
  STDMETHODIMP get_Password(BSTR* result) noexcept override {
    return Answer(result, [&] { return ToText(core().Password()); });
  }
  STDMETHODIMP get_Item(BSTR name, VARIANT* result) noexcept override {
    return Answer(result, [&] { return core().Item(ViewOf(name)); });
  }
};

class ContextObject : public ComObject<IHostContext, IID_IHostContext, HostContext> {
 public:
  using ComObject::ComObject;

  FETCHKIT_OBJECT(AccountTypeInfo, AccountTypeObject)
  FETCHKIT_OBJECT(AccountLogin, AccountLoginObject)
  FETCHKIT_OBJECT(LoginContext, LoginContextObject)
};

class ConnectionObject
    : public ComObject<ISessionConnection, IID_ISessionConnection, SessionConnection> {
 public:
  explicit ConnectionObject(SessionConnectionPtr connection)
      : ComObject(connection), connection_(std::move(connection)) {}

  FETCHKIT_OBJECT(HostContext, ContextObject)
  STDMETHODIMP CloseRecordset(IDispatch** recordset) noexcept override {
    if (!recordset) return E_POINTER;
    return Run([&] {
      GiveBack(*recordset, core());
      std::exchange(*recordset, nullptr)->Release();
    });
  }
  STDMETHODIMP RecordsetIsEmpty(IDispatch** recordset, VARIANT_BOOL* isEmpty) noexcept override {
    if (!recordset || !isEmpty) return E_POINTER;
    return Run([&] {
      RecordsetPtr rows = RowsOf(*recordset);
      bool empty = *isEmpty != VARIANT_FALSE;
      core().RecordsetIsEmpty(rows, empty);
      Leave(empty, isEmpty);
    });
  }
  STDMETHODIMP OpenStaticRecordset(BSTR sql, IDispatch** recordset, long cursorType, long lockType,
                                   long commandType, long option,
                                   VARIANT_BOOL* result) noexcept override {
    return Open(recordset, result, [&](RecordsetPtr& rows) {
      return core().OpenStaticRecordset(ViewOf(sql), rows, cursorType, lockType, commandType,
                                        option);
    });
  }
  STDMETHODIMP OpenRecordset(BSTR sql, IDispatch** recordset, long option1, long option2,
                             VARIANT_BOOL* result) noexcept override {
    return Open(recordset, result, [&](RecordsetPtr& rows) {
      return core().OpenRecordset(ViewOf(sql), rows, option1, option2);
    });
  }
  FETCHKIT_METHOD(ExecuteSql, 4)

 private:
  // What the caller's variable held is released once there is something to put in its place.
  template <class Opening>
  HRESULT Open(IDispatch** recordset, VARIANT_BOOL* result, Opening&& opening) noexcept {
    if (!recordset) return E_POINTER;
    return Answer(result, [&] {
      RecordsetPtr rows;
      if (!opening(rows)) return false;
      IDispatch* opened = RecordsetOf(std::move(rows), connection_);
      if (IDispatch* before = std::exchange(*recordset, opened)) before->Release();
      return true;
    });
  }

  SessionConnectionPtr connection_;
};

inline ComPtr<ISessionConnection> ConnectionObjectOf(SessionConnectionPtr connection) {
  return ComPtr<ISessionConnection>::Attach(ShellOf<ConnectionObject>(std::move(connection)));
}

}  // namespace fetchkit::hosts
