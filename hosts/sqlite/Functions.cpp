#include "hosts/sqlite/Functions.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <exception>
#include <iterator>
#include <new>
#include <stdexcept>
#include <string>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/Numbers.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/base/Utf8.h"
#include "hosts/dialect/NumberTexts.h"

namespace fetchkit::hosts {
namespace {

struct Arguments {
  int count;
  sqlite3_value** values;

  sqlite3_value* operator[](int i) const { return values[i]; }
};

bool IsNull(sqlite3_value* value) {
  return sqlite3_value_type(value) == SQLITE_NULL;
}

// Goes to whoever sent the statement.
class Refusal : public std::runtime_error {
 public:
  explicit Refusal(const std::string& what)
      : std::runtime_error("The adapter refuses " + what + ".") {}
};

// The last argument of what may fail, if it is there: a position in the statement as it was sent.
std::string PlaceIn(sqlite3_value* position) {
  return ", at position " + std::to_string(sqlite3_value_int64(position));
}

// A number without needless zeros, where the embedded database would write 12.0.
Text TextOf(sqlite3_value* value) {
  if (sqlite3_value_type(value) == SQLITE_FLOAT) {
    Text text = TextOfNumber(sqlite3_value_double(value));
    if (text.empty()) throw Refusal("a number of too many digits as a text");
    return text;
  }
  const auto* text = static_cast<const char16_t*>(sqlite3_value_text16(value));
  if (text == nullptr) return {};
  return Text(text, static_cast<std::size_t>(sqlite3_value_bytes16(value)) / sizeof(char16_t));
}

void Answer(sqlite3_context* context, TextView text) {
  if (text.empty()) return sqlite3_result_null(context);
  sqlite3_result_text16(context, text.data(), static_cast<int>(text.size() * sizeof(char16_t)),
                        SQLITE_TRANSIENT);
}

void Nvl(sqlite3_context* context, Arguments arguments) {
  sqlite3_result_value(context, arguments[IsNull(arguments[0]) ? 1 : 0]);
}

bool AreEqual(sqlite3_value* left, sqlite3_value* right) {
  if (IsNull(left) || IsNull(right)) return IsNull(left) && IsNull(right);
  const auto isText = [](sqlite3_value* value) { return sqlite3_value_type(value) == SQLITE_TEXT; };
  if (isText(left) && isText(right)) return TextOf(left) == TextOf(right);
  // A number and the text of one are equal.
  if (sqlite3_value_numeric_type(left) == SQLITE_TEXT ||
      sqlite3_value_numeric_type(right) == SQLITE_TEXT)
    return false;
  return sqlite3_value_double(left) == sqlite3_value_double(right);
}

void Decode(sqlite3_context* context, Arguments arguments) {
  if (arguments.count < 3)
    return sqlite3_result_error(context, "decode takes at least three arguments", -1);
  int i = 1;
  for (; i + 1 < arguments.count; i += 2)
    if (AreEqual(arguments[0], arguments[i]))
      return sqlite3_result_value(context, arguments[i + 1]);
  if (i < arguments.count) sqlite3_result_value(context, arguments[i]);  // Null otherwise
}

template <bool kLeft, bool kRight>
void Trim(sqlite3_context* context, Arguments arguments) {
  if (IsNull(arguments[0]) || (arguments.count > 1 && IsNull(arguments[1]))) return;
  const Text text = TextOf(arguments[0]);
  const Text set = arguments.count > 1 ? TextOf(arguments[1]) : Text(u" ");
  TextView rest = text;
  if (kLeft) rest.remove_prefix(std::min(rest.find_first_not_of(set), rest.size()));
  if (kRight) rest = rest.substr(0, rest.find_last_not_of(set) + 1);
  Answer(context, rest);
}

bool IsTrail(char16_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

// Characters of a text, and where the n-th begins: the text's end where there are fewer.
std::int64_t CharactersIn(TextView text) {
  return static_cast<std::int64_t>(
      std::count_if(text.begin(), text.end(), [](char16_t unit) { return !IsTrail(unit); }));
}
std::size_t UnitAt(TextView text, std::int64_t character) {
  std::size_t at = 0;
  for (; at < text.size() && (character > 0 || IsTrail(text[at])); ++at)
    if (!IsTrail(text[at])) --character;
  return at;
}

void Substr(sqlite3_context* context, Arguments arguments) {
  for (int i = 0; i < arguments.count; ++i)
    if (IsNull(arguments[i])) return;
  const Text text = TextOf(arguments[0]);
  const std::int64_t size = CharactersIn(text);
  std::int64_t from = sqlite3_value_int64(arguments[1]);
  if (from > 0) --from;
  if (from < 0) from += size;
  const std::int64_t count = arguments.count > 2 ? sqlite3_value_int64(arguments[2]) : size;
  if (from < 0 || from >= size || count < 1) return;
  const TextView rest = TextView(text).substr(UnitAt(text, from));
  Answer(context, rest.substr(0, UnitAt(rest, std::min(count, size))));
}

void Instr(sqlite3_context* context, Arguments arguments) {
  for (int i = 0; i < arguments.count; ++i)
    if (IsNull(arguments[i])) return;
  const Text text = TextOf(arguments[0]);
  const Text what = TextOf(arguments[1]);
  std::int64_t from = arguments.count > 2 ? sqlite3_value_int64(arguments[2]) : 1;
  std::int64_t nth = arguments.count > 3 ? sqlite3_value_int64(arguments[3]) : 1;
  if (nth < 1) throw Refusal("instr looks for the first hit or a later one");
  const std::int64_t size = CharactersIn(text);
  if (from == 0 || from > size || from < -size) return sqlite3_result_int(context, 0);
  const bool back = from < 0;
  std::size_t at = UnitAt(text, back ? size + from : from - 1);
  for (;; at += back ? std::size_t(-1) : 1) {
    at = back ? text.rfind(what, at) : text.find(what, at);
    if (at == Text::npos) return sqlite3_result_int(context, 0);
    if (--nth == 0) break;
    if (back && at == 0) return sqlite3_result_int(context, 0);
  }
  sqlite3_result_int64(context, CharactersIn(TextView(text).substr(0, at)) + 1);
}

// Capital and small letters that stand at a distance from each other.
struct Letters {
  char16_t first;  // of the capital ones
  char16_t last;
  int distance;
};
constexpr Letters kLetters[] = {{u'A', u'Z', 32},     {0x00C0, 0x00D6, 32}, {0x00D8, 0x00DE, 32},
                                {0x0391, 0x03A1, 32}, {0x03A3, 0x03A9, 32}, {0x0400, 0x040F, 80},
                                {0x0410, 0x042F, 32}, {0xFF21, 0xFF3A, 32}};

// Characters that have no case: signs, Chinese, Japanese and Korean.
struct Range {
  char16_t first;
  char16_t last;
};
constexpr Range kCaseless[] = {
    {0x0000, 0x00A9}, {0x00AB, 0x00B4}, {0x00B6, 0x00B9}, {0x00BB, 0x00BF}, {0x00D7, 0x00D7},
    {0x00F7, 0x00F7}, {0x2000, 0x206F}, {0x20A0, 0x20CF}, {0x2190, 0x24B5}, {0x24EA, 0x2BFF},
    {0x2E80, 0xA63F}, {0xAC00, 0xDFFF}, {0xF900, 0xFAFF}, {0xFE30, 0xFE6F}, {0xFF01, 0xFF20},
    {0xFF3B, 0xFF40}, {0xFF5B, 0xFFEF}};

template <bool kUpper>
void ChangeCase(sqlite3_context* context, Arguments arguments) {
  if (IsNull(arguments[0])) return;
  Text text = TextOf(arguments[0]);
  for (char16_t& unit : text) {
    // Letters beyond the first 65,536 characters, Deseret and others, begin with D801 to D83A.
    bool isKnown = unit < 0xD801 || unit > 0xD83A;
    bool isLetter = false;
    for (const Letters& letters : kLetters) {
      const bool isUpper = unit >= letters.first && unit <= letters.last;
      const bool isLower =
          unit >= letters.first + letters.distance && unit <= letters.last + letters.distance;
      if (!isUpper && !isLower) continue;
      isLetter = true;
      if (isUpper != kUpper)
        unit = static_cast<char16_t>(unit + (isUpper ? letters.distance : -letters.distance));
      break;
    }
    isKnown = isKnown &&
              (isLetter ||
               std::any_of(std::begin(kCaseless), std::end(kCaseless), [&](const Range& range) {
                 return unit >= range.first && unit <= range.last;
               }));
    if (!isKnown) throw Refusal("a letter whose other case is not known to upper and lower");
  }
  Answer(context, text);
}

void AnswerNumber(sqlite3_context* context, double number) {
  if (!std::isfinite(number)) throw Refusal("a number that is too large");
  sqlite3_result_double(context, number);
}

bool IsWhole(sqlite3_value* value) {
  return sqlite3_value_type(value) == SQLITE_INTEGER;
}

// Moves the point, so that the digits to be kept stand in front of it; all of them are decimal.
template <bool kRound>
void CutDigits(sqlite3_context* context, Arguments arguments) {
  for (int i = 0; i < arguments.count; ++i)
    if (IsNull(arguments[i])) return;
  const double wanted = arguments.count > 1 ? std::trunc(sqlite3_value_double(arguments[1])) : 0;
  const int places = static_cast<int>(std::clamp(wanted, -40.0, 40.0));
  if (IsWhole(arguments[0]) && places >= 0) return sqlite3_result_value(context, arguments[0]);
  const double number = sqlite3_value_double(arguments[0]);
  if (std::fabs(number) >= 1e15) throw Refusal("a number that is too large to cut its digits");
  // A half of the last place that is kept.
  Text text = PlainDecimalText(number);
  std::size_t point = std::min(text.find(u'.'), text.size());
  if (places < 0) {
    // Written out with zeros in front, the digits in front of the point are enough for the cut.
    const bool negative = text.front() == u'-';
    Text digits = text.substr(negative ? 1 : 0, point - (negative ? 1 : 0));
    const auto cut = static_cast<std::size_t>(-places);
    if (digits.size() < cut + 1) digits.insert(0, cut + 1 - digits.size(), u'0');
    const bool up = kRound && digits[digits.size() - cut] >= u'5';
    const double kept = NumericTextToDouble(TextView(digits).substr(0, digits.size() - cut));
    const double result = (kept + (up ? 1 : 0)) * std::pow(10.0, static_cast<double>(cut));
    return AnswerNumber(context, negative && result != 0 ? -result : result);
  }
  if (kRound) return AnswerNumber(context, NumericTextToDouble(FixedText(number, places)));
  const double cut =
      NumericTextToDouble(TextView(text).substr(0, point + 1 + static_cast<std::size_t>(places)));
  AnswerNumber(context, cut == 0 ? 0 : cut);
}

void Sign(sqlite3_context* context, Arguments arguments) {
  if (IsNull(arguments[0])) return;
  const double number = sqlite3_value_double(arguments[0]);
  sqlite3_result_int(context, number > 0 ? 1 : number < 0 ? -1 : 0);
}

double ExactOf(double number) {
  return NumericTextToDouble(NumberText(number));
}

void Floor(sqlite3_context* context, Arguments arguments) {
  if (IsNull(arguments[0])) return;
  if (IsWhole(arguments[0])) return sqlite3_result_value(context, arguments[0]);
  AnswerNumber(context, std::floor(ExactOf(sqlite3_value_double(arguments[0]))));
}

void Mod(sqlite3_context* context, Arguments arguments) {
  if (IsNull(arguments[0]) || IsNull(arguments[1])) return;
  const double by = sqlite3_value_double(arguments[1]);
  if (by == 0) return sqlite3_result_value(context, arguments[0]);
  if (!IsWhole(arguments[0]) || !IsWhole(arguments[1]))
    throw Refusal("mod takes whole numbers alone");
  const std::int64_t divisor = sqlite3_value_int64(arguments[1]);
  sqlite3_result_int64(context, divisor == -1 ? 0 : sqlite3_value_int64(arguments[0]) % divisor);
}

void ToNumber(sqlite3_context* context, Arguments arguments) {
  if (IsNull(arguments[0])) return;
  if (sqlite3_value_type(arguments[0]) != SQLITE_TEXT)
    return sqlite3_result_value(context, arguments[0]);
  const Text text = TextOf(arguments[0]);
  const auto number = NumberOf(text);
  if (!number)
    throw Refusal("a text that is no number: " + ToUtf8(text.substr(0, 40)) +
                  (arguments.count > 1 ? PlaceIn(arguments[1]) : ""));
  if (const auto* whole = std::get_if<std::int64_t>(&*number))
    return sqlite3_result_int64(context, *whole);
  sqlite3_result_double(context, std::get<double>(*number));
}

void ToChar(sqlite3_context* context, Arguments arguments) {
  if (!IsNull(arguments[0])) Answer(context, TextOf(arguments[0]));
}

void Exact(sqlite3_context* context, Arguments arguments) {
  if (IsNull(arguments[0])) return;
  if (IsWhole(arguments[0])) return sqlite3_result_value(context, arguments[0]);
  AnswerNumber(context, ExactOf(sqlite3_value_double(arguments[0])));
}

void Quotient(sqlite3_context* context, Arguments arguments) {
  if (IsNull(arguments[0]) || IsNull(arguments[1])) return;
  const double divisor = sqlite3_value_double(arguments[1]);
  if (divisor == 0) throw Refusal("a division by zero" + PlaceIn(arguments[2]));
  AnswerNumber(context, sqlite3_value_double(arguments[0]) / divisor);
}

void TextOnly(sqlite3_context* context, Arguments arguments) {
  if (!IsNull(arguments[0]) && sqlite3_value_type(arguments[0]) != SQLITE_TEXT)
    throw Refusal("a number beside a text" + PlaceIn(arguments[1]));
  sqlite3_result_value(context, arguments[0]);
}

void Nvl2(sqlite3_context* context, Arguments arguments) {
  sqlite3_result_value(context, arguments[IsNull(arguments[0]) ? 2 : 1]);
}

// What only_row keeps between its rows, in memory of the database that is zero at first.
struct OneValue {
  sqlite3_value* value;
};

void OnlyRowStep(sqlite3_context* context, int count, sqlite3_value** values) {
  auto* kept = static_cast<OneValue*>(sqlite3_aggregate_context(context, sizeof(OneValue)));
  if (kept == nullptr) return sqlite3_result_error_nomem(context);
  if (kept->value != nullptr) {
    try {
      const Refusal refusal("several rows for one value" + (count > 1 ? PlaceIn(values[1]) : ""));
      return sqlite3_result_error(context, refusal.what(), -1);
    } catch (const std::exception&) {
      return sqlite3_result_error_nomem(context);
    }
  }
  kept->value = sqlite3_value_dup(values[0]);
  if (kept->value == nullptr) sqlite3_result_error_nomem(context);
}

void OnlyRowEnd(sqlite3_context* context) {
  auto* kept = static_cast<OneValue*>(sqlite3_aggregate_context(context, 0));
  if (kept == nullptr || kept->value == nullptr) return sqlite3_result_null(context);
  sqlite3_result_value(context, kept->value);
  sqlite3_value_free(kept->value);
}

void ReplaceText(sqlite3_context* context, Arguments arguments) {
  const Text text = TextOf(arguments[0]);
  const Text old = TextOf(arguments[1]);
  if (old.empty()) return Answer(context, text);
  const Text with = arguments.count > 2 ? TextOf(arguments[2]) : Text();
  Text replaced;
  std::size_t from = 0;
  for (std::size_t at; (at = FindText(text, old, from)) != Text::npos; from = at + old.size())
    replaced.append(text, from, at - from).append(with);
  Answer(context, replaced.append(text, from));
}

void Concat(sqlite3_context* context, Arguments arguments) {
  Text joined;
  for (int i = 0; i < arguments.count; ++i)
    joined += TextOf(arguments[i]);
  Answer(context, joined);
}

// No exception may pass through the embedded database.
template <void (*kFunction)(sqlite3_context*, Arguments)>
void Call(sqlite3_context* context, int count, sqlite3_value** values) {
  try {
    kFunction(context, {count, values});
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  } catch (const std::exception& error) {
    sqlite3_result_error(context, error.what(), -1);
  }
}

struct Entry {
  const char* name;
  int arguments;  // -1: any number
  void (*function)(sqlite3_context*, int, sqlite3_value**);
};

constexpr Entry kEntries[] = {
    {"nvl", 2, Call<Nvl>},
    {"decode", -1, Call<Decode>},
    {"ltrim", 1, Call<Trim<true, false>>},
    {"ltrim", 2, Call<Trim<true, false>>},
    {"rtrim", 1, Call<Trim<false, true>>},
    {"rtrim", 2, Call<Trim<false, true>>},
    {"trim", 1, Call<Trim<true, true>>},
    {"trim", 2, Call<Trim<true, true>>},
    {"substr", 2, Call<Substr>},
    {"substr", 3, Call<Substr>},
    {"replace", 2, Call<ReplaceText>},
    {"replace", 3, Call<ReplaceText>},
    {"concat", -1, Call<Concat>},
    {"instr", 2, Call<Instr>},
    {"instr", 3, Call<Instr>},
    {"instr", 4, Call<Instr>},
    {"upper", 1, Call<ChangeCase<true>>},
    {"lower", 1, Call<ChangeCase<false>>},
    {"round", 1, Call<CutDigits<true>>},
    {"round", 2, Call<CutDigits<true>>},
    {"trunc", 1, Call<CutDigits<false>>},
    {"trunc", 2, Call<CutDigits<false>>},
    {"sign", 1, Call<Sign>},
    {"floor", 1, Call<Floor>},
    {"mod", 2, Call<Mod>},
    {"nvl2", 3, Call<Nvl2>},
    {"to_number", 1, Call<ToNumber>},
    {"to_number", 2, Call<ToNumber>},
    {"to_char", 1, Call<ToChar>},
    {"exact", 1, Call<Exact>},
    {"quotient", 3, Call<Quotient>},
    {"text_only", 2, Call<TextOnly>},
};

}  // namespace

void AddFunctions(sqlite3* database) {
  constexpr int kTraits = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  bool taken = sqlite3_create_function_v2(database, "only_row", -1, kTraits, nullptr, nullptr,
                                          OnlyRowStep, OnlyRowEnd, nullptr) == SQLITE_OK;
  for (const Entry& entry : kEntries)
    taken =
        taken && sqlite3_create_function_v2(database, entry.name, entry.arguments, kTraits, nullptr,
                                            entry.function, nullptr, nullptr, nullptr) == SQLITE_OK;
  if (!taken) throw Error(ErrorKind::Host, u"The embedded database takes no functions.");
}

}  // namespace fetchkit::hosts
