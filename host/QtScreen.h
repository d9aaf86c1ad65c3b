// Real windows as a command's screen.
#pragma once

#include <memory>

#include "host/Screen.h"

namespace payslate::host {

/// Where there is no display, windows are drawn off screen.
std::unique_ptr<Screen> makeQtScreen();

}  // namespace payslate::host
