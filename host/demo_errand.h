// The clerk's walks of the demo; their texts are errands, carried inside the program.
#pragma once

#include <string_view>

namespace payslate::host {

/// demo.errand, everything that one month can hold. {employee} stands for the name of the employee to enter,
/// who must be the one of the demo company with a row of every kind.
std::string_view demoErrand();

/// demo-next.errand, a plain new entry of any {employee}.
std::string_view demoNextErrand();

/// demo-edit.errand and demo-cancel.errand: the {employee}'s entry with the {number} is opened and rewritten,
/// then cancelled.
std::string_view demoEditErrand();
std::string_view demoCancelErrand();

}  // namespace payslate::host
