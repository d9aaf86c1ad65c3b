// Finding controls and saying why one cannot be used.
#include "platform/scripted/Finding.h"

#include <algorithm>
#include <array>
#include <utility>

namespace payslate::scripted {

using ui::Control;
using ui::Form;

namespace {

constexpr std::array<std::pair<char, std::string_view>, 5> written{
    {{'"', "\\\""}, {'\\', "\\\\"}, {'\n', "\\n"}, {'\r', "\\r"}, {'\t', "\\t"}}};

std::string unreachableBecause(const Form& form, const Control& control) {
  if (!control.Visible()) return "it is hidden";
  if (!form.isShown(control)) return "it is hidden: what it stands in is not in front";
  if (!control.acceptsFocus()) return "it is a " + std::string(control.TypeName()) + ", which takes no input";
  if (!control.Enabled()) return "it is disabled";
  return form.canHaveFocus(control) ? "" : "it is disabled with what it stands in";
}

}  // namespace

std::string inQuotes(const std::string& text) {
  std::string quoted = "\"";
  for (const char character : text) {
    const auto same = [character](const auto& escape) { return escape.first == character; };
    const auto escape = std::find_if(written.begin(), written.end(), same);
    if (escape == written.end())
      quoted += character;
    else
      quoted += escape->second;
  }
  return quoted + "\"";
}

Control& controlOf(const Form& form, const std::string& name) {
  if (Control* found = form.control(name)) return *found;
  throw Mismatch("a control " + name + " on the form in front",
                 form.Name() + ", which has none of that name");
}

void refuseKind(const Control& control, const std::string& wanted) {
  throw Mismatch(control.Name() + " to be " + wanted, "it is a " + std::string(control.TypeName()));
}

void requireReachable(const Form& form, const Control& control) {
  const std::string reason = unreachableBecause(form, control);
  if (!reason.empty()) throw Mismatch(control.Name() + " within the clerk's reach", reason);
}

}  // namespace payslate::scripted
