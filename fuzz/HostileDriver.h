// A driver that stands in the place of the driver manager and answers with whatever the fuzzer's bytes say.
// It keeps to the interface's one rule that no program can check, which is not to write behind a buffer, and
// breaks all others.
#pragma once

#include <string_view>

namespace payslate::fuzz {

/// What the driver answers from now on. Behind the bytes it says that all is well and that there is nothing
/// more.
void feedDriver(std::string_view answers);

/// Ends the program when handles are still in use.
void requireDriverAtRest();

}  // namespace payslate::fuzz
