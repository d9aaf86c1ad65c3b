// Writing an explanation down.
#include "component/Explanation.h"

namespace payslate {

std::string textOf(const Explanation& explanation) {
  std::string text = explanation.title + ": " + explanation.amount;
  if (!explanation.symbol.empty()) text += " " + explanation.symbol;
  for (const ExplanationLine& line : explanation.lines) text += "\n" + line.label + ": " + line.text;
  return text;
}

}  // namespace payslate
