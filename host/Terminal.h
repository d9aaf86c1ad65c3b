// Is somebody watching?
#pragma once

namespace payslate::host {

/// Does what is written to standard error appear on a terminal?
bool errorsAreSeen();

}  // namespace payslate::host
