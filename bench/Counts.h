// What the actions ask of the database, counted: the same on every machine with the same SQLite.
#pragma once

#include <string>
#include <string_view>

namespace payslate::bench {

/// Counts the actions on payrolls of 1,000 and 10,000 headers made in `folder`, as counts.txt keeps them.
std::string countedActions(const std::string& folder);

/// What is worse than what was kept, a sentence a line; empty when nothing is. Statements are compared
/// exactly; prepares and steps may be 2 % more, where both are of the same SQLite. What grows with the
/// headers may not grow by more than its action is allowed.
std::string worseThan(std::string_view kept, std::string_view counted);

}  // namespace payslate::bench
