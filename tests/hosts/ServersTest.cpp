// The ODBC host on database servers: the demo's whole scenario, and the faults that only a server
// makes. The database user of each (Servers.h) may make and drop the sample accounts.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <filesystem>
#include <functional>
#include <future>
#include <regex>
#include <set>
#include <sstream>
#include <thread>

#include "demo/SampleHost.h"
#include "demo/commands/Commands.h"
#include "demo/commands/DemoSession.h"
#include "demo/servers/ServerAccounts.h"
#include "fetchkit/base/Error.h"
#include "fetchkit/base/ThreadState.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/host/Execution.h"
#include "hosts/DocumentedGrants.h"
#include "hosts/Servers.h"
#include "hosts/odbc/Link.h"
#include "hosts/odbc/OdbcConnection.h"
#include "hosts/odbc/Statement.h"

namespace fetchkit::demo {
namespace {

using namespace std::chrono_literals;
using test::Change;
using test::Rows;
using test::Servers;

class Server : public testing::TestWithParam<OdbcTarget> {
 protected:
  // The accounts are written once; what a test changes it changes back.
  void SetUp() override {
    static std::set<SqlEngine> loaded;
    if (loaded.insert(GetParam().engine).second) ServerAccounts(GetParam()).Load();
  }

  bool IsPostgreSql() const { return GetParam().engine == SqlEngine::PostgreSql; }
  bool IsMariaDb() const { return GetParam().engine == SqlEngine::MariaDb; }

  std::shared_ptr<OdbcConnection> Connect(OdbcSettings settings = {}) const {
    settings.engine = GetParam().engine;
    auto connection =
        std::make_shared<OdbcConnection>(FromUtf8(GetParam().connectionString), settings);
    connection->login.userId = u"ACC01";
    return connection;
  }

  // Another session of the server's, untranslated.
  void Directly(TextView sql) const {
    odbc::Link link(FromUtf8(GetParam().connectionString), 5s);
    odbc::Statement(link, 10s).Change(sql);
  }

  // Of the session that was opened last.
  std::string NewestSession() const {
    odbc::Link link(FromUtf8(GetParam().connectionString), 5s);
    const odbc::Rows rows = odbc::Statement(link, 10s).Query(
        IsPostgreSql() ? u"SELECT pid FROM pg_stat_activity WHERE backend_type = 'client backend' "
                         u"AND pid <> pg_backend_pid() ORDER BY backend_start DESC LIMIT 1"
                       : u"SELECT max(id) FROM information_schema.processlist "
                         u"WHERE id <> connection_id()");
    return ToUtf8(ToText(rows.cells.at(0)));
  }

  Text Kill(const std::string& id, bool statementAlone) const {
    if (IsPostgreSql())
      return Join(u"SELECT ", statementAlone ? u"pg_cancel_backend(" : u"pg_terminate_backend(",
                  FromUtf8(id), u")");
    return Join(statementAlone ? u"KILL QUERY " : u"KILL ", FromUtf8(id));
  }

  // Takes minutes.
  static constexpr TextView kLongStatement =
      u"SELECT count(*) FROM VoucherDetail a, VoucherDetail b, VoucherDetail c";
};

INSTANTIATE_TEST_SUITE_P(Engines, Server, testing::ValuesIn(Servers()), [](const auto& server) {
  return std::string(hosts::NameOf(server.param.engine));
});

// The words of a line: conditions stand in it in the order of the rows that they came from, and so
// do statements, which have a number in front.
std::string Sorted(const std::string& line) {
  std::istringstream in(line);
  int number = 0;
  if (line.starts_with(' ')) in >> number;
  std::multiset<std::string> words;
  for (std::string word; in >> word;)
    words.insert(word);
  std::string sorted;
  for (const std::string& word : words)
    sorted += word + " ";
  return sorted;
}

// The lines that the commands print, in an order of their own: a statement may leave open in which
// order its rows come.
template <class Commands>
std::vector<std::string> Printed(Commands&& commands) {
  std::FILE* paper = std::tmpfile();
  Console console(paper, ColourMode::Never);
  commands(console);
  std::rewind(paper);
  std::vector<std::string> lines;
  std::string line;
  for (int c; (c = std::fgetc(paper)) != EOF;) {
    if (c != '\n') {
      line += static_cast<char>(c);
      continue;
    }
    lines.push_back(Sorted(std::exchange(line, {})));
  }
  std::fclose(paper);
  std::sort(lines.begin(), lines.end());
  return lines;
}

// The sample accounts as they are at first, then all of the demo's subcommands on them.
std::vector<std::string> Scenario(const OdbcTarget& target) {
  return Printed([&](Console& console) {
    const CommonOptions main{.target = target};
    std::istringstream nobody;
    RunLogin(console, main);
    for (const char* login : {"leaf", "account-detail", "inactive"})
      RunLogin(console, {.login = login, .target = target});
    for (const char* login : {"main", "account"}) {
      RunDates(console, {.login = login, .target = target}, "");
      RunRights(console, {.login = login, .target = target});
      RunFormat(console, {.login = login, .target = target});
    }
    RunSettings(console, main);
    for (const int view : {101, 102, 104})
      RunList(console, main, {.viewId = view, .rows = 1000, .where = {}});
    RunFilter(console, main, {.rows = 1000}, nobody, false);
    // Last, because a server keeps the conditions that are saved.
    RunList(console, main,
            {.viewId = 102, .rows = 1000, .where = {"金额 大于 100", "凭证日期 本年"}});
  });
}

const std::vector<std::string>& EmbeddedScenario() {
  static const std::vector<std::string> embedded = Scenario({});
  return embedded;
}

TEST_P(Server, TheWholeScenarioAnswersAsTheEmbeddedDatabaseDoes) {
  ServerAccounts again(GetParam());
  EXPECT_FALSE(again.made().empty());
  EXPECT_TRUE(again.foreign().empty());
  EXPECT_GT(again.Load().rows, 10000U);
  const std::vector<std::string>& embedded = EmbeddedScenario();
  ASSERT_GT(embedded.size(), 1000U);
  const std::vector<std::string> answered = Scenario(GetParam());
  std::vector<std::string> different;
  std::set_symmetric_difference(answered.begin(), answered.end(), embedded.begin(), embedded.end(),
                                std::back_inserter(different));
  EXPECT_THAT(different, testing::IsEmpty());
}

TEST_P(Server, WhatWasNotMadeHereIsNotDropped) {
  const auto connection = Connect();
  Directly(u"DROP TABLE acc01.area");
  Directly(u"CREATE TABLE acc01.area (mine integer)");
  EXPECT_EQ(Change(*connection, u"INSERT INTO Area (mine) VALUES (5)"), "1");
  EXPECT_EQ(ServerAccounts(GetParam()).foreign(), std::vector<std::string>{"acc01.area"});
  EXPECT_THROW(ServerAccounts(GetParam()).Load(), std::runtime_error);
  EXPECT_EQ(Rows(*connection, u"SELECT mine FROM Area"), "5");
  EXPECT_EQ(Rows(*connection, u"SELECT count(*) FROM Class1"), "10") << "nothing else was touched";
  Directly(u"DROP TABLE acc01.area");
}

TEST_P(Server, ValuesComeBackAsWhatTheyAre) {
  const auto connection = Connect();
  Directly(u"DROP TABLE IF EXISTS acc01.came_back");
  Directly(Join(u"CREATE TABLE acc01.came_back (t date, u timestamp NULL, lngid ",
                IsPostgreSql() ? u"oid, s text)" : u"int unsigned, s longtext)"));
  Directly(
      u"INSERT INTO acc01.came_back VALUES ('2004-03-17', '2004-03-17 12:00:00', 3000000000, "
      u"concat(repeat('部', 39999), 'z')), (NULL, NULL, 1, 's')");
  RecordsetPtr rows;
  ASSERT_TRUE(connection->OpenRecordset(
      u"SELECT 2147483647 AS l, 2147483648 AS d, 12.50 AS n, 3.00 AS w, t, '' AS e, '部门𠮷' AS "
      u"s2, "
      u"u FROM came_back WHERE t = '2004-03-17' AND u < '2004-03-17 13:00:00'",
      rows, 0, 0))
      << ToUtf8(connection->LastRefusal());
  EXPECT_TRUE(rows->At(0).Is<std::int32_t>());
  EXPECT_EQ(std::get<double>(rows->At(1).data()), 2147483648.0);
  EXPECT_EQ(std::get<double>(rows->At(2).data()), 12.5);
  EXPECT_EQ(std::get<std::int32_t>(rows->At(3).data()), 3);
  EXPECT_EQ(std::get<Date>(rows->At(4).data()), *DateFromYmd(2004, 3, 17));
  EXPECT_TRUE(rows->At(5).IsNull());
  EXPECT_EQ(std::get<Text>(rows->At(6).data()), u"部门𠮷");
  EXPECT_EQ(std::get<Date>(rows->At(7).data()), Date{DateFromYmd(2004, 3, 17)->serial + 0.5});
  connection->CloseRecordset(rows);
  EXPECT_EQ(Rows(*connection, u"SELECT lngid FROM came_back ORDER BY 1 DESC"), "3000000000;1")
      << "without a sign";
  for (const TextView refused :
       {u"t > '17.03.2004'", u"t = '2004-02-30'", u"t = 38063", u"t = lngid", u"t LIKE '2004%'",
        u"t = s", u"t + 1 = u", u"nvl(t, 'x') = t"})
    EXPECT_THAT(Rows(*connection, Join(u"SELECT s FROM came_back WHERE ", refused)),
                testing::HasSubstr("The adapter refuses"));

  // Longer than any driver announces, in the second array of rows.
  const std::string many =
      Rows(*connection,
           u"SELECT CASE WHEN lngVoucherDetailID = 300 THEN (SELECT s FROM came_back WHERE t IS "
           u"NOT NULL) "
           u"ELSE 's' END AS t FROM VoucherDetail WHERE lngVoucherDetailID <= 600 ORDER BY "
           u"lngVoucherDetailID");
  EXPECT_EQ(many.size(), 2 * 599 + 3 * 39999 + 1U);
  EXPECT_NE(many.find("部部z;s;"), std::string::npos);

  if (IsPostgreSql()) {
    for (const TextView beyond : {u"t = 'infinity'", u"t = '-infinity'", u"u = 'infinity'",
                                  u"u = '-infinity'", u"u = '20000-01-01'"}) {
      Directly(Join(u"UPDATE acc01.came_back SET t = NULL, u = NULL WHERE lngid = 1"));
      Directly(Join(u"UPDATE acc01.came_back SET ", beyond, u" WHERE lngid = 1"));
      EXPECT_THAT(Rows(*connection, u"SELECT t, u FROM came_back"),
                  testing::HasSubstr("holds a date outside of the years"))
          << ToUtf8(beyond);
    }
    Directly(u"UPDATE acc01.came_back SET t = current_date, u = current_date WHERE lngid = 1");
    EXPECT_THAT(Rows(*connection, u"SELECT t, u FROM came_back WHERE lngid = 1"),
                testing::MatchesRegex("(2...-..-..)[|]2...-..-.."));
  }
  Directly(u"DROP TABLE acc01.came_back");
}

TEST_P(Server, ABlockIsDoneWhollyOrNotAtAll) {
  const auto connection = Connect();
  const TextView count = u"SELECT count(*) FROM Class1";
  EXPECT_EQ(Rows(*connection, count), "10");
  EXPECT_NE(Change(*connection,
                   u"Begin DELETE FROM Class1; INSERT INTO Class1 (nope) VALUES (1); "
                   u"End;")
                .find("nope"),
            std::string::npos)
      << "the database's own words";
  EXPECT_EQ(Rows(*connection, count), "10");
  EXPECT_EQ(
      Change(*connection,
             u"Begin Delete FROM Class1 WHERE 1=0; Insert into Class1 "
             u"(lngClassID,strClassCode,strClassName) Values (77,'a\\','b'); Update Class1 Set "
             u"strClassName = '' WHERE lngClassID = 77; End;"),
      "2");
  EXPECT_EQ(Rows(*Connect(), u"SELECT strClassCode, strClassName FROM Class1 WHERE lngClassID=77"),
            "a\\|~")
      << "another session sees it: it was committed";
  EXPECT_EQ(Change(*connection, u"DELETE FROM Class1 WHERE lngClassID = 77"), "1");
  EXPECT_NE(Rows(*connection, u"DELETE FROM Class1"), "") << "a change is not opened";
  EXPECT_EQ(Rows(*connection, count), "10");
}

TEST_P(Server, ALostConnectionIsOpenedAgainAndNothingRepeated) {
  const auto connection = Connect();
  const std::string id = NewestSession();
  Directly(Kill(id, false));
  // The statement that finds out may be refused; the one behind it runs in a new session, set anew.
  Change(*connection, u"UPDATE Class1 SET intLevel = intLevel + 1 WHERE lngClassID = 1");
  const std::string level = Rows(*connection, u"SELECT intLevel FROM Class1 WHERE lngClassID = 1");
  EXPECT_TRUE(level == "1" || level == "2") << level;
  EXPECT_NE(NewestSession(), id);
  Change(*connection, u"UPDATE Class1 SET intLevel = 1 WHERE lngClassID = 1");
}

TEST_P(Server, AStatementThatTakesTooLongOrIsCancelledIsRefused) {
  const auto impatient = Connect({.statementTimeout = 300ms});
  EXPECT_NE(Rows(*impatient, kLongStatement).find("took longer than 300 ms"), std::string::npos);
  EXPECT_EQ(Rows(*impatient, u"SELECT 1 AS n FROM DUAL"), "1") << "the connection goes on";

  const auto patient = Connect();
  const std::string id = NewestSession();
  std::promise<std::string> answer;
  std::thread waiting([&] { answer.set_value(Rows(*patient, kLongStatement)); });
  auto answered = answer.get_future();
  while (answered.wait_for(100ms) != std::future_status::ready)
    Directly(Kill(id, true));
  waiting.join();
  EXPECT_THAT(answered.get(), testing::HasSubstr(IsPostgreSql() ? "cancel" : "interrupted"));
  EXPECT_EQ(Rows(*patient, u"SELECT 1 AS n FROM DUAL"), "1");
}

TEST_P(Server, ALockedTableIsWaitedForNoLongerThanTheLimit) {
  const auto impatient = Connect({.statementTimeout = 300ms});
  EXPECT_EQ(Rows(*impatient, u"SELECT 1 AS n FROM DUAL"), "1");
  odbc::Link other(FromUtf8(GetParam().connectionString), 5s);
  {
    odbc::Transaction transaction(other);
    odbc::Statement(other, 5s).Change(u"UPDATE acc01.class1 SET intLevel = 15");
    EXPECT_NE(Change(*impatient, u"UPDATE Class1 SET intLevel = 16").find("took longer than"),
              std::string::npos);
  }
  EXPECT_EQ(Rows(*impatient, u"SELECT max(intLevel) FROM Class1"), "3") << "both were taken back";
}

// Lets the server's process write no larger files; those of its log have 16 MB. Only the account
// that it runs under may say so.
bool LimitFilesOf(pid_t process) {
  struct stat owner {};
  if (stat(("/proc/" + std::to_string(process)).c_str(), &owner) != 0) return false;
  const pid_t child = fork();
  if (child == 0) {
    const rlimit limit{24 << 20, 24 << 20};
    _exit(setgid(owner.st_gid) == 0 && setuid(owner.st_uid) == 0 &&
                  prlimit(process, RLIMIT_FSIZE, &limit, nullptr) == 0
              ? 0
              : 1);
  }
  int status = 1;
  return waitpid(child, &status, 0) == child && status == 0;
}

// What storage says when nothing more fits: PostgreSQL fails to write a file, because its process
// may write no larger ones; MariaDB has a table in memory of a limited size.
TEST_P(Server, AFullDiskIsToldInTheServersWordsAndNothingHalfDoneStays) {
  Directly(u"DROP TABLE IF EXISTS acc01.heap");
  const auto connection = Connect();
  if (IsPostgreSql()) {
    Directly(u"CREATE TABLE acc01.heap (s text)");
    EXPECT_EQ(Rows(*connection, u"SELECT count(*) FROM heap"), "0");
    ASSERT_TRUE(LimitFilesOf(std::stoi(NewestSession())));
  } else {
    odbc::Link link(FromUtf8(GetParam().connectionString), 5s);
    odbc::Statement(link, 10s).Change(u"SET SESSION max_heap_table_size = 65536");
    odbc::Statement(link, 10s).Change(u"CREATE TABLE acc01.heap (s varchar(1000)) ENGINE=MEMORY");
  }
  struct Sink : DiagnosticsSink {
    void OnFailure(const Failure& failure) override { told = failure.databaseText; }
    Text told;
  } sink;
  DiagnosticsSink* const before = SetDiagnosticsSink(&sink);
  EXPECT_FALSE(Execute(
      connection,
      Join(u"Begin Insert into Class1 (lngClassID,strClassCode,strClassName) Values (78,'a','b'); "
           u"Insert into heap (s) Select '",
           Text(1000, u'x'), u"' From VoucherDetail a, VoucherDetail b; End;")));
  SetDiagnosticsSink(before);
  EXPECT_THAT(ToUtf8(sink.told),
              testing::HasSubstr(IsPostgreSql() ? "could not extend file" : "is full"));
  EXPECT_EQ(Rows(*connection, u"SELECT count(*) FROM Class1"), "10");
  EXPECT_EQ(Rows(*Connect(), u"SELECT count(*) FROM Class1"), "10");
  Directly(u"DROP TABLE acc01.heap");
}

// Through a driver without a server: the accounts are written, a login comes in, a list has its
// rows.
TEST(SqliteOverOdbc, HasTheListsThatTheEmbeddedDatabaseHas) {
  if (Servers().empty()) GTEST_SKIP() << "the driver comes with those of the servers";
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / ("fetchkit-sqlite-" + std::to_string(getpid()));
  std::filesystem::create_directory(folder);
  const OdbcTarget target{"Driver=SQLite3;Database=" + (folder / "books.db").string(),
                          SqlEngine::Sqlite};
  EXPECT_GT(ServerAccounts(target).Load().rows, 10000U);
  const auto printed = [](const OdbcTarget& where) {
    return Printed([&](Console& console) {
      RunLogin(console, {.target = where});
      RunList(console, {.target = where}, {.viewId = 101, .rows = 1000, .where = {}});
      RunRights(console, {.target = where});
    });
  };
  EXPECT_EQ(printed(target), printed({}));
  std::filesystem::remove_all(folder);
}

TEST_P(Server, AReadOnlyConnectionChangesNothing) {
  const auto connection = Connect({.readOnly = true});
  EXPECT_NE(Change(*connection, u"DELETE FROM Class1").find("read-only"), std::string::npos);
  EXPECT_EQ(Rows(*connection, u"SELECT count(*) FROM Class1"), "10");
  EXPECT_NE(Rows(*connection, u"SELECT LIST_SEQ.NEXTVAL FROM DUAL").find("read-only"),
            std::string::npos);
}

TEST_P(Server, AWrongPasswordAndAnUnknownSchemaAreSaidInTheServersWords) {
  Text wrong = FromUtf8(GetParam().connectionString);
  wrong.replace(wrong.find(u"PWD="), Text::npos, u"PWD=verraten7");
  try {
    OdbcConnection connection(wrong, {.engine = GetParam().engine});
    FAIL() << "let in";
  } catch (const Error& error) {
    EXPECT_EQ(error.description().find(u"verraten7"), Text::npos) << error.what();
    EXPECT_NE(error.description().find(IsPostgreSql() ? u"authentication failed" : u"denied"),
              Text::npos)
        << error.what();
  }
  const auto connection = Connect();
  connection->login.userId = u"NOSUCH";
  EXPECT_NE(Rows(*connection, u"SELECT * FROM Voucher"), "") << "no table of another schema";
  connection->login.userId = u"ACC02";
  EXPECT_NE(Rows(*connection, u"SELECT strAccountCode FROM Account"),
            Rows(*Connect(), u"SELECT strAccountCode FROM Account"));
}

TEST_P(Server, NoPasswordIsInAnyText) {
  const Text secret =
      FromUtf8(GetParam().connectionString).substr(GetParam().connectionString.find("PWD=") + 4);
  const auto connection = Connect();
  Text told;
  connection->trace = [&](const StatementReport& report) {
    told += Join(report.adapted, report.firstRow, report.error);
  };
  for (const TextView sql : {u"SELECT nope FROM nope", u"SELECT (", u"SELECT 1 FROM DUAL"})
    Rows(*connection, sql);
  // The server repeats a password in its message.
  Rows(*connection, Join(u"SELECT 1 FROM \"", secret, u"\""));
  EXPECT_NE(told.find(u"***"), Text::npos);
  EXPECT_EQ(told.find(secret), Text::npos);
}

std::string Lower(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

// A database user who has but what is granted here.
class Clerk : public Server {
 protected:
  static constexpr const char* kUser = "fetchkit_clerk";

  void Do(const std::string& statement) const { Directly(FromUtf8(statement)); }

  std::string Who() const { return IsPostgreSql() ? kUser : std::string("'fetchkit_clerk'@'%'"); }
  void Give(const Grant& grant) const {
    Do("GRANT " + grant.privilege + " ON " + grant.kind + grant.table + " TO " + Who());
  }
  void Take(const Grant& grant) const {
    Do("REVOKE " + grant.privilege + " ON " + grant.kind + grant.table + " FROM " + Who());
  }

  // Commands that together need every grant, the quick ones first.
  std::vector<std::function<void(Console&)>> Commands(const OdbcTarget& target) const {
    const CommonOptions main{.trace = true, .target = target};
    return {
        [=](Console& console) {
          DemoSession session(console, true, target);
          session.Switch("main");
          session.Run([&] { session.entry().Initialize(session.connection()); });
        },
        [=](Console& console) { RunRights(console, main); },
        [=](Console& console) { RunSettings(console, main); },
        [=](Console& console) { RunList(console, main, {.viewId = 103, .rows = 1, .where = {}}); },
        [=](Console& console) {
          // Opens columns that are chosen from tables which nothing else reads, and leaves.
          std::istringstream answers("f 凭证状态\n\n\nf 单位类型\n\n\nf 部门\n\n\nq\nq\n");
          RunFilter(console, main, {.rows = 1, .user = DialogUser::Asked}, answers, true);
        },
        [=, this](Console& console) {
          // A list that was never saved.
          Do("DELETE FROM acc01.list WHERE lngViewID = 103");
          RunList(console, main, {.viewId = 103, .rows = 1, .where = {"科目级次 大于 1"}});
        },
        [=](Console& console) {
          RunList(console, main, {.viewId = 101, .rows = 1, .where = {"凭证号 大于 2"}});
        },
    };
  }

  // A database user without any rights, and who connects as that user.
  OdbcTarget NewUser() const {
    const std::string password = "kl3rk";
    if (IsPostgreSql()) {
      Do(std::string("DO 'BEGIN DROP OWNED BY ") + kUser + "; DROP ROLE " + kUser +
         "; EXCEPTION WHEN undefined_object THEN NULL; END'");
      Do(std::string("CREATE ROLE ") + kUser + " LOGIN PASSWORD '" + password + "'");
    } else {
      Do("CREATE OR REPLACE USER " + Who() + " IDENTIFIED BY '" + password + "'");
    }
    OdbcTarget target = GetParam();
    target.connectionString =
        std::regex_replace(target.connectionString, std::regex("UID=[^;]*;PWD=[^;]*"),
                           std::string("UID=") + kUser + ";PWD=" + password);
    return target;
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, Clerk, testing::ValuesIn(Servers()), [](const auto& server) {
  return std::string(hosts::NameOf(server.param.engine));
});

// What a command prints, its failures and notes included.
std::string Paper(const std::function<void(Console&)>& command) {
  std::FILE* paper = std::tmpfile();
  Console console(paper, ColourMode::Never);
  try {
    command(console);
  } catch (const std::exception& error) {
    console.Line(error.what());
  }
  std::string text(static_cast<std::size_t>(std::ftell(paper)), '\0');
  std::rewind(paper);
  text.resize(std::fread(text.data(), 1, text.size(), paper));
  std::fclose(paper);
  return text;
}

// Whether a line that tells of a failure or a note says in the server's words that the table is
// refused.
bool TellsOf(const std::string& printed, const std::string& table) {
  std::istringstream lines(printed);
  for (std::string line; std::getline(lines, line);)
    if ((line.starts_with("failed: ") || line.starts_with("note: ")) &&
        line.find("denied") != std::string::npos && Lower(line).find(table) != std::string::npos)
      return true;
  return false;
}

// Whether the name stands there, and not a longer one.
bool Names(const std::string& text, const std::string& name) {
  const auto isLetter = [&](std::size_t at) {
    return at < text.size() &&
           (std::isalnum(static_cast<unsigned char>(text[at])) != 0 || text[at] == '_');
  };
  for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name, at + 1))
    if (!isLetter(at - 1) && !isLetter(at + name.size())) return true;
  return false;
}

TEST_P(Clerk, NeedsTheDocumentedGrantsAndNoneIsTooMany) {
  if (!IsPostgreSql() && !IsMariaDb()) GTEST_SKIP() << "an engine without users";
  ServerAccounts(GetParam()).Load();
  const OdbcTarget clerk = NewUser();
  const std::vector<std::string> statements =
      DocumentedGrants(IsPostgreSql() ? "PostgreSQL" : "MariaDB", kUser);
  for (const std::string& each : statements) {
    Do(each);
    // The demo logs in to another account, too.
    if (each.find("acc01.") != std::string::npos)
      Do(std::regex_replace(
          std::regex_replace(each, std::regex("system\\.gabaseinfo, ", std::regex::icase), ""),
          std::regex("acc01"), "acc02"));
  }
  if (IsPostgreSql()) Do(std::string("GRANT USAGE ON SCHEMA acc02 TO ") + kUser);
  EXPECT_THAT(Scenario(clerk), testing::ElementsAreArray(EmbeddedScenario()));

  const auto commands = Commands(clerk);
  std::vector<std::string> healthy;
  for (const auto& command : commands)
    healthy.push_back(Lower(Paper(command)));
  int revoked = 0;
  for (const Grant& grant : Single(statements)) {
    if (grant.kind == "SCHEMA ") continue;
    std::string table = Lower(grant.table.substr(grant.table.find('.') + 1));
    std::erase_if(table, [](char c) { return c == '"' || c == '`'; });
    Take(grant);
    bool told = false;
    for (std::size_t i = 0; i < commands.size() && !told; ++i) {
      // Only the last ones write.
      const std::size_t at = grant.privilege == "SELECT" ? i : commands.size() - 1 - i;
      told = Names(healthy[at], table) && TellsOf(Paper(commands[at]), table);
    }
    EXPECT_TRUE(told) << grant.privilege << " on " << grant.table << " is missed by nothing";
    Give(grant);
    ++revoked;
  }
  EXPECT_GT(revoked, 50);
}

}  // namespace
}  // namespace fetchkit::demo
