#include "demo/windows/com/ConnectionObject.h"

#include <utility>

#include "component/com/ComObject.h"
#include "demo/windows/com/AdoRows.h"
#include "fetchkit/base/Error.h"

namespace fetchkit::demo {
namespace {

class AccountTypeObject
    : public ComObject<IHostAccountType, IID_IHostAccountType, HostAccountType> {
 public:
  using Dual = IHostAccountType;
  using ComObject::ComObject;

  STDMETHODIMP get_AccountType(long* result) noexcept override {
    return Answer(result, [&] { return ToLong(core().AccountType()); });
  }
};

class AccountLoginObject
    : public ComObject<IHostAccountLogin, IID_IHostAccountLogin, HostAccountLogin> {
 public:
  using Dual = IHostAccountLogin;
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
  using Dual = IHostLoginContext;
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
  using Dual = IHostContext;
  using ComObject::ComObject;

  STDMETHODIMP get_AccountTypeInfo(IHostAccountType** result) noexcept override {
    return Answer(result, [&] { return ShellOf<AccountTypeObject>(core().AccountTypeInfo()); });
  }
  STDMETHODIMP get_AccountLogin(IHostAccountLogin** result) noexcept override {
    return Answer(result, [&] { return ShellOf<AccountLoginObject>(core().AccountLogin()); });
  }
  STDMETHODIMP get_LoginContext(IHostLoginContext** result) noexcept override {
    return Answer(result, [&] { return ShellOf<LoginContextObject>(core().LoginContext()); });
  }
};

class ConnectionObject
    : public ComObject<ISessionConnection, IID_ISessionConnection, SampleConnection> {
 public:
  using Dual = ISessionConnection;
  using ComObject::ComObject;

  STDMETHODIMP get_HostContext(IHostContext** result) noexcept override {
    return Answer(result, [&] { return ShellOf<ContextObject>(core().HostContext()); });
  }
  STDMETHODIMP CloseRecordset(IDispatch** recordset) noexcept override {
    if (!recordset) return E_POINTER;
    return Run([&] {
      RecordsetPtr rows = RowsOf(*recordset);
      core().CloseRecordset(rows);
      std::exchange(*recordset, nullptr)->Release();
    });
  }
  STDMETHODIMP RecordsetIsEmpty(IDispatch** recordset, VARIANT_BOOL* isEmpty) noexcept override {
    if (!recordset || !isEmpty) return E_POINTER;
    return Run([&] {
      RecordsetPtr rows = RowsOf(*recordset);
      bool empty = false;
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
  STDMETHODIMP ExecuteSql(BSTR sql, long option, VARIANT* outValue,
                          VARIANT_BOOL* result) noexcept override {
    if (!outValue) return E_POINTER;
    return Answer(result, [&] {
      InOutValue out(outValue);
      return core().ExecuteSql(ViewOf(sql), option, out);
    });
  }

 private:
  // What the caller's variable held is released once there is something to put in its place.
  template <class Opening>
  static HRESULT Open(IDispatch** recordset, VARIANT_BOOL* result, Opening&& opening) noexcept {
    if (!recordset) return E_POINTER;
    return Answer(result, [&] {
      RecordsetPtr rows;
      if (!opening(rows)) return false;
      IDispatch* opened = AdoRecordsetOf(std::dynamic_pointer_cast<MemoryRecordset>(rows));
      if (IDispatch* before = std::exchange(*recordset, opened)) before->Release();
      return true;
    });
  }
};

}  // namespace

ISessionConnection* ConnectionObjectOf(std::shared_ptr<SampleConnection> connection) {
  return ShellOf<ConnectionObject>(std::move(connection));
}

}  // namespace fetchkit::demo
