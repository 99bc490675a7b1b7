#include "hosts/odbc/Link.h"

#include "fetchkit/base/Error.h"

namespace fetchkit::odbc {
namespace {

// "[driver manager][driver]what the database said" without what stands in brackets.
TextView WithoutOrigins(TextView text) {
  while (!text.empty() && text.front() == u'[') {
    const std::size_t end = text.find(u']');
    if (end == TextView::npos) break;
    text.remove_prefix(end + 1);
  }
  while (!text.empty() && (text.back() == u'\n' || text.back() == u' '))
    text.remove_suffix(1);
  return TrimBlanks(text);
}

Text WordsFor(SQLSMALLINT type, SQLHANDLE handle) {
  Text words;
  for (SQLSMALLINT record = 1;; ++record) {
    Text text;
    if (!ReadDiagnosis(type, handle, record, text)) break;
    const TextView said = WithoutOrigins(text);
    if (said.empty() || words.find(said) != Text::npos) continue;
    AppendWith(words, u' ', said);
  }
  return words.empty() ? Text(u"The driver refuses without a word.") : words;
}

void SetAutocommit(SQLHDBC handle, SQLULEN mode) {
  // An attribute's number travels in the pointer.
  Check(SQLSetConnectAttr(handle, SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(mode),
                          SQL_IS_UINTEGER),
        SQL_HANDLE_DBC, handle);
}

}  // namespace

void Check(SQLRETURN result, SQLSMALLINT type, SQLHANDLE handle) {
  if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
  throw Error(ErrorKind::Host, WordsFor(type, handle));
}

template <SQLSMALLINT kType>
Handle<kType>::Handle(SQLHANDLE parent) {
  if (!SQL_SUCCEEDED(SQLAllocHandle(kType, parent, &handle_)))
    throw Error(ErrorKind::Host, u"The driver manager gives no handle.");
  if constexpr (kType == SQL_HANDLE_ENV)
    SQLSetEnvAttr(handle_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
}

template class Handle<SQL_HANDLE_ENV>;
template class Handle<SQL_HANDLE_DBC>;
template class Handle<SQL_HANDLE_STMT>;

Link::Link(TextView connectionString, std::chrono::seconds timeout, Encoding encoding)
    : encoding_(encoding) {
  const auto seconds = static_cast<SQLULEN>(timeout.count());
  // Not every driver has this limit.
  if (seconds > 0)
    SQLSetConnectAttr(handle(), SQL_ATTR_LOGIN_TIMEOUT, reinterpret_cast<SQLPOINTER>(seconds),
                      SQL_IS_UINTEGER);
  Check(Connect(handle(), connectionString, encoding_), SQL_HANDLE_DBC, handle());
}

Link::~Link() {
  // Nothing is disconnected while a transaction is open.
  SQLEndTran(SQL_HANDLE_DBC, handle(), SQL_ROLLBACK);
  SQLDisconnect(handle());
}

bool Link::IsDead() const {
  if (givenUp_) return true;
  SQLUINTEGER dead = SQL_CD_FALSE;
  return SQL_SUCCEEDED(
             SQLGetConnectAttr(handle(), SQL_ATTR_CONNECTION_DEAD, &dead, sizeof dead, nullptr)) &&
         dead == SQL_CD_TRUE;
}

Transaction::Transaction(Link& link) : link_(link) {
  SetAutocommit(link_.handle(), SQL_AUTOCOMMIT_OFF);
}

Transaction::~Transaction() {
  SQLHDBC const handle = link_.handle();
  if (!committed_ && !SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, handle, SQL_ROLLBACK)))
    link_.GiveUp();
  if (!SQL_SUCCEEDED(SQLSetConnectAttr(handle, SQL_ATTR_AUTOCOMMIT,
                                       reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_ON),
                                       SQL_IS_UINTEGER)))
    link_.GiveUp();
}

void Transaction::Commit() {
  Check(SQLEndTran(SQL_HANDLE_DBC, link_.handle(), SQL_COMMIT), SQL_HANDLE_DBC, link_.handle());
  committed_ = true;
}

}  // namespace fetchkit::odbc
