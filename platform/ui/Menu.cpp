// Pop-up menus.
#include "platform/ui/Menu.h"

#include <string_view>

namespace payslate::ui {

std::string withoutMnemonic(std::string_view caption) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && i + 1 < caption.size())
      ++i;
    else if (caption[i] == '&')
      continue;
    plain.push_back(caption[i]);
  }
  return plain;
}

}  // namespace payslate::ui
