// What a host hands to the component before it shows it.
#pragma once

#include <cstdint>
#include <string>

#include "platform/basic/Date.h"

namespace payslate::scripted {

struct HostSession {
  std::int16_t company = 0;
  std::int16_t user = 0;
  std::int32_t interfaceId = 0;
  std::int16_t year = 0;
  basic::Date date;
  std::string title;
};

}  // namespace payslate::scripted
