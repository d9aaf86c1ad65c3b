// Cutting the basic pay.
#include "component/Origins.h"

#include <algorithm>

namespace payslate {

double BasicPayOrigin::lostDays() const {
  return static_cast<double>(daysBeforeJoining) + std::max(0.0, absentDays);
}

double BasicPayOrigin::reduced() const {
  return lossThroughDeductions ? master : master - master / totalDays * lostDays();
}

}  // namespace payslate
