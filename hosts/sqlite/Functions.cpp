#include "hosts/sqlite/Functions.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <new>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/Numbers.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/base/TextSearch.h"

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

// A number without needless zeros, where the embedded database would write 12.0.
Text TextOf(sqlite3_value* value) {
  if (sqlite3_value_type(value) == SQLITE_FLOAT) return NumberText(sqlite3_value_double(value));
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

void Substr(sqlite3_context* context, Arguments arguments) {
  for (int i = 0; i < arguments.count; ++i)
    if (IsNull(arguments[i])) return;
  const Text text = TextOf(arguments[0]);
  const auto size = static_cast<std::int64_t>(text.size());
  std::int64_t from = sqlite3_value_int64(arguments[1]);
  if (from > 0) --from;
  if (from < 0) from += size;
  const std::int64_t count = arguments.count > 2 ? sqlite3_value_int64(arguments[2]) : size;
  if (from < 0 || from >= size || count < 1) return;
  Answer(context,
         TextView(text).substr(static_cast<std::size_t>(from), static_cast<std::size_t>(count)));
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
};

}  // namespace

void AddFunctions(sqlite3* database) {
  for (const Entry& entry : kEntries)
    if (sqlite3_create_function_v2(database, entry.name, entry.arguments,
                                   SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr,
                                   entry.function, nullptr, nullptr, nullptr) != SQLITE_OK)
      throw Error(ErrorKind::Host, u"The embedded database takes no functions.");
}

}  // namespace fetchkit::hosts
