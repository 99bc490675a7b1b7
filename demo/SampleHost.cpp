#include "demo/SampleHost.h"

#include <stdexcept>

#include "demo/SampleAccounts.h"
#include "fetchkit/base/Utf8.h"
#include "hosts/sqlite/SqliteConnection.h"
#ifdef FETCHKIT_DEMO_ODBC
#include "hosts/odbc/OdbcConnection.h"
#endif

namespace fetchkit::demo {
namespace {

// The account's database attached first: unqualified names are its own.
std::shared_ptr<hosts::Database> OpenAccount(std::string_view userId) {
  auto database = std::make_shared<hosts::Database>();
  for (const bool account : {true, false}) {
    for (const SampleDatabase& sample : SampleDatabases()) {
      const bool isServers = sample.schema == "System";
      if (account ? sample.schema != userId : !isServers) continue;
      database->AttachCopy(SampleOriginal(sample.prefix), FromUtf8(sample.schema));
    }
  }
  return database;
}

Login LoginOf(const SampleLogin& sample) {
  Login login;
  login.accountType = sample.accountType;
  login.server = FromUtf8(sample.serverName);
  login.userId = FromUtf8(sample.userId);
  login.loginDate = FromUtf8(sample.loginDate);
  login.organizationId = sample.organizationId;
  login.operatorId = sample.operatorId;
  login.password = FromUtf8(sample.password);
  login.items[u"#SSCustomerID"] = Value(FromUtf8(sample.ssCustomerId));
  return login;
}

}  // namespace

std::shared_ptr<TracedConnection> SampleHost::Open(std::string_view userId) const {
  if (target_.connectionString.empty())
    return std::make_shared<SqliteConnection>(OpenAccount(userId), Login());
#ifdef FETCHKIT_DEMO_ODBC
  OdbcSettings settings;
  settings.engine = target_.engine;
  return std::make_shared<OdbcConnection>(FromUtf8(target_.connectionString), settings);
#else
  throw std::invalid_argument("--odbc: this demo was built without the host for ODBC");
#endif
}

void SampleHost::Switch(std::string_view loginName) {
  const SampleLogin& sample = FindSampleLogin(loginName);
  auto& connection = connections_[std::string(sample.userId)];
  if (!connection) {
    connection = Open(sample.userId);
    connection->trace = [reports = reports_](const StatementReport& report) {
      reports->push_back(report);
    };
  }
  connection->login = LoginOf(sample);
  current_ = connection;
}

int SampleHost::openRecordsets() const {
  int open = 0;
  for (const auto& [userId, connection] : connections_)
    if (connection) open += connection->openRecordsets();  // none where opening failed
  return open;
}

}  // namespace fetchkit::demo
