// Keeping statements and messages.
#include "tools/recorder/Recording.h"

#include <utility>

namespace payslate::recorder {

namespace {

std::string inOneLine(std::string_view text) {
  std::string line;
  for (const char character : text) {
    if (character == '\r') {
      line += "\\r";
    } else if (character == '\n') {
      line += "\\n";
    } else {
      line += character;
    }
  }
  return line;
}

const char* nameOf(ui::Answer answer) {
  switch (answer) {
    case ui::Answer::Ok:
      return "Ok";
    case ui::Answer::Escape:
      return "Escape";
    case ui::Answer::Yes:
      return "Yes";
    case ui::Answer::No:
      return "No";
  }
  return "?";
}

}  // namespace

Recording::Recording(ui::Clerk& clerk, std::function<std::string()> place)
    : clerk_(clerk), place_(std::move(place)) {}

void Recording::keep(const std::string& line) {
  lines_.push_back(inOneLine(line));
  places_.push_back(place_());
}

void Recording::statement(std::string_view text) {
  keep("sql " + std::string(text));
}

void Recording::attend(ui::Form& form) {
  clerk_.attend(form);
}

ui::Answer Recording::answer(const ui::Message& message) {
  // Kept before it is answered: what the clerk looks up meanwhile comes after it.
  keep("message " + std::to_string(static_cast<int>(message.style)) + ' ' + message.title + ": " +
       message.text);
  const std::size_t kept = lines_.size() - 1;
  const ui::Answer given = clerk_.answer(message);
  lines_[kept] += std::string(" -> ") + nameOf(given);
  return given;
}

ui::MenuItem* Recording::pick(ui::Form& form, const ui::PopupMenu& menu) {
  return clerk_.pick(form, menu);
}

}  // namespace payslate::recorder
