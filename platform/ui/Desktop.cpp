// What all desktops share.
#include "platform/ui/Desktop.h"

#include <algorithm>

namespace payslate::ui {

void Desktop::sendKeys(Key key) {
  if (!shown_.empty()) pending_.emplace_back(shown_.back(), key);
}

bool Desktop::takeSentKey(const Form& form, Key& key) {
  const auto sentHere = [&form](const auto& sent) { return sent.first == &form; };
  const auto found = std::find_if(pending_.begin(), pending_.end(), sentHere);
  if (found == pending_.end()) return false;
  key = found->second;
  pending_.erase(found);
  return true;
}

void Desktop::forgetKeys(const Form& form) {
  std::erase_if(pending_, [&form](const auto& sent) { return sent.first == &form; });
}

void Desktop::report(const std::exception& error) {
  showMessage({error.what(), MessageStyle::Information, MessageTitle});
}

}  // namespace payslate::ui
