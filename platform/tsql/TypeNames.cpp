// The table of type names.
#include "platform/tsql/TypeNames.h"

#include <map>

namespace payslate::tsql {

namespace {

constexpr int defaultPrecision = 18;

const std::map<std::string, Kind>& kinds() {
  static const std::map<std::string, Kind> table = {
      {"bit", Kind::Bit},         {"tinyint", Kind::TinyInt},    {"smallint", Kind::SmallInt},
      {"int", Kind::Int},         {"integer", Kind::Int},        {"bigint", Kind::BigInt},
      {"decimal", Kind::Decimal}, {"numeric", Kind::Decimal},    {"dec", Kind::Decimal},
      {"money", Kind::Money},     {"smallmoney", Kind::Money},   {"float", Kind::Float},
      {"real", Kind::Real},       {"datetime", Kind::DateTime},  {"smalldatetime", Kind::SmallDateTime},
      {"date", Kind::Date},       {"datetime2", Kind::DateTime}, {"char", Kind::Char},
      {"nchar", Kind::Char},      {"varchar", Kind::VarChar},    {"nvarchar", Kind::VarChar},
      {"text", Kind::VarChar},    {"ntext", Kind::VarChar},      {"character", Kind::Char},
      {"sysname", Kind::VarChar}};
  return table;
}

}  // namespace

Type namedType(const std::string& name, const std::vector<int>& sizes, bool unlimited, Position at) {
  const auto found = kinds().find(name);
  if (found == kinds().end()) throw SqlError(state::syntax, at, "The type '" + name + "' is not supported.");
  Type type = Type::of(found->second);
  const auto refuse = [&] {
    throw SqlError(state::syntax, at, "The type '" + name + "' cannot have this size.");
  };
  if (unlimited && type.kind != Kind::VarChar) refuse();
  if (type.kind == Kind::Decimal) {
    if (sizes.size() > 2) refuse();
    type.precision = sizes.empty() ? defaultPrecision : sizes[0];
    type.scale = sizes.size() < 2 ? 0 : sizes[1];
    if (type.precision < 1 || type.precision > maxPrecision || type.scale > type.precision) refuse();
    return type;
  }
  if (type.kind == Kind::Money) return sizes.empty() ? Type::money() : (refuse(), type);
  if (type.isText()) {
    const bool named = name == "text" || name == "ntext" || name == "sysname";
    if (sizes.size() > 1 || (named && !sizes.empty()) || (!sizes.empty() && sizes[0] < 1)) refuse();
    if (named || unlimited) {
      type.length = unlimitedLength;
    } else {
      type.length = sizes.empty() ? unstatedLength : sizes[0];
    }
    return type;
  }
  if (type.kind == Kind::Float && sizes.size() == 1) {
    constexpr int longestReal = 24;
    constexpr int longestFloat = 53;
    if (sizes[0] < 1 || sizes[0] > longestFloat) refuse();
    return Type::of(sizes[0] <= longestReal ? Kind::Real : Kind::Float);
  }
  if (name == "datetime2" && sizes.size() <= 1) return type;
  if (!sizes.empty()) refuse();
  return type;
}

}  // namespace payslate::tsql
