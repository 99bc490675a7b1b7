#include "hosts/sqlite/SqliteConnection.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "fetchkit/base/Error.h"
#include "hosts/SmallAccount.h"

namespace fetchkit::hosts::test {
namespace {

constexpr const char* kTables = R"(
  CREATE TABLE t (id INTEGER, d REAL, s TEXT);
  INSERT INTO t VALUES (1, 1.5, '部门'), (2147483648, 2, ''), (NULL, NULL, NULL);
)";

class SqliteConnectionTest : public ::testing::Test {
 protected:
  RecordsetPtr Open(TextView sql) {
    RecordsetPtr recordset;
    EXPECT_TRUE(account.connection->OpenStaticRecordset(sql, recordset, 3, 1, 1, 0));
    return recordset;
  }

  SmallAccount account{kTables};
  SqliteConnection& connection = *account.connection;
};

TEST_F(SqliteConnectionTest, ValuesKeepTheirTypesAndColumnsTheirNames) {
  RecordsetPtr rows = Open(u"SELECT 7 AS S, t.*, nvl(s,'-') As 名称 FROM t ORDER BY id");
  EXPECT_EQ(rows->Column(u"s"), 0U) << "the first of equal names, whatever its letter case";
  EXPECT_EQ(rows->Column(u"ID"), 1U);
  EXPECT_EQ(rows->Column(u"名称"), 4U);
  EXPECT_THROW(rows->Column(u"lngId"), Error);
  EXPECT_EQ(std::get<std::int32_t>(rows->At(1).data()), 1);
  EXPECT_EQ(std::get<double>(rows->At(2).data()), 1.5);
  EXPECT_EQ(std::get<Text>(rows->At(3).data()), u"部门");
  rows->MoveNext();
  EXPECT_EQ(std::get<double>(rows->At(1).data()), 2147483648.0);
  EXPECT_EQ(std::get<double>(rows->At(2).data()), 2.0);
  EXPECT_TRUE(rows->At(3).IsNull()) << "a stored empty text is Null";
  rows->MoveNext();
  for (std::size_t column : {1U, 2U, 3U})
    EXPECT_TRUE(rows->At(column).IsNull());
}

TEST_F(SqliteConnectionTest, MovesAndEnds) {
  RecordsetPtr rows = Open(u"SELECT id FROM t ORDER BY id");
  EXPECT_EQ(rows->RecordCount(), 3);
  rows->MoveLast();
  EXPECT_TRUE(rows->At(0).IsNull());
  EXPECT_FALSE(rows->Eof());
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
  EXPECT_FALSE(rows->Bof());
  EXPECT_THROW(rows->At(0), Error);
  EXPECT_THROW(rows->MoveNext(), Error);
  rows->MoveFirst();
  EXPECT_EQ(ToLong(rows->At(0)), 1);

  RecordsetPtr none = Open(u"SELECT id FROM t WHERE 1=0");
  EXPECT_TRUE(none->Eof() && none->Bof());
  EXPECT_EQ(none->RecordCount(), 0);
  EXPECT_THROW(none->MoveFirst(), Error);
  bool isEmpty = false;
  connection.RecordsetIsEmpty(none, isEmpty);
  EXPECT_TRUE(isEmpty);
}

TEST_F(SqliteConnectionTest, RecordsetsAreGivenBackOnce) {
  RecordsetPtr rows = Open(u"SELECT id FROM t");
  RecordsetPtr again = rows;
  EXPECT_EQ(connection.openRecordsets(), 1);
  connection.CloseRecordset(rows);
  EXPECT_EQ(rows, nullptr);
  EXPECT_THROW(connection.CloseRecordset(again), Error);
  EXPECT_THROW(connection.CloseRecordset(rows), Error);
  EXPECT_THROW(again->Eof(), Error) << "a closed recordset is not read";
  EXPECT_EQ(connection.openRecordsets(), 0);
}

TEST_F(SqliteConnectionTest, TellsEveryStatement) {
  EXPECT_EQ(account.Rows("Select 1 From ACC01.t Where id || '' = '1'"), "1");
  EXPECT_EQ(account.Execute("UPDATE t SET s='' WHERE id > 0"), "2");
  account.Rows("SELECT x FROM t");
  account.Rows("SELECT id FROM t;");
  ASSERT_EQ(account.reports.size(), 4U);
  const StatementReport& query = account.reports[0];
  EXPECT_TRUE(query.answered);
  EXPECT_EQ(query.sql, u"Select 1 From ACC01.t Where id || '' = '1'");
  EXPECT_EQ(query.adapted, u"Select 1 From ACC01.t Where concat( id, NULL) = '1'");
  EXPECT_EQ(query.rows, 1);
  EXPECT_EQ(query.error, u"");
  EXPECT_EQ(account.reports[1].rows, 2);
  EXPECT_FALSE(account.reports[2].answered);
  EXPECT_EQ(account.reports[2].error, u"no such column: x");
  EXPECT_EQ(account.connection->LastRefusal(), account.reports[3].error);
  EXPECT_EQ(account.reports[3].adapted, u"") << "refused by the adapter, not by the database";
}

TEST_F(SqliteConnectionTest, AccountsInFiles) {
  const std::string path = testing::TempDir() + "100% of #1?.db";
  const auto remove = [&] { std::remove(path.c_str()); };
  remove();
  Database database;
  EXPECT_THROW(database.AttachFile(FromUtf8(path), u"ACC"), Error) << "nothing is created";
  account.connection->database().RunScript("VACUUM ACC01 INTO '" + path + "'");
  database.AttachFile(FromUtf8(path), u"ACC");
  EXPECT_EQ(database.Execute(u"UPDATE ACC.t SET d = 3 WHERE id = 1"), 1);
  Database later;
  later.AttachFile(FromUtf8(path), u"ACC");
  Statement kept(later, u"SELECT d FROM t WHERE id = 1");
  ASSERT_TRUE(kept.Step());
  EXPECT_EQ(ToLong(kept.Column(0)), 3);
  remove();
}

}  // namespace
}  // namespace fetchkit::hosts::test
