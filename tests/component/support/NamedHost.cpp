#include "support/NamedHost.h"

#include <algorithm>
#include <iterator>

#include "component/com/Boundary.h"
#include "component/com/Module.h"
#include "component/com/Variants.h"
#include "fetchkit/base/Utf8.h"

namespace fetchkit::test {
namespace {

constexpr IID kOwnObject = {
    0x3B0E6F52, 0x52C6, 0x4A0A, {0x9C, 0x11, 0x4E, 0x77, 0x0D, 0x9A, 0x51, 0x20}};

// The variable behind a reference, or a refusal before anything is done.
VARIANT View(const VARIANT& argument, References references, VARTYPE type) {
  const auto expected = static_cast<VARTYPE>(
      VT_BYREF | (references == References::Typed ? type : VARTYPE{VT_VARIANT}));
  if (argument.vt != expected) throw ComError{DISP_E_TYPEMISMATCH};
  VARIANT view{};
  view.vt = static_cast<VARTYPE>(VT_BYREF | type);
  view.byref = references == References::Typed ? argument.byref : &argument.pvarVal->llVal;
  return view;
}

template <class Object>
Value Held(Object* object) {
  return Value(Value::Object(object, [](void* held) { static_cast<Object*>(held)->Release(); }));
}

Value FieldOf(const RecordsetPtr& rows, std::size_t column) {
  return Held(
      ScriptObject::Make({{"Name", [=](auto) { return Value(rows->ColumnNames().at(column)); }},
                          {"Value", [=](auto) { return rows->At(column); }}})
          .Detach());
}

}  // namespace

ScriptObject::ScriptObject(Members members, RecordsetPtr rows)
    : members_(std::move(members)), rows_(std::move(rows)) {
  Module::Enter();
}

ScriptObject::~ScriptObject() {
  for (const auto& [name, times] : asked_)
    mostAsked = std::max(mostAsked, times);
  Module::Leave();
}

ComPtr<IDispatch> ScriptObject::Make(Members members, RecordsetPtr rows) {
  return ComPtr<IDispatch>::Attach(new ScriptObject(std::move(members), std::move(rows)));
}

RecordsetPtr ScriptObject::RowsOf(IUnknown* object) {
  const auto own = ComPtr<IUnknown>(object).As<ScriptObject>(kOwnObject);
  return own ? own->rows_ : nullptr;
}

HRESULT ScriptObject::QueryInterface(REFIID asked, void** object) noexcept {
  const bool known = asked == IID_IUnknown || asked == IID_IDispatch || asked == kOwnObject;
  *object = known ? this : nullptr;
  if (!known) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG ScriptObject::Release() noexcept {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT ScriptObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) noexcept {
  const std::string name = ToUtf8({reinterpret_cast<const char16_t*>(names[0])});
  ++asked_[name];
  const auto found = members_.find(name);
  *ids = found == members_.end()
             ? DISPID_UNKNOWN
             : static_cast<DISPID>(std::distance(members_.begin(), found)) + 100;
  return found == members_.end() ? DISP_E_UNKNOWNNAME : S_OK;
}

HRESULT ScriptObject::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters,
                             VARIANT* result, EXCEPINFO* exception, UINT*) noexcept {
  ++calls;
  try {
    std::vector<VARIANT> arguments(std::reverse_iterator(parameters->rgvarg + parameters->cArgs),
                                   std::reverse_iterator(parameters->rgvarg));
    ToVariant(std::next(members_.begin(), member - 100)->second(arguments), result);
    return S_OK;
  } catch (const ComError& refused) {
    return refused.result;
  } catch (const std::exception& error) {
    exception->bstrDescription = NewBstr(FromUtf8(error.what()));
  } catch (...) {
    exception->scode = E_FAIL;
  }
  return DISP_E_EXCEPTION;
}

ComPtr<IDispatch> NamedRecordsetOf(RecordsetPtr rows) {
  const auto fields = [=](auto) {
    const ScriptObject::Members members = {
        {"Count",
         [=](auto) { return Value(static_cast<std::int32_t>(rows->ColumnNames().size())); }},
        {"Item", [=](std::span<VARIANT> key) {
           const Value asked = ValueOf(key[0]);
           return FieldOf(rows, asked.Is<Text>() ? rows->Column(ToText(asked))
                                                 : static_cast<std::size_t>(ToLong(asked)));
         }}};
    return Held(ScriptObject::Make(members).Detach());
  };
  const auto moved = [=](void (Recordset::*move)()) {
    return [=](auto) { return ((*rows).*move)(), Value(); };
  };
  return ScriptObject::Make({{"EOF", [=](auto) { return Value(rows->Eof()); }},
                             {"BOF", [=](auto) { return Value(rows->Bof()); }},
                             {"Fields", fields},
                             {"RecordCount", [=](auto) { return Value(rows->RecordCount()); }},
                             {"MoveFirst", moved(&Recordset::MoveFirst)},
                             {"MoveLast", moved(&Recordset::MoveLast)},
                             {"MoveNext", moved(&Recordset::MoveNext)}},
                            rows);
}

ComPtr<IDispatch> NamedContextOf(std::shared_ptr<HostContext> context) {
  // Null for no object, as of the core's.
  const auto part = [](const auto& object, ScriptObject::Members members) {
    return object ? Held(ScriptObject::Make(std::move(members)).Detach()) : Value(Value::Object());
  };
  return ScriptObject::Make(
      {{"AccountTypeInfo",
        [=](auto) {
          const auto type = context->AccountTypeInfo();
          return part(type, {{"AccountType", [=](auto) { return type->AccountType(); }}});
        }},
       {"AccountLogin",
        [=](auto) {
          const auto login = context->AccountLogin();
          return part(login, {{"ServerName", [=](auto) { return login->ServerName(); }},
                              {"UserId", [=](auto) { return login->UserId(); }}});
        }},
       {"LoginContext", [=](auto) {
          const auto login = context->LoginContext();
          return part(login, {{"LoginDate", [=](auto) { return login->LoginDate(); }},
                              {"OrganizationId", [=](auto) { return login->OrganizationId(); }},
                              {"OperatorId", [=](auto) { return login->OperatorId(); }},
                              {"Password", [=](auto) { return login->Password(); }},
                              {"Item", [=](std::span<VARIANT> name) {
                                 return login->Item(ToText(ValueOf(name[0])));
                               }}});
        }}});
}

ComPtr<IDispatch> NamedConnectionOf(SessionConnectionPtr connection, References references) {
  const auto open = [=](std::span<VARIANT> arguments, auto opening) {
    const bool answers = references == References::None;
    const VARIANT variable =
        View(arguments[1], answers ? References::Variants : references, VT_DISPATCH);
    RecordsetPtr rows;
    if (!opening(ToText(ValueOf(arguments[0])), rows)) return answers ? Value(NullValue()) : false;
    if (!rows) return Value(true);
    IDispatch* const opened = NamedRecordsetOf(rows).Detach();
    if (answers) return Held(opened);
    *variable.ppdispVal = opened;
    return Value(true);
  };
  return ScriptObject::Make(
      {{"HostContext",
        [=](auto) {
          auto context = connection->HostContext();
          return context ? Held(NamedContextOf(std::move(context)).Detach())
                         : Value(Value::Object());
        }},
       {"CloseRecordset",
        [=](std::span<VARIANT> arguments) {
          const bool typed = references == References::Typed;
          const VARIANT variable =
              View(arguments[0], typed ? references : References::Variants, VT_DISPATCH);
          RecordsetPtr rows = ScriptObject::RowsOf(*variable.ppdispVal);
          connection->CloseRecordset(rows);
          if (references != References::None)
            std::exchange(*variable.ppdispVal, nullptr)->Release();
          return Value();
        }},
       {"RecordsetIsEmpty",
        [=](std::span<VARIANT> arguments) {
          const References way =
              references == References::Typed ? references : References::Variants;
          const VARIANT variable = View(arguments[0], way, VT_DISPATCH);
          const VARIANT answer = View(arguments[1], way, VT_BOOL);
          RecordsetPtr rows = ScriptObject::RowsOf(*variable.ppdispVal);
          bool empty = *answer.pboolVal != VARIANT_FALSE;
          connection->RecordsetIsEmpty(rows, empty);
          if (references == References::None) return Value(empty);
          Leave(empty, answer.pboolVal);
          return Value();
        }},
       {"OpenStaticRecordset",
        [=](std::span<VARIANT> arguments) {
          return open(arguments, [&](const Text& sql, RecordsetPtr& rows) {
            return connection->OpenStaticRecordset(sql, rows, arguments[2].lVal, arguments[3].lVal,
                                                   arguments[4].lVal, arguments[5].lVal);
          });
        }},
       {"OpenRecordset",
        [=](std::span<VARIANT> arguments) {
          return open(arguments, [&](const Text& sql, RecordsetPtr& rows) {
            return connection->OpenRecordset(sql, rows, arguments[2].lVal, arguments[3].lVal);
          });
        }},
       {"ExecuteSql",
        [=](std::span<VARIANT> arguments) {
          Value out;
          return Value(
              connection->ExecuteSql(ToText(ValueOf(arguments[0])), arguments[1].lVal, out));
        }},
       {"LastRefusal", [=](auto) { return Value(connection->LastRefusal()); }}});
}

}  // namespace fetchkit::test
