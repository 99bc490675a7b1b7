#include "demo/SampleAccounts.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>

#include "demo/EmbeddedScripts.h"
#include "hosts/sqlite/Database.h"

namespace fetchkit::demo {
namespace {

constexpr std::string_view kAccountTables = "tables";

bool IsAccount(std::string_view prefix) {
  return prefix.size() > 3 && prefix.substr(0, 3) == "acc" &&
         std::all_of(prefix.begin() + 3, prefix.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string_view PrefixOf(std::string_view scriptName) {
  return scriptName.substr(0, scriptName.find_first_of("_."));
}

void Execute(sqlite3* db, std::string_view scriptName, const std::string& sql) {
  char* message = nullptr;
  const int code = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &message);
  const std::unique_ptr<char, decltype(&sqlite3_free)> owned(message, &sqlite3_free);
  if (code == SQLITE_OK) return;
  throw std::runtime_error(
      fmt::format("{}: {}", scriptName, message != nullptr ? message : sqlite3_errstr(code)));
}

// Takes everything back unless committed.
class Transaction {
 public:
  explicit Transaction(sqlite3* db) : db_(db) { Execute(db_, "begin", "SAVEPOINT sample_scripts"); }
  ~Transaction() {
    if (committed_) return;
    sqlite3_exec(db_, "ROLLBACK TO sample_scripts; RELEASE sample_scripts", nullptr, nullptr,
                 nullptr);
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void Commit() {
    Execute(db_, "commit", "RELEASE sample_scripts");
    committed_ = true;
  }

 private:
  sqlite3* db_;
  bool committed_ = false;
};

void RunOnly(sqlite3* db, std::string_view prefix) {
  bool found = false;
  for (const EmbeddedScript& script : EmbeddedScripts()) {
    if (PrefixOf(script.name) != prefix) continue;
    found = true;
    Execute(db, script.name, std::string(script.text));
  }
  if (!found) throw std::runtime_error(fmt::format("no script named \"{}\"", prefix));
}

}  // namespace

const std::vector<SampleDatabase>& SampleDatabases() {
  static const std::vector<SampleDatabase> databases = {
      {"System", "system"},
      {"ACC01", "acc01"},
      {"ACC02", "acc02"},
  };
  return databases;
}

const std::vector<SampleLogin>& SampleLogins() {
  static const std::vector<SampleLogin> logins = {
      {"main", "集团账套，上海分公司（01-02），会计张文静", 7, "DBSRV", "ACC01", "2004-03-17", 3, 2,
       "zwj2004", "101"},
      {"operator", "另一操作员：李国强，库中口令为空，只有查询权限", 7, "DBSRV", "ACC01",
       "2004-03-17", 3, 3, "", "101"},
      {"customer", "另一服务客户：西塘电缆，无全称", 7, "DBSRV", "ACC01", "2004-03-17", 3, 2,
       "zwj2004", "102"},
      {"root", "集团（01）：组织树的根", 7, "DBSRV", "ACC01", "2004-03-17", 1, 2, "zwj2004", "101"},
      {"leaf", "浦东一车间（01-02-05-01）：第四级，明细组织", 7, "DBSRV", "ACC01", "2004-03-17", 6,
       2, "zwj2004", "101"},
      {"suzhou", "苏州分公司（01-03）：期间从 26 日到次月 25 日", 7, "DBSRV", "ACC01", "2004-03-17",
       8, 2, "zwj2004", "101"},
      {"ningbo", "宁波分公司（01-04）：全年 13 期，每期四周", 7, "DBSRV", "ACC01", "2004-03-17", 9,
       2, "zwj2004", "101"},
      {"trade", "华北机电贸易公司（010）：不在 01 之下", 7, "DBSRV", "ACC01", "2004-03-17", 11, 2,
       "zwj2004", "101"},
      {"date", "另一登录日期：2003-12-29", 7, "DBSRV", "ACC01", "2003-12-29", 3, 2, "zwj2004",
       "101"},
      {"inactive", "南京办事处（01-05）：已停用的组织，读不到", 7, "DBSRV", "ACC01", "2004-03-17",
       10, 2, "zwj2004", "101"},
      {"uninitialised", "浦东二车间（01-02-05-02）：未启用的组织，读不到", 7, "DBSRV", "ACC01",
       "2004-03-17", 7, 2, "zwj2004", "101"},
      {"departed", "操作员赵永和：已停用，读不到", 7, "DBSRV", "ACC01", "2004-03-17", 3, 6, "zyh",
       "101"},
      {"unallotted", "操作员孙晓梅：未分配到任何组织，读不到", 7, "DBSRV", "ACC01", "2004-03-17", 3,
       8, "sxm", "101"},
      {"account", "另一账套：培训中心，本位币无记录，旧版权限表", 7, "DBSRV", "ACC02", "2004-03-17",
       1, 2, "hyz", "101"},
      {"account-detail", "另一账套的明细组织：技能培训部（01-01）", 7, "DBSRV", "ACC02",
       "2004-03-17", 2, 2, "hyz", "101"},
  };
  return logins;
}

const SampleLogin& FindSampleLogin(std::string_view name) {
  std::string names;
  for (const SampleLogin& login : SampleLogins()) {
    if (login.name == name) return login;
    names += names.empty() ? "" : ", ";
    names += login.name;
  }
  throw std::invalid_argument(fmt::format("no sample login \"{}\"; there are: {}", name, names));
}

void RunScripts(sqlite3* db, std::string_view prefix) {
  Transaction transaction(db);
  if (IsAccount(prefix)) RunOnly(db, kAccountTables);
  RunOnly(db, prefix);
  transaction.Commit();
}

const hosts::Database& SampleOriginal(std::string_view prefix) {
  static std::mutex oneAtATime;
  static std::map<std::string, std::unique_ptr<hosts::Database>, std::less<>> originals;
  const std::lock_guard lock(oneAtATime);
  const auto known = originals.find(prefix);
  if (known != originals.end()) return *known->second;
  auto made = std::make_unique<hosts::Database>();
  RunScripts(made->handle(), prefix);
  return *originals.emplace(prefix, std::move(made)).first->second;
}

}  // namespace fetchkit::demo
