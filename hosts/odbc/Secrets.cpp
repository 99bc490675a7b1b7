#include "hosts/odbc/Secrets.h"

#include <algorithm>

namespace fetchkit::odbc {
namespace {

bool IsPassword(TextView key) {
  const Text upper = UpperAscii(TrimBlanks(key));
  return upper.find(u"PWD") != Text::npos || upper.find(u"PASS") != Text::npos;
}

bool IsWordUnit(char16_t unit) {
  return (unit >= u'0' && unit <= u'9') || (UpperAscii(unit) >= u'A' && UpperAscii(unit) <= u'Z') ||
         unit >= 0x80;
}

// Whether what stands there is a word of its own: hiding every "a" would tell that it is one.
bool IsWhole(TextView text, std::size_t at, std::size_t size) {
  const std::size_t end = at + size;
  return !(at > 0 && IsWordUnit(text[at - 1]) && IsWordUnit(text[at])) &&
         !(end < text.size() && IsWordUnit(text[end]) && IsWordUnit(text[end - 1]));
}

}  // namespace

Secrets::Secrets(TextView connectionString) {
  hidden_.emplace_back(connectionString);
  for (std::size_t at = 0; at < connectionString.size();) {
    const std::size_t equals = connectionString.find(u'=', at);
    if (equals == TextView::npos) break;
    const TextView key = connectionString.substr(at, equals - at);
    std::size_t begin = equals + 1;
    std::size_t end = connectionString.find(u';', begin);
    if (begin < connectionString.size() && connectionString[begin] == u'{') {
      // In braces a value may hold semicolons, and "}}" stands for a brace.
      std::size_t close = connectionString.find(u'}', begin);
      while (close != TextView::npos && connectionString.substr(close + 1, 1) == u"}")
        close = connectionString.find(u'}', close + 2);
      end = connectionString.find(u';', std::min(close, connectionString.size()));
    }
    end = std::min(end, connectionString.size());
    at = end + 1;
    if (!IsPassword(key)) continue;
    TextView value = connectionString.substr(begin, end - begin);
    if (!value.empty()) hidden_.emplace_back(value);
    if (value.size() < 3 || value.front() != u'{') continue;
    value = value.substr(1, value.rfind(u'}') - 1);
    Text plain;  // as the driver gets it
    for (std::size_t i = 0; i < value.size(); ++i) {
      plain += value[i];
      if (value.substr(i, 2) == u"}}") ++i;
    }
    hidden_.push_back(plain);
  }
  std::erase_if(hidden_, [](const Text& text) { return text.empty(); });
  // The longest first, or a piece of it would be left.
  std::sort(hidden_.begin(), hidden_.end(),
            [](const Text& a, const Text& b) { return a.size() > b.size(); });
}

Text Secrets::Hide(TextView text) const {
  Text shown(text);
  for (const Text& secret : hidden_)
    for (std::size_t at = 0; (at = shown.find(secret, at)) != Text::npos;) {
      if (!IsWhole(shown, at, secret.size())) {
        ++at;
        continue;
      }
      shown.replace(at, secret.size(), u"***");
      at += 3;
    }
  return shown;
}

}  // namespace fetchkit::odbc
