// The clerk's walk of the demo; its text is demo.errand, carried inside the program.
#pragma once

#include <string_view>

namespace payslate::host {

/// {employee} stands for the name of the employee to enter.
std::string_view demoErrand();

}  // namespace payslate::host
