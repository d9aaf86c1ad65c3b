// The kinds of values, as the driver's types.
#include "platform/odbc/Parameters.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "platform/odbc/Moments.h"
#include "platform/odbc/WideText.h"

namespace payslate::odbc {
namespace {

constexpr std::size_t longestShortText = 4000;
constexpr SQLULEN timestampCharacters = 23;
constexpr SQLSMALLINT millisecondDigits = 3;

}  // namespace

struct Parameters::Bound {
  SQLSMALLINT from = SQL_C_CHAR;
  SQLSMALLINT to = SQL_VARCHAR;
  SQLULEN size = 1;
  SQLSMALLINT digits = 0;
  SQLLEN length = SQL_NULL_DATA;

  std::int64_t whole = 0;
  double number = 0;
  SQL_TIMESTAMP_STRUCT moment{};
  std::string narrow;
  std::u16string wide;

  SQLPOINTER data() {
    switch (from) {
      case SQL_C_SBIGINT:
        return &whole;
      case SQL_C_DOUBLE:
        return &number;
      case SQL_C_TYPE_TIMESTAMP:
        return &moment;
      case SQL_C_WCHAR:
        return wide.data();
      default:
        return narrow.data();
    }
  }

  void take(std::int64_t value) {
    from = SQL_C_SBIGINT;
    to = SQL_BIGINT;
    whole = value;
    length = sizeof whole;
  }
  void take(double value) {
    from = SQL_C_DOUBLE;
    to = SQL_DOUBLE;
    number = value;
    length = sizeof number;
  }
  void take(const basic::Decimal& value) {
    narrow = value.text();
    to = SQL_DECIMAL;
    digits = static_cast<SQLSMALLINT>(value.scale());
    size = static_cast<SQLULEN>(std::max(value.digits(), value.scale()));
    length = static_cast<SQLLEN>(narrow.size());
  }
  void take(basic::Date value) {
    from = SQL_C_TYPE_TIMESTAMP;
    to = SQL_TYPE_TIMESTAMP;
    moment = timestampOf(value);
    size = timestampCharacters;
    digits = millisecondDigits;
    length = sizeof moment;
  }
  void take(const std::string& value, bool asWide) {
    if (asWide) {
      wide = toWide(value);
      from = SQL_C_WCHAR;
      to = wide.size() > longestShortText ? SQL_WLONGVARCHAR : SQL_WVARCHAR;
      size = std::max<SQLULEN>(wide.size(), 1);
      length = static_cast<SQLLEN>(wide.size() * sizeof(SQLWCHAR));
    } else {
      narrow = value;
      to = narrow.size() > longestShortText ? SQL_LONGVARCHAR : SQL_VARCHAR;
      size = std::max<SQLULEN>(narrow.size(), 1);
      length = static_cast<SQLLEN>(narrow.size());
    }
  }
};

Parameters::Parameters(const std::vector<basic::Value>& values, bool wide) {
  for (const basic::Value& value : values) {
    Bound& bound = *bound_.emplace_back(std::make_unique<Bound>());
    if (const auto* flag = std::get_if<bool>(&value)) bound.take(std::int64_t{*flag});
    if (const auto* whole = std::get_if<std::int64_t>(&value)) bound.take(*whole);
    if (const auto* number = std::get_if<double>(&value)) bound.take(*number);
    if (const auto* exact = std::get_if<basic::Decimal>(&value)) bound.take(*exact);
    if (const auto* date = std::get_if<basic::Date>(&value)) bound.take(*date);
    if (const auto* text = std::get_if<std::string>(&value)) bound.take(*text, wide);
  }
}

Parameters::~Parameters() = default;

std::int16_t Parameters::bindTo(const Handle& statement) const {
  SQLUSMALLINT number = 0;
  for (const std::unique_ptr<Bound>& one : bound_) {
    const SQLRETURN code = SQLBindParameter(
        statement.get(), ++number, SQL_PARAM_INPUT, one->from, one->to, one->size, one->digits, one->data(),
        static_cast<SQLLEN>(one->length < 0 ? 0 : one->length), &one->length);
    if (!SQL_SUCCEEDED(code)) return code;
  }
  return SQL_SUCCESS;
}

}  // namespace payslate::odbc
