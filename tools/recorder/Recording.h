// What the component asks of the database and tells the user, in the order in which it does.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/Clerk.h"

namespace payslate::recorder {

/// Stands before another clerk and keeps, one line each, the statements and the messages that pass. A line
/// begins with "sql " or with "message STYLE TITLE: TEXT -> ANSWER"; line ends inside it are written \r and
/// \n.
class Recording : public ui::Clerk {
 public:
  /// The clerk must outlive the recording; `place` says where in its work it is.
  Recording(ui::Clerk& clerk, std::function<std::string()> place);

  void statement(std::string_view text);

  void attend(ui::Form& form) override;
  ui::Answer answer(const ui::Message& message) override;
  ui::MenuItem* pick(ui::Form& form, const ui::PopupMenu& menu) override;

  [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }
  /// Where the clerk was when the line was kept.
  [[nodiscard]] const std::string& placeOf(std::size_t line) const { return places_[line]; }

 private:
  void keep(const std::string& line);

  ui::Clerk& clerk_;
  std::function<std::string()> place_;
  std::vector<std::string> lines_;
  std::vector<std::string> places_;
};

}  // namespace payslate::recorder
