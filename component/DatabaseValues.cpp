// Reading looked-up values, writing dates into statements.
#include "component/DatabaseValues.h"

#include "platform/basic/Numbers.h"

namespace payslate {

double numberOf(const basic::Value& looked) {
  return basic::isNull(looked) ? 0 : basic::CDbl(looked);
}
bool flagOf(const basic::Value& looked) {
  return !basic::isNull(looked) && basic::CBool(looked);
}

basic::Date dateOf(const basic::Value& looked) {
  if (const auto* date = std::get_if<basic::Date>(&looked)) return *date;
  return {};
}

std::string slashDate(basic::Date date) {
  return basic::formatDate(date, "yyyy/mm/dd");
}
std::string compactDate(basic::Date date) {
  return basic::formatDate(date, "yyyymmdd");
}

}  // namespace payslate
