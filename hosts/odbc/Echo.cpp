#include "hosts/odbc/Echo.h"

namespace fetchkit::odbc {
namespace {

// Characters of one and of several bytes in every encoding that a driver might take for UTF-8.
constexpr TextView kEcho = u"'a\u90e8\u9580\u00e9'";

}  // namespace

bool TextsComeThrough(Statement&& statement, const hosts::Engine& engine) {
  const Rows echo = statement.Query(engine.EchoQuery(kEcho));
  return ToTextOrEmpty(echo.cells.at(0)) == kEcho.substr(1, kEcho.size() - 2);
}

Encoding EncodingFor(TextView connectionString, SqlEngine engine, std::chrono::seconds timeout) {
  const auto encodings = EncodingsFor(engine);
  for (const Encoding encoding : encodings.first(encodings.size() - 1)) {
    Link link(connectionString, timeout, encoding);
    if (TextsComeThrough({link, timeout}, hosts::EngineOf(engine))) return encoding;
  }
  return encodings.back();
}

}  // namespace fetchkit::odbc
