#include "hosts/odbc/Columns.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <string_view>

#include "fetchkit/base/Date.h"
#include "fetchkit/base/Error.h"
#include "fetchkit/base/Utf8.h"
#include "hosts/odbc/Link.h"

namespace fetchkit::odbc {
namespace {

constexpr SQLULEN kRowsAtOnce = 256;
constexpr SQLLEN kFirstWidth = 1024;       // bytes of a text, before its length is known
constexpr SQLLEN kLongestText = 1 << 28;   // bytes
constexpr SQLLEN kBufferBytes = 64 << 20;  // of all columns together, unless one row takes more

[[noreturn]] void Fail(TextView what, TextView column) {
  throw Error(ErrorKind::Host, Join(u"Column ", column, u" holds ", what, u"."));
}

enum class Kind { Long, Double, Timestamp, Number, Text, WideText };

Kind KindOf(SQLSMALLINT type) {
  if (IsDate(type)) return Kind::Timestamp;
  switch (type) {
    case SQL_INTEGER:
    case SQL_SMALLINT:
    case SQL_TINYINT:
    case SQL_BIT:
      return Kind::Long;
    case SQL_DOUBLE:
    case SQL_FLOAT:
    case SQL_REAL:
      return Kind::Double;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
    case SQL_BIGINT:
      // As text: not every driver has 64-bit integers, and a double may be read by the locale.
      return Kind::Number;
    default:
      return Kind::Text;
  }
}

Value WholeOrDouble(double number) {
  if (number == std::trunc(number) && number >= std::numeric_limits<std::int32_t>::min() &&
      number <= std::numeric_limits<std::int32_t>::max())
    return static_cast<std::int32_t>(number);
  return number;
}

Value NumberOf(std::string_view digits, TextView column) {
  double number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size() || !std::isfinite(number))
    Fail(Join(u"what is no number: ", FromUtf8(digits)), column);
  return WholeOrDouble(number);
}

Value DateOf(const SQL_TIMESTAMP_STRUCT& parts, TextView column) {
  const std::optional<Date> day = DateFromYmd(parts.year, parts.month, parts.day);
  if (!day) Fail(u"a date outside of the years 100 to 9999", column);
  const double seconds = parts.hour * 3600 + parts.minute * 60 + parts.second +
                         static_cast<double>(parts.fraction) / 1e9;
  // Before day 0 the time counts away from it.
  const double time = seconds / 86400;
  return Date{day->serial < 0 ? day->serial - time : day->serial + time};
}

// One column of an array of rows.
class Buffer {
 public:
  Buffer(const ColumnDescription& column, Encoding encoding, SQLLEN width)
      : name_(column.name),
        kind_(column.yearAlone ? Kind::Long : KindOf(column.type)),
        width_(width) {
    if (kind_ == Kind::Text && encoding == Encoding::Wide) kind_ = Kind::WideText;
    if (kind_ == Kind::Long) width_ = sizeof(SQLINTEGER);
    if (kind_ == Kind::Double) width_ = sizeof(SQLDOUBLE);
    if (kind_ == Kind::Timestamp) width_ = sizeof(SQL_TIMESTAMP_STRUCT);
    if (width_ > 0) return;
    // A character takes up to four bytes in either encoding.
    const auto size = static_cast<SQLLEN>(std::min<SQLULEN>(column.size, kFirstWidth));
    width_ = size == 0 ? kFirstWidth : std::min(size * 4, kFirstWidth) + End();
  }

  SQLLEN width() const { return width_; }

  void Bind(SQLHSTMT statement, SQLUSMALLINT number, std::size_t rows) {
    // Left as it is: most of it is never written.
    bytes_.reset(new char[static_cast<std::size_t>(width_) * rows]);
    lengths_.assign(rows, SQL_NULL_DATA);
    Check(SQLBindCol(statement, number, CType(), bytes_.get(), width_, lengths_.data()),
          SQL_HANDLE_STMT, statement);
  }

  // The bytes that the row's text needs when it did not fit; 0 when it did.
  SQLLEN Needed(std::size_t row) const {
    if (kind_ != Kind::Number && kind_ != Kind::Text && kind_ != Kind::WideText) return 0;
    const SQLLEN length = lengths_[row];
    if (length == SQL_NO_TOTAL) return width_ * 8;
    return length + End() > width_ ? length + End() : 0;
  }

  Value At(std::size_t row) const {
    if (lengths_[row] == SQL_NULL_DATA) return NullValue{};
    switch (kind_) {
      case Kind::Long:
        return std::int32_t{Read<SQLINTEGER>(row)};
      case Kind::Double:
        return Read<SQLDOUBLE>(row);
      case Kind::Timestamp:
        return DateOf(Read<SQL_TIMESTAMP_STRUCT>(row), name_);
      case Kind::Number:
        return NumberOf(Chars(row), name_);
      case Kind::Text:
      case Kind::WideText:
        break;
    }
    const std::string_view chars = Chars(row);
    if (chars.empty()) return NullValue{};
    if (kind_ == Kind::Text) return FromUtf8(chars);
    Text text(chars.size() / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), chars.data(), text.size() * sizeof(char16_t));
    return text;
  }

 private:
  // The zero behind a text.
  SQLLEN End() const { return kind_ == Kind::WideText ? 2 : 1; }

  SQLSMALLINT CType() const {
    if (kind_ == Kind::Long) return SQL_C_SLONG;
    if (kind_ == Kind::WideText) return SQL_C_WCHAR;
    if (kind_ == Kind::Double) return SQL_C_DOUBLE;
    return kind_ == Kind::Timestamp ? SQL_C_TYPE_TIMESTAMP : SQL_C_CHAR;
  }

  const char* Cell(std::size_t row) const {
    return bytes_.get() + static_cast<std::size_t>(width_) * row;
  }

  template <class T>
  T Read(std::size_t row) const {
    T data;
    std::memcpy(&data, Cell(row), sizeof data);
    return data;
  }

  std::string_view Chars(std::size_t row) const {
    return {Cell(row), static_cast<std::size_t>(lengths_[row])};
  }

  Text name_;
  Kind kind_;
  SQLLEN width_;
  std::unique_ptr<char[]> bytes_;
  std::vector<SQLLEN> lengths_;
};

void SetAttribute(SQLHSTMT statement, SQLINTEGER attribute, void* value) {
  Check(SQLSetStmtAttr(statement, attribute, value, 0), SQL_HANDLE_STMT, statement);
}

// The statement's array of rows, unbound when the object goes.
class RowArray {
 public:
  RowArray(SQLHSTMT statement, std::vector<Buffer>& columns) : statement_(statement) {
    SQLLEN row = 0;
    for (const Buffer& column : columns)
      row += column.width();
    size_ = std::clamp<SQLULEN>(static_cast<SQLULEN>(kBufferBytes / row), 1, kRowsAtOnce);
    SetAttribute(statement_, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(size_));
    SetAttribute(statement_, SQL_ATTR_ROWS_FETCHED_PTR, &fetched_);
    SQLUSMALLINT number = 0;
    for (Buffer& column : columns)
      column.Bind(statement_, ++number, size_);
  }

  ~RowArray() {
    SQLFreeStmt(statement_, SQL_UNBIND);
    SQLSetStmtAttr(statement_, SQL_ATTR_ROWS_FETCHED_PTR, nullptr, 0);
    SQLSetStmtAttr(statement_, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(1), 0);
  }

  RowArray(const RowArray&) = delete;
  RowArray& operator=(const RowArray&) = delete;

  // The number of rows in the next array; 0 behind the last one.
  std::size_t Fetch() {
    fetched_ = 0;
    const SQLRETURN result = SQLFetch(statement_);
    if (result == SQL_NO_DATA) return 0;
    Check(result, SQL_HANDLE_STMT, statement_);
    return fetched_;
  }

 private:
  SQLHSTMT statement_;
  SQLULEN size_ = 1;
  SQLULEN fetched_ = 0;
};

}  // namespace

std::vector<ColumnDescription> Describe(SQLHSTMT statement, Encoding encoding) {
  SQLSMALLINT count = 0;
  Check(SQLNumResultCols(statement, &count), SQL_HANDLE_STMT, statement);
  std::vector<ColumnDescription> columns(static_cast<std::size_t>(std::max<SQLSMALLINT>(count, 0)));
  SQLUSMALLINT number = 0;
  for (ColumnDescription& column : columns) {
    Check(DescribeColumn(statement, ++number, encoding, column.name, column.type, column.size),
          SQL_HANDLE_STMT, statement);
    SQLLEN isUnsigned = SQL_FALSE;
    if (column.type == SQL_INTEGER &&
        SQL_SUCCEEDED(SQLColAttribute(statement, number, SQL_DESC_UNSIGNED, nullptr, 0, nullptr,
                                      &isUnsigned)) &&
        isUnsigned == SQL_TRUE)
      column.type = SQL_BIGINT;  // may lie beyond a Long
  }
  return columns;
}

bool IsDate(SQLSMALLINT type) {
  return type == SQL_TYPE_DATE || type == SQL_TYPE_TIMESTAMP || type == SQL_DATE ||
         type == SQL_TIMESTAMP;
}

bool FetchAll(SQLHSTMT statement, const std::vector<ColumnDescription>& columns, Encoding encoding,
              std::vector<SQLLEN>& widths, std::vector<Value>& cells) {
  std::vector<Buffer> buffers;
  for (std::size_t i = 0; i < columns.size(); ++i)
    buffers.emplace_back(columns[i], encoding, widths[i]);
  RowArray array(statement, buffers);
  bool fits = true;
  while (const std::size_t rows = array.Fetch()) {
    for (std::size_t row = 0; row < rows; ++row) {
      for (std::size_t i = 0; i < buffers.size(); ++i) {
        const SQLLEN needed = buffers[i].Needed(row);
        if (needed > kLongestText) Fail(u"a text that is too long", columns[i].name);
        widths[i] = std::max(widths[i], needed);
        fits = fits && needed == 0;
        // Once one does not fit, the rest is read for its lengths alone.
        if (fits) cells.push_back(buffers[i].At(row));
      }
    }
  }
  return fits;
}

}  // namespace fetchkit::odbc
