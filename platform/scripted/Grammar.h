// The instructions of the errand language.
#pragma once

#include <string_view>

#include "platform/scripted/Errand.h"

namespace payslate::scripted {

enum class TableKind { None, Headed, Bare };

/// The instruction of one line, its line number not set. Throws LineError.
Instruction instruction(std::string_view line);

/// Which kind of table follows such an instruction.
TableKind tableOf(Verb verb);

}  // namespace payslate::scripted
