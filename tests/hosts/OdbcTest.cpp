// What of the ODBC host needs no database.
#include <gtest/gtest.h>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/Utf8.h"
#include "hosts/odbc/OdbcConnection.h"
#include "hosts/odbc/ReadOnly.h"
#include "hosts/odbc/Secrets.h"

namespace fetchkit::test {
namespace {

TEST(Odbc, PasswordsAreHidden) {
  static constexpr const char16_t* kRows[][3] = {
      {u"DSN=b;UID=sa;PWD=tiger", u"login sa:tiger failed", u"login sa:*** failed"},
      {u"dsn=b;password = pa ss ;", u"[ pa ss ]", u"[***]"},
      {u"PWD={a;}}b};UID=x", u"got a;}b and {a;}}b}", u"got *** and ***"},
      {u"PWD=a;PassWord=aa", u"aa, a and what has an a in a table",
       u"***, *** and what has an *** in *** table"},
      {u"PWD=;UID=x", u"x", u"x"},
      {u"DSN=b;PWD={open", u"{open and open", u"*** and ***"},
      {u"UID=x;SSLKEYPASSWORD=k", u"UID=x;SSLKEYPASSWORD=k, k", u"***, ***"},
  };
  for (const auto& [connection, told, shown] : kRows)
    EXPECT_EQ(ToUtf8(odbc::Secrets(connection).Hide(told)), ToUtf8(shown)) << ToUtf8(connection);
}

TEST(Odbc, ReadOnlyLetsNothingThroughThatMayChangeSomething) {
  for (const TextView query :
       {u"SELECT * FROM a WHERE s = 'DELETE; INTO'", u" /* x */ (select 1 from dual)",
        u"WITH a AS (SELECT 1 FROM b) SELECT * FROM a", u"-- x\nSelect \"UPDATE\" From t"})
    EXPECT_NO_THROW(odbc::RefuseChanges(query)) << ToUtf8(query);
  for (const TextView change :
       {u"", u"DELETE FROM a", u"Begin DELETE FROM a; End;", u"SELECT 1 INTO b FROM a",
        u"SELECT * FROM a FOR UPDATE", u"SELECT x.NEXTVAL FROM DUAL", u"SELECT nextval('x')",
        u"SELECT 1; DELETE FROM a", u"WITH a AS (DELETE FROM b RETURNING *) SELECT * FROM a",
        u"-- SELECT", u"EXPLAIN SELECT 1"})
    EXPECT_THROW(odbc::RefuseChanges(change), Error) << ToUtf8(change);
}

TEST(Odbc, ASourceThatIsNoneIsSaidWithoutItsPassword) {
  try {
    OdbcConnection connection(u"DSN=nowhere;UID=me;PWD=geheim", {});
    FAIL() << "there is none";
  } catch (const Error& error) {
    EXPECT_NE(error.description().find(u"ata source name not found"), Text::npos) << error.what();
    EXPECT_EQ(error.description().find(u"geheim"), Text::npos) << error.what();
  }
}

}  // namespace
}  // namespace fetchkit::test
