// Times of the actions beside their floors, as a table.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "bench/RecordingProvider.h"

namespace payslate::bench {

/// Measures payrolls of these numbers of headers, which stay in `folder`; the table is Markdown. `recorder`
/// is the registered one.
void publishTimes(const std::vector<std::int32_t>& headers, const std::string& folder, Recorder& recorder,
                  std::ostream& out);

}  // namespace payslate::bench
