// Lines of text to be read.
#include "platform/ui/TextPage.h"

#include <algorithm>

#include "platform/basic/Numbers.h"

namespace payslate::ui {

TextPage::TextPage(Form& form, std::string name)
    : Control(form, std::move(name)), Text({}, [this] { tell(Aspect::Text); }) {}

std::vector<std::string> TextPage::lines() const {
  std::vector<std::string> lines;
  const std::string& text = Text();
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    lines.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  return lines;
}

std::optional<std::string> TextPage::propertyText(std::string_view property) const {
  if (basic::sameName(property, "Text")) return Text();
  return Control::propertyText(property);
}

}  // namespace payslate::ui
