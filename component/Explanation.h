// Explanations of amounts as plain texts.
#pragma once

#include <string>
#include <vector>

#include "platform/basic/Date.h"

namespace payslate {

struct ExplanationLine {
  std::string label;
  std::string text;
};

/// Where one figure of an entry comes from.
struct Explanation {
  std::string part;    ///< Of the entry: "Allowances", …
  std::string title;   ///< The row, or the box.
  std::string amount;  ///< As the form shows it.
  std::string symbol;  ///< Its currency; empty for days.
  std::vector<ExplanationLine> lines;
};

/// "House rent: 3000.00 Rs", and the lines behind it, one each, parted by \n.
std::string textOf(const Explanation& explanation);

/// A whole stored entry.
struct ExplainedEntry {
  std::string number;
  basic::Date date;
  std::string employee;
  std::string remark;  ///< What its form says when it opens; mostly empty.
  std::vector<Explanation> explanations;
};

}  // namespace payslate
