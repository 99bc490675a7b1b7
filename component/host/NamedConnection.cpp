#include "component/host/NamedConnection.h"

#include <utility>
#include <vector>

#include "component/com/Bstr.h"
#include "component/com/Variants.h"
#include "component/host/ContextOfHost.h"
#include "component/host/HostRecordset.h"
#include "fetchkit/base/Error.h"

namespace fetchkit {
namespace {

constexpr TextView kMembers[] = {u"HostContext",         u"CloseRecordset", u"RecordsetIsEmpty",
                                 u"OpenStaticRecordset", u"OpenRecordset",  u"ExecuteSql"};

// A variable that holds an object, or the lack of one, for a reference to it.
class ObjectVariable : public Variant {
 public:
  explicit ObjectVariable(IDispatch* owned) {
    InOut()->vt = VT_DISPATCH;
    InOut()->pdispVal = owned;
  }
  HostPtr<IDispatch> Take() { return ObjectIn(ValueOf(get())); }
};

bool IsYes(const Value& answer) {
  return !answer.IsNull() && ToBoolean(answer);
}

}  // namespace

std::shared_ptr<NamedConnection> NamedConnection::Bind(HostPtr<IDispatch> object) {
  NamedObject host(std::move(object));
  Text missing;
  for (const TextView member : kMembers)
    if (!host.Has(member)) missing.append(missing.empty() ? u"" : u", ").append(member);
  if (!missing.empty())
    throw Error(
        ErrorKind::TypeMismatch,
        Join(u"the object is no connection: it has neither the interface of one nor, by name, ",
             missing));
  return std::make_shared<NamedConnection>(std::move(host));
}

Text NamedConnection::LastRefusalOf(NamedObject& host) {
  return host.Has(u"LastRefusal") ? ToTextOrEmpty(host.Call(u"LastRefusal")) : Text();
}

std::shared_ptr<HostContext> NamedConnection::HostContext() {
  return ContextOfHost(host_.Object(u"HostContext"));
}

void NamedConnection::CloseRecordset(RecordsetPtr& recordset) {
  if (!recordset) return;
  // Let go whatever the host answers; what it left in the variable goes with it.
  const RecordsetPtr closing = std::move(recordset);
  recordset = nullptr;
  ObjectVariable variable(std::exchange(*HostRecordset::Of(closing).GiveBack(), nullptr));
  const VARIANT argument = Reference(variable);
  host_.Call(u"CloseRecordset", {&argument, 1});
}

void NamedConnection::RecordsetIsEmpty(RecordsetPtr& recordset, bool& isEmpty) {
  HostRecordset& rows = HostRecordset::Of(recordset);
  IDispatch* const before = *rows.InOut();
  if (before) before->AddRef();
  ObjectVariable object(before);
  Variant empty{Value(isEmpty)};
  const VARIANT arguments[] = {Reference(object), Reference(empty)};
  const Value answer = host_.Call(u"RecordsetIsEmpty", arguments);
  if (HostPtr<IDispatch> now = object.Take(); now.get() != before)
    recordset = HostRecordset::Bind(std::move(now));
  isEmpty = ToBoolean(answer.Is<bool>() ? answer : ValueOf(empty.get()));
}

bool NamedConnection::Open(TextView member, TextView sql, RecordsetPtr& recordset,
                           std::initializer_list<std::int32_t> options) {
  const Bstr text(sql);
  ObjectVariable variable(nullptr);
  std::vector<VARIANT> arguments = {Argument(text), Reference(variable)};
  for (const std::int32_t option : options)
    arguments.push_back(Argument(option));
  const Value answer = host_.Call(member, arguments);
  HostPtr<IDispatch> opened = ObjectIn(answer);
  const bool yes = !answer.Is<Value::Object>() && IsYes(answer);
  if (yes) opened = variable.Take();
  if (opened) recordset = HostRecordset::Bind(std::move(opened));
  return yes || recordset;
}

bool NamedConnection::OpenStaticRecordset(TextView sql, RecordsetPtr& recordset,
                                          std::int32_t cursorType, std::int32_t lockType,
                                          std::int32_t commandType, std::int32_t option) {
  return Open(u"OpenStaticRecordset", sql, recordset, {cursorType, lockType, commandType, option});
}

bool NamedConnection::OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t option1,
                                    std::int32_t option2) {
  return Open(u"OpenRecordset", sql, recordset, {option1, option2});
}

bool NamedConnection::ExecuteSql(TextView sql, std::int32_t option, Value& out) {
  const Bstr text(sql);
  Variant outValue(out);
  const VARIANT arguments[] = {Argument(text), Argument(option), Reference(outValue)};
  return IsYes(host_.Call(u"ExecuteSql", arguments));
}

}  // namespace fetchkit
