#include "session/SampleBooks.h"

#include "fetchkit/base/Utf8.h"
#include "support/Lines.h"

namespace fetchkit::test {
namespace {

std::vector<std::pair<Text, Answer>> ReadFirstLogin() {
  std::vector<std::pair<Text, Answer>> login;
  for (const auto& line : Lines(
#include "session/FirstLogin.txt"
           )) {
    if (line[0].find("SELECT ") <= 1) {
      login.emplace_back(FromUtf8(line[0]), Rows({}, {}));
      continue;
    }
    Answer& answer = login.back().second;
    answer.columns.clear();
    auto& row = answer.rows.emplace_back();
    for (const std::string& cell : line) {
      const std::size_t equals = cell.find('=');
      answer.columns.push_back(FromUtf8(cell.substr(0, equals)));
      const Text value = FromUtf8(cell.substr(equals + 1));
      row.push_back(value.starts_with(u'\'') ? Value(value.substr(1)) : ToLong(value));
    }
  }
  return login;
}

}  // namespace

const std::vector<std::pair<Text, Answer>>& FirstLogin() {
  static const std::vector<std::pair<Text, Answer>> login = ReadFirstLogin();
  return login;
}

std::shared_ptr<FakeConnection> GoodHost() {
  auto host = std::make_shared<FakeConnection>();
  for (const auto& [sql, answer] : FirstLogin())
    host->On(sql, answer);
  return host;
}

}  // namespace fetchkit::test
