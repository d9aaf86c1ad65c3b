// A clerk's work on a database that may be damaged, and what he is told.
#pragma once

#include <string>
#include <vector>

namespace payslate::attack {

/// Opens the list, an entry, which is rewritten, and a new one, which is saved. What he was shown.
std::vector<std::string> workInForms(const std::string& path);
/// The same without forms: much quicker.
std::vector<std::string> workOnEntries(const std::string& path);

/// Is it a sentence for a clerk, and not what a library says to its programmer?
bool isClear(const std::string& message);

}  // namespace payslate::attack
