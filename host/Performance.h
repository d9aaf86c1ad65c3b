// Performing one errand on a screen and a database.
#pragma once

#include <iosfwd>

#include "host/Database.h"
#include "host/Screen.h"
#include "platform/scripted/Errand.h"

namespace payslate::host {

/// Writes the transcript and, at the first expectation that did not hold, file, line, expected and found.
/// True when all held.
bool perform(const scripted::Errand& errand, const SharedConnection& connection, Screen& screen,
             std::ostream& out);

}  // namespace payslate::host
