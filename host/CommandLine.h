// From the words of the command line to a command.
#pragma once

#include <iosfwd>

#include "host/Screen.h"

namespace payslate::host {

/// The exit code of the process. Whatever stands in the way is one sentence on `err`.
int run(int argc, const char* const* argv, const ScreenMaker& makeScreen, std::ostream& out,
        std::ostream& err);

}  // namespace payslate::host
