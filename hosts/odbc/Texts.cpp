#include "hosts/odbc/Texts.h"

#include <array>
#include <cstddef>
#include <string>

#include "fetchkit/base/Utf8.h"

namespace fetchkit::odbc {
namespace {

// A text as ODBC takes it: units that may be written to, and their number.
class Narrow {
 public:
  explicit Narrow(TextView text) : text_(ToUtf8(text)) {}
  SQLCHAR* data() { return reinterpret_cast<SQLCHAR*>(text_.data()); }
  template <class Size>
  Size size() const {
    return static_cast<Size>(text_.size());
  }

 private:
  std::string text_;
};

template <std::size_t kSize>
Text TextOf(const std::array<SQLCHAR, kSize>& units) {
  return FromUtf8(reinterpret_cast<const char*>(units.data()));
}

#ifdef _WIN32
static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

class Broad {
 public:
  explicit Broad(TextView text) : text_(text) {}
  SQLWCHAR* data() { return reinterpret_cast<SQLWCHAR*>(text_.data()); }
  template <class Size>
  Size size() const {
    return static_cast<Size>(text_.size());
  }

 private:
  Text text_;
};

template <std::size_t kSize>
Text TextOf(const std::array<SQLWCHAR, kSize>& units) {
  return reinterpret_cast<const char16_t*>(units.data());
}
#endif

}  // namespace

std::span<const Encoding> EncodingsFor([[maybe_unused]] SqlEngine engine) {
#ifdef _WIN32
  static constexpr Encoding kWideFirst[] = {Encoding::Wide, Encoding::Utf8};
  static constexpr Encoding kUtf8First[] = {Encoding::Utf8, Encoding::Wide};
  if (engine == SqlEngine::MariaDb) return kUtf8First;
  return kWideFirst;
#else
  static constexpr Encoding kUtf8[] = {Encoding::Utf8};
  return kUtf8;
#endif
}

SQLRETURN Connect(SQLHDBC connection, TextView connectionString,
                  [[maybe_unused]] Encoding encoding) {
#ifdef _WIN32
  if (encoding == Encoding::Wide) {
    Broad text(connectionString);
    return SQLDriverConnectW(connection, nullptr, text.data(), text.size<SQLSMALLINT>(), nullptr, 0,
                             nullptr, SQL_DRIVER_NOPROMPT);
  }
#endif
  Narrow text(connectionString);
  return SQLDriverConnect(connection, nullptr, text.data(), text.size<SQLSMALLINT>(), nullptr, 0,
                          nullptr, SQL_DRIVER_NOPROMPT);
}

SQLRETURN Execute(SQLHSTMT statement, TextView sql, [[maybe_unused]] Encoding encoding) {
#ifdef _WIN32
  if (encoding == Encoding::Wide) {
    Broad text(sql);
    return SQLExecDirectW(statement, text.data(), text.size<SQLINTEGER>());
  }
#endif
  Narrow text(sql);
  return SQLExecDirect(statement, text.data(), text.size<SQLINTEGER>());
}

SQLRETURN DescribeColumn(SQLHSTMT statement, SQLUSMALLINT number,
                         [[maybe_unused]] Encoding encoding, Text& name, SQLSMALLINT& type,
                         SQLULEN& size) {
  const auto read = [&](auto call, auto units) {
    SQLSMALLINT length = 0;
    SQLSMALLINT decimals = 0;
    SQLSMALLINT nullable = 0;
    const SQLRETURN result =
        call(statement, number, units.data(), static_cast<SQLSMALLINT>(units.size()), &length,
             &type, &size, &decimals, &nullable);
    name = TextOf(units);
    return result;
  };
#ifdef _WIN32
  if (encoding == Encoding::Wide) return read(SQLDescribeColW, std::array<SQLWCHAR, 1024>{});
#endif
  return read(SQLDescribeCol, std::array<SQLCHAR, 1024>{});
}

bool ReadDiagnosis(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT record, Text& message) {
  const auto read = [&](auto call, auto state, auto units) {
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN result = call(type, handle, record, state.data(), &native, units.data(),
                                  static_cast<SQLSMALLINT>(units.size()), &length);
    message = TextOf(units);
    return SQL_SUCCEEDED(result);
  };
#ifdef _WIN32
  // Whatever the driver takes: narrow ones come in the code page of the machine.
  return read(SQLGetDiagRecW, std::array<SQLWCHAR, 6>{}, std::array<SQLWCHAR, 4096>{});
#else
  return read(SQLGetDiagRec, std::array<SQLCHAR, 6>{}, std::array<SQLCHAR, 4096>{});
#endif
}

}  // namespace fetchkit::odbc
