#include "hosts/windows/OdbcObject.h"

#include <chrono>
#include <utility>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/Utf8.h"
#include "hosts/windows/ConnectionObject.h"

namespace fetchkit::hosts {
namespace {

SqlEngine EngineNamed(TextView name) {
  Text names;
  for (const SqlEngine engine :
       {SqlEngine::Oracle, SqlEngine::PostgreSql, SqlEngine::MariaDb, SqlEngine::Sqlite}) {
    const Text known = FromUtf8(NameOf(engine));
    if (EqualFolded(known, name)) return engine;
    names += Join(names.empty() ? u"" : u", ", known);
  }
  throw Error(ErrorKind::InvalidCall,
              Join(u"There is no engine \"", name, u"\"; there are: ", names, u"."));
}

std::chrono::seconds SecondsOf(long value) {
  if (value < 0) throw Error(ErrorKind::InvalidCall, u"A time is 0 or more seconds.");
  return std::chrono::seconds(value);
}

template <class Duration>
std::int32_t SecondsIn(Duration duration) {
  return static_cast<std::int32_t>(
      std::chrono::duration_cast<std::chrono::seconds>(duration).count());
}

}  // namespace

void OdbcHost::Open(TextView connectionString, TextView engine) {
  settings.engine = EngineNamed(engine);
  Close();
  auto opened = std::make_shared<OdbcConnection>(connectionString, settings);
  opened->login = login_;
  connection_ = std::move(opened);
}

void OdbcHost::Close() {
  const auto closing = std::exchange(connection_, nullptr);
  if (!closing) return;
  login_ = closing->login;
  closing->Close();
}

const std::shared_ptr<OdbcConnection>& OdbcHost::Connection() const {
  if (!connection_) throw Error(ErrorKind::ObjectMissing, u"No database is open: call Open first.");
  return connection_;
}

HRESULT OdbcObject::get_IsOpen(VARIANT_BOOL* result) noexcept {
  return Answer(result, [&] { return core().IsOpen(); });
}

HRESULT OdbcObject::get_Connection(IDispatch** result) noexcept {
  return Answer(result,
                [&]() -> IDispatch* { return ConnectionObjectOf(core().Connection()).Detach(); });
}

HRESULT OdbcObject::get_AccountType(long* result) noexcept {
  return Answer(result, [&] { return core().login().accountType; });
}
HRESULT OdbcObject::put_AccountType(long value) noexcept {
  return Run([&] { core().login().accountType = value; });
}

HRESULT OdbcObject::get_Server(BSTR* result) noexcept {
  return Answer(result, [&] { return core().login().server; });
}
HRESULT OdbcObject::put_Server(BSTR value) noexcept {
  return Run([&] { core().login().server = ViewOf(value); });
}

HRESULT OdbcObject::get_UserId(BSTR* result) noexcept {
  return Answer(result, [&] { return core().login().userId; });
}
HRESULT OdbcObject::put_UserId(BSTR value) noexcept {
  return Run([&] { core().login().userId = ViewOf(value); });
}

HRESULT OdbcObject::get_LoginDate(BSTR* result) noexcept {
  return Answer(result, [&] { return core().login().loginDate; });
}
HRESULT OdbcObject::put_LoginDate(BSTR value) noexcept {
  return Run([&] { core().login().loginDate = ViewOf(value); });
}

HRESULT OdbcObject::get_OrganizationId(long* result) noexcept {
  return Answer(result, [&] { return core().login().organizationId; });
}
HRESULT OdbcObject::put_OrganizationId(long value) noexcept {
  return Run([&] { core().login().organizationId = value; });
}

HRESULT OdbcObject::get_OperatorId(long* result) noexcept {
  return Answer(result, [&] { return core().login().operatorId; });
}
HRESULT OdbcObject::put_OperatorId(long value) noexcept {
  return Run([&] { core().login().operatorId = value; });
}

HRESULT OdbcObject::put_Password(BSTR value) noexcept {
  return Run([&] { core().login().password = ViewOf(value); });
}

HRESULT OdbcObject::get_Item(BSTR strName, VARIANT* result) noexcept {
  return Answer(result, [&] {
    const auto& items = core().login().items;
    const auto found = items.find(Text(ViewOf(strName)));
    return found == items.end() ? Value() : found->second;
  });
}
HRESULT OdbcObject::put_Item(BSTR strName, VARIANT value) noexcept {
  return Run([&] { core().login().items[Text(ViewOf(strName))] = ValueOf(value); });
}

HRESULT OdbcObject::get_StatementTimeout(long* result) noexcept {
  return Answer(result, [&] { return SecondsIn(core().settings.statementTimeout); });
}
HRESULT OdbcObject::put_StatementTimeout(long value) noexcept {
  return Run([&] { core().settings.statementTimeout = SecondsOf(value); });
}

HRESULT OdbcObject::get_LoginTimeout(long* result) noexcept {
  return Answer(result, [&] { return SecondsIn(core().settings.loginTimeout); });
}
HRESULT OdbcObject::put_LoginTimeout(long value) noexcept {
  return Run([&] { core().settings.loginTimeout = SecondsOf(value); });
}

HRESULT OdbcObject::get_ReadOnly(VARIANT_BOOL* result) noexcept {
  return Answer(result, [&] { return core().settings.readOnly; });
}
HRESULT OdbcObject::put_ReadOnly(VARIANT_BOOL value) noexcept {
  return Run([&] { core().settings.readOnly = value != VARIANT_FALSE; });
}

HRESULT OdbcObject::OpenRecordset(BSTR strSql, IDispatch** result) noexcept {
  return Answer(result, [&] {
    const auto& connection = core().Connection();
    RecordsetPtr rows;
    if (!connection->OpenRecordset(ViewOf(strSql), rows, 0, 0))
      throw Error(ErrorKind::Host, connection->LastRefusal());
    return RecordsetOf(std::move(rows), connection);
  });
}

HRESULT OdbcObject::CloseRecordset(IDispatch* objRecordset) noexcept {
  return Run([&] { GiveBack(objRecordset, *core().Connection()); });
}

HRESULT OdbcObject::get_LastRefusal(BSTR* result) noexcept {
  return Answer(result, [&] { return core().Connection()->LastRefusal(); });
}

}  // namespace fetchkit::hosts
