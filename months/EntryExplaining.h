// A stored entry, opened by its form without a window, and all its figures explained.
#pragma once

#include <string>

#include "component/Explanation.h"

namespace payslate {

class BasPaySlate;

/// The session says company, user and connection; its links are loaded here, and it is changed. Nothing is
/// written. ado::Error when the company has no entry with this number, when the user may not open entries,
/// and when something of it cannot be read.
ExplainedEntry explainEntry(BasPaySlate& bas, const std::string& number);

}  // namespace payslate
