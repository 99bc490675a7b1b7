#include "hosts/odbc/ReadOnly.h"

#include "fetchkit/base/Error.h"
#include "hosts/dialect/Tokenizer.h"

namespace fetchkit::odbc {

bool IsQuery(TextView sql) {
  for (std::size_t at = 0; at < sql.size();) {
    const TextView rest = sql.substr(at);
    if (rest.substr(0, 2) == u"--") {
      at = sql.find(u'\n', at);
    } else if (rest.substr(0, 2) == u"/*") {
      at = sql.find(u"*/", at + 2);
      if (at != TextView::npos) at += 2;
    } else if (rest[0] <= u' ' || rest[0] == u'(') {
      ++at;
    } else {
      return EqualFolded(rest.substr(0, 6), u"SELECT") || EqualFolded(rest.substr(0, 4), u"WITH");
    }
  }
  return false;
}

void RefuseChanges(TextView sql) {
  const auto refuse = [](std::size_t position) {
    throw Error(ErrorKind::Host,
                Join(u"The connection is read-only and refuses what may change something, at "
                     u"position ",
                     position, u"."));
  };
  if (!IsQuery(sql)) refuse(1);
  for (const hosts::Token& token : hosts::Tokenize(sql))
    if (hosts::IsSign(token, u";") ||
        hosts::IsAnyWord(token, {u"INSERT", u"UPDATE", u"DELETE", u"MERGE", u"INTO", u"FOR",
                                 u"NEXTVAL", u"SETVAL", u"LASTVAL", u"CALL", u"EXECUTE", u"LOCK"}))
      refuse(token.position);
}

}  // namespace fetchkit::odbc
