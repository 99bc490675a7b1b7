#include "support/ComHost.h"

#include <cstdint>
#include <exception>
#include <utility>

#include "component/com/Bstr.h"
#include "component/com/Variants.h"
#include "component/host/Ado.h"
#include "fetchkit/base/Utf8.h"

namespace fetchkit::test {
namespace {

using PlanPtr = std::shared_ptr<HostPlan>;

template <class I, const IID& id>
class HostObject : public I {
 public:
  explicit HostObject(PlanPtr plan) : plan_(std::move(plan)) {}
  virtual ~HostObject() = default;

  STDMETHODIMP QueryInterface(REFIID asked, void** object) override {
    *object = nullptr;
    if (asked != IID_IUnknown && asked != IID_IDispatch && !Has(asked)) return E_NOINTERFACE;
    *object = static_cast<I*>(this);
    this->AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override {
    ++plan_->references;
    return ++references_;
  }
  STDMETHODIMP_(ULONG) Release() override {
    --plan_->references;
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    return E_NOTIMPL;
  }

 protected:
  virtual bool Has(REFIID asked) const { return asked == id; }

  // Runs a member unless it is the one that is to fail; what the portable host throws is E_FAIL.
  template <class Body>
  HRESULT Call(const char* member, Body body) {
    const PlanPtr plan = plan_;
    if (plan->onCall) plan->onCall(member);
    if (++plan->calls == plan->failAt) return plan->failure;
    try {
      body();
      return S_OK;
    } catch (const std::exception&) {
      return E_FAIL;
    }
  }

  void GiveNumber(const Value& value, bool isFlag, VARIANT* out) const {
    ToVariant(value, out);
    const VARTYPE type = plan_->numbersAs;
    if (type == VT_EMPTY || out->vt != VT_I4 || (type == VT_BOOL && !isFlag)) return;
    VariantChangeType(out, out, 0, type);
  }

  template <class Object, class Part, class... Arguments>
  HRESULT Give(const char* member, Part** out, Arguments... arguments) {
    return Call(member, [&] {
      if (!plan_->nullObjects.contains(member))
        *out = ComPtr<Part>(new Object(plan_, std::move(arguments)...)).Detach();
    });
  }

  PlanPtr plan_;

 private:
  ULONG references_ = 0;
};

class FieldObject : public HostObject<ado::Field, ado::Field::kId> {
 public:
  FieldObject(PlanPtr plan, RecordsetPtr rows, std::size_t column, bool isFlag)
      : HostObject(std::move(plan)), rows_(std::move(rows)), column_(column), isFlag_(isFlag) {}
  STDMETHODIMP get_Name(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP get_Type(int*) override { return E_NOTIMPL; }
  STDMETHODIMP get_Value(VARIANT* value) override {
    return Call("Value", [&] { GiveNumber(rows_->At(column_), isFlag_, value); });
  }
  STDMETHODIMP put_Value(VARIANT) override { return E_NOTIMPL; }

 private:
  RecordsetPtr rows_;
  std::size_t column_;
  bool isFlag_;
};

class FieldsObject : public HostObject<ado::Fields, ado::Fields::kId> {
 public:
  FieldsObject(PlanPtr plan, RecordsetPtr rows)
      : HostObject(std::move(plan)), rows_(std::move(rows)) {}
  STDMETHODIMP get_Count(long*) override { return E_NOTIMPL; }
  STDMETHODIMP get_Item(VARIANT name, ado::Field** field) override {
    std::size_t column = 0;
    const HRESULT found =
        Call("Fields.Item", [&] { column = rows_->Column(ViewOf(name.bstrVal)); });
    const bool isFlag = ViewOf(name.bstrVal).starts_with(u"bln");
    return FAILED(found) ? found : Give<FieldObject>("Field", field, rows_, column, isFlag);
  }

 private:
  RecordsetPtr rows_;
};

class RecordsetObject : public HostObject<ado::Recordset, ado::Recordset::kId> {
 public:
  RecordsetObject(PlanPtr plan, RecordsetPtr recordset)
      : HostObject(std::move(plan)), rows(std::move(recordset)) {}

  bool Has(REFIID asked) const override {
    return asked == ado::Recordset::kId && !plan_->otherRecordsets;
  }
  STDMETHODIMP get_BOF(VARIANT_BOOL* bof) override {
    return Call("BOF", [&] { *bof = rows->Bof() ? VARIANT_TRUE : VARIANT_FALSE; });
  }
  STDMETHODIMP get_EOF(VARIANT_BOOL* eof) override {
    return Call("EOF", [&] { *eof = rows->Eof() ? VARIANT_TRUE : VARIANT_FALSE; });
  }
  STDMETHODIMP get_Fields(ado::Fields** fields) override {
    return Give<FieldsObject>("Fields", fields, rows);
  }
  STDMETHODIMP get_RecordCount(ado::Position* count) override {
    return Call("RecordCount", [&] { *count = rows->RecordCount(); });
  }
  STDMETHODIMP Close() override { return S_OK; }
  STDMETHODIMP MoveNext() override {
    return Call("MoveNext", [&] { rows->MoveNext(); });
  }
  STDMETHODIMP MovePrevious() override { return E_NOTIMPL; }
  STDMETHODIMP MoveFirst() override {
    return Call("MoveFirst", [&] { rows->MoveFirst(); });
  }
  STDMETHODIMP MoveLast() override {
    return Call("MoveLast", [&] { rows->MoveLast(); });
  }

  RecordsetPtr rows;
};

void GiveText(const Value& value, BSTR* out) {
  *out = NewBstr(ToText(value));
}

template <class I, const IID& id, class Portable>
class PartObject : public HostObject<I, id> {
 public:
  PartObject(PlanPtr plan, std::shared_ptr<Portable> part)
      : HostObject<I, id>(std::move(plan)), part_(std::move(part)) {}

 protected:
  std::shared_ptr<Portable> part_;
};

class AccountTypeObject
    : public PartObject<IHostAccountType, IID_IHostAccountType, HostAccountType> {
 public:
  using PartObject::PartObject;
  STDMETHODIMP get_AccountType(long* result) override {
    return Call("AccountType", [&] { *result = ToLong(part_->AccountType()); });
  }
};

class AccountLoginObject
    : public PartObject<IHostAccountLogin, IID_IHostAccountLogin, HostAccountLogin> {
 public:
  using PartObject::PartObject;
  STDMETHODIMP get_ServerName(BSTR* result) override {
    return Call("ServerName", [&] { GiveText(part_->ServerName(), result); });
  }
  STDMETHODIMP get_UserId(BSTR* result) override {
    return Call("UserId", [&] { GiveText(part_->UserId(), result); });
  }
};

class LoginContextObject
    : public PartObject<IHostLoginContext, IID_IHostLoginContext, HostLoginContext> {
 public:
  using PartObject::PartObject;
  STDMETHODIMP get_LoginDate(BSTR* result) override {
    return Call("LoginDate", [&] { GiveText(part_->LoginDate(), result); });
  }
  STDMETHODIMP get_OrganizationId(long* result) override {
    return Call("OrganizationId", [&] { *result = ToLong(part_->OrganizationId()); });
  }
  STDMETHODIMP get_OperatorId(long* result) override {
    return Call("OperatorId", [&] { *result = ToLong(part_->OperatorId()); });
  }
  STDMETHODIMP get_Password(BSTR* result) override {
    return Call("Password", [&] { GiveText(part_->Password(), result); });
  }
  STDMETHODIMP get_Item(BSTR name, VARIANT* result) override {
    return Call("Item", [&] { GiveNumber(part_->Item(ViewOf(name)), false, result); });
  }
};

class ContextObject : public PartObject<IHostContext, IID_IHostContext, HostContext> {
 public:
  using PartObject::PartObject;
  STDMETHODIMP get_AccountTypeInfo(IHostAccountType** result) override {
    return Give<AccountTypeObject>("AccountTypeInfo", result, part_->AccountTypeInfo());
  }
  STDMETHODIMP get_AccountLogin(IHostAccountLogin** result) override {
    return Give<AccountLoginObject>("AccountLogin", result, part_->AccountLogin());
  }
  STDMETHODIMP get_LoginContext(IHostLoginContext** result) override {
    return Give<LoginContextObject>("LoginContext", result, part_->LoginContext());
  }
};

class ConnectionObject
    : public PartObject<ISessionConnection, IID_ISessionConnection, SessionConnection> {
 public:
  using PartObject::PartObject;
  STDMETHODIMP get_HostContext(IHostContext** result) override {
    return Give<ContextObject>("HostContext", result, part_->HostContext());
  }
  STDMETHODIMP CloseRecordset(IDispatch** recordset) override {
    if (plan_->recordset) return std::exchange(*recordset, nullptr)->Release(), S_OK;
    // Closed also where the call is to fail: what is tested then is that the library lets go of it.
    part_->CloseRecordset(static_cast<RecordsetObject*>(*recordset)->rows);
    return Call("CloseRecordset", [&] { std::exchange(*recordset, nullptr)->Release(); });
  }
  STDMETHODIMP RecordsetIsEmpty(IDispatch** recordset, VARIANT_BOOL* isEmpty) override {
    return Call("RecordsetIsEmpty", [&] {
      if (plan_->recordset) return void(*isEmpty = VARIANT_FALSE);
      bool empty = *isEmpty != VARIANT_FALSE;
      part_->RecordsetIsEmpty(static_cast<RecordsetObject*>(*recordset)->rows, empty);
      *isEmpty = empty ? VARIANT_TRUE : VARIANT_FALSE;
    });
  }
  STDMETHODIMP OpenStaticRecordset(BSTR sql, IDispatch** recordset, long cursorType, long lockType,
                                   long commandType, long option, VARIANT_BOOL* result) override {
    return Open("OpenStaticRecordset", recordset, result, [&](RecordsetPtr& rows) {
      return part_->OpenStaticRecordset(ViewOf(sql), rows, cursorType, lockType, commandType,
                                        option);
    });
  }
  STDMETHODIMP OpenRecordset(BSTR sql, IDispatch** recordset, long option1, long option2,
                             VARIANT_BOOL* result) override {
    return Open("OpenRecordset", recordset, result, [&](RecordsetPtr& rows) {
      return part_->OpenRecordset(ViewOf(sql), rows, option1, option2);
    });
  }
  STDMETHODIMP ExecuteSql(BSTR sql, long option, VARIANT*, VARIANT_BOOL* result) override {
    return Call("ExecuteSql", [&] {
      Value unused;
      *result = part_->ExecuteSql(ViewOf(sql), option, unused) ? VARIANT_TRUE : VARIANT_FALSE;
    });
  }

 private:
  template <class Body>
  HRESULT Open(const char* member, IDispatch** recordset, VARIANT_BOOL* result, Body body) {
    return Call(member, [&] {
      if (plan_->recordset) {
        *result = VARIANT_TRUE;
        *recordset = ComPtr<IDispatch>(plan_->recordset).Detach();
        return;
      }
      RecordsetPtr rows;
      *result = body(rows) ? VARIANT_TRUE : VARIANT_FALSE;
      if (rows) *recordset = ComPtr<IDispatch>(new RecordsetObject(plan_, rows)).Detach();
    });
  }
};

}  // namespace

ComPtr<ISessionConnection> MakeComHost(SessionConnectionPtr connection, PlanPtr plan) {
  return ComPtr<ISessionConnection>(new ConnectionObject(std::move(plan), std::move(connection)));
}

}  // namespace fetchkit::test
