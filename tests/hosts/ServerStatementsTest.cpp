// What a user could type, asked of the database servers that FETCHKIT_SERVERS tells of (Servers.h):
// each statement is answered as the dialect is documented, or refused.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <map>

#include "fetchkit/base/Utf8.h"
#include "hosts/DialectStatements.h"
#include "hosts/Servers.h"
#include "hosts/odbc/Link.h"
#include "hosts/odbc/OdbcConnection.h"
#include "hosts/odbc/Statement.h"

namespace fetchkit::hosts::test {
namespace {

using namespace std::chrono_literals;
using demo::test::Change;
using demo::test::Rows;
using demo::test::Servers;

constexpr TextView kSchema = u"FETCHKIT_DIALECT";

class ServerStatements : public testing::TestWithParam<demo::OdbcTarget> {
 protected:
  void SetUp() override {
    const bool isPostgreSql = GetParam().engine == SqlEngine::PostgreSql;
    const TextView schema = isPostgreSql ? u"fetchkit_dialect" : kSchema;
    Directly(Join(u"DROP SCHEMA IF EXISTS ", schema, isPostgreSql ? u" CASCADE" : u""));
    Directly(Join(u"CREATE SCHEMA ", schema,
                  isPostgreSql ? u"" : u" CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin"));
    Directly(Join(isPostgreSql ? u"SET search_path TO " : u"USE ", schema));
    Text script = FromUtf8(kDialectTables);
    const std::map<TextView, TextView> types = {{u" REAL", u" double precision"},
                                                {u"VARCHAR2(20)", u"varchar(20)"},
                                                {u"NUMBER(10,2)", u"numeric(10,2)"}};
    for (const auto& [type, word] : types)
      for (std::size_t at; (at = script.find(type)) != Text::npos;)
        script.replace(at, type.size(), word);
    for (const TextView statement : Split(script, u";"))
      if (statement.find_first_not_of(u" \n") != TextView::npos) Directly(statement);
    connection_ = std::make_shared<OdbcConnection>(FromUtf8(GetParam().connectionString),
                                                   OdbcSettings{.engine = GetParam().engine});
    connection_->login.userId = kSchema;
    connection_->trace = [this](const StatementReport& report) { report_ = report; };
  }

  void TearDown() override {
    const bool isPostgreSql = GetParam().engine == SqlEngine::PostgreSql;
    Directly(isPostgreSql ? Join(u"DROP SCHEMA fetchkit_dialect CASCADE")
                          : Join(u"DROP SCHEMA ", kSchema));
  }

  void Directly(TextView sql) { odbc::Statement(link_, 10s).Change(sql); }

  void Play(const std::vector<DialectStatement>& statements) {
    for (const DialectStatement& each : statements) {
      const std::string given = each.IsQuery() ? Rows(*connection_, FromUtf8(each.sql))
                                               : Change(*connection_, FromUtf8(each.sql));
      // What the embedded host need not know, a server may.
      const std::string known = "refused (";
      const std::string answer = each.answer.starts_with(known)
                                     ? each.answer.substr(known.size(), each.answer.size() - 10)
                                     : each.answer;
      if (!report_.answered) {
        ++refused_;
      } else if (given == answer) {
        ++right_;
      } else {
        ++wrong_;
        ADD_FAILURE() << each.sql << "\n  answers " << given << "\n  should be " << each.answer
                      << "\n  was sent as " << ToUtf8(report_.adapted);
      }
    }
  }

  odbc::Link link_{FromUtf8(GetParam().connectionString), 5s};
  std::shared_ptr<OdbcConnection> connection_;
  StatementReport report_;
  int right_ = 0;
  int refused_ = 0;
  int wrong_ = 0;
};

INSTANTIATE_TEST_SUITE_P(Engines, ServerStatements, testing::ValuesIn(Servers()),
                         [](const auto& server) {
                           return std::string(NameOf(server.param.engine));
                         });

TEST_P(ServerStatements, AreAnsweredAsTheDialectSaysOrRefused) {
  for (const auto& table : {Expressions(), Conditions(), WholeStatements(), Comparisons()})
    Play(table);
  std::printf("%s: right %d, refused %d, wrong %d\n",
              std::string(NameOf(GetParam().engine)).c_str(), right_, refused_, wrong_);
  EXPECT_GT(right_, 1000) << "what the dialect knows is answered";
}

}  // namespace
}  // namespace fetchkit::hosts::test
