#include "hosts/windows/SampleObject.h"

#include <charconv>
#include <memory>
#include <stdexcept>
#include <utility>

#include "demo/SampleAccounts.h"
#include "demo/console/StatementList.h"
#include "demo/console/Terminal.h"
#include "fetchkit/base/Error.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/utility/DateKeywords.h"
#include "hosts/windows/ConnectionObject.h"

namespace fetchkit::hosts {
namespace {

// An array from 0, as scripts count.
template <class Texts, class Convert>
Value TextArray(const Texts& texts, Convert&& convert) {
  ValueArray array;
  array.dimensioned = true;
  for (const auto& each : texts) {
    const Text text(convert(each));
    array.items.emplace_back(TextView(text));
  }
  return Value(std::move(array));
}

// The character of four hexadecimal digits at that place; 0 when they are none.
char16_t EscapedCharacter(TextView text, std::size_t at) {
  if (text.size() < at + 4) return 0;
  const std::string digits = ToUtf8(text.substr(at, 4));
  unsigned value = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
  return read.ptr == digits.data() + 4 ? static_cast<char16_t>(value) : u'\0';
}

}  // namespace

HRESULT SampleObject::get_Logins(VARIANT* result) noexcept {
  return Answer(result, [] {
    return TextArray(demo::SampleLogins(),
                     [](const demo::SampleLogin& login) { return FromUtf8(login.name); });
  });
}

HRESULT SampleObject::Connection(BSTR strLogin, BSTR strServer, IDispatch** result) noexcept {
  return Answer(result, [&]() -> IDispatch* {
    try {
      core().Switch(ToUtf8(ViewOf(strLogin)));
    } catch (const std::invalid_argument& unknown) {
      throw Error(ErrorKind::InvalidCall, FromUtf8(unknown.what()));
    }
    const auto& connection = core().connection();
    if (const TextView server = ViewOf(strServer); !server.empty())
      connection->login.server = Text(server);
    return ConnectionObjectOf(connection).Detach();
  });
}

HRESULT SampleObject::get_StatementCount(long* result) noexcept {
  return Answer(result, [&] { return static_cast<std::int32_t>(core().reports().size()); });
}

HRESULT SampleObject::get_StatementText(long lngNumber, BSTR* result) noexcept {
  return Answer(result, [&] { return FromUtf8(demo::OneLine(Report(lngNumber).sql)); });
}

HRESULT SampleObject::get_StatementAnswer(long lngNumber, BSTR* result) noexcept {
  return Answer(result, [&] { return FromUtf8(demo::AnswerOf(Report(lngNumber))); });
}

HRESULT SampleObject::ForgetStatements() noexcept {
  return Run([&] { core().reports().clear(); });
}

HRESULT SampleObject::get_OpenRecordsets(long* result) noexcept {
  return Answer(result, [&] { return static_cast<std::int32_t>(core().openRecordsets()); });
}

HRESULT SampleObject::OpenRecordset(BSTR strSql, IDispatch** result) noexcept {
  return Answer(result, [&]() -> IDispatch* {
    RecordsetPtr rows;
    if (!CurrentConnection().OpenRecordset(ViewOf(strSql), rows, 0, 0))
      throw Error(ErrorKind::Host, core().reports().back().error);
    return RecordsetOf(std::move(rows), core().connection());
  });
}

HRESULT SampleObject::CloseRecordset(IDispatch* objRecordset) noexcept {
  return Run([&] { GiveBack(objRecordset, CurrentConnection()); });
}

HRESULT SampleObject::get_Keywords(VARIANT* result) noexcept {
  return Answer(result,
                [] { return TextArray(kDateKeywords, [](TextView each) { return each; }); });
}

HRESULT SampleObject::Unescaped(BSTR strText, BSTR* result) noexcept {
  return Answer(result, [&] {
    Text plain;
    TextView left = ViewOf(strText);
    for (std::size_t at; (at = left.find(u"\\u")) != TextView::npos;) {
      const char16_t character = EscapedCharacter(left, at + 2);
      plain.append(left.substr(0, at));
      if (character) {
        plain.push_back(character);
      } else {
        plain.append(u"\\u");
      }
      left.remove_prefix(at + (character ? 6 : 2));
    }
    return plain.append(left);
  });
}

HRESULT SampleObject::WriteLine(BSTR strText) noexcept {
  return Run([&] { demo::Write(stdout, ToUtf8(ViewOf(strText)) + '\n'); });
}

const StatementReport& SampleObject::Report(long number) const {
  const auto& reports = core().reports();
  if (number < 1 || static_cast<std::size_t>(number) > reports.size())
    throw Error(ErrorKind::InvalidCall,
                Join(u"There is no statement ", std::int32_t{number}, u"."));
  return reports[static_cast<std::size_t>(number) - 1];
}

TracedConnection& SampleObject::CurrentConnection() const {
  const auto& connection = core().connection();
  if (!connection) throw Error(ErrorKind::ObjectMissing, u"Ask for a connection first.");
  return *connection;
}

}  // namespace fetchkit::hosts
