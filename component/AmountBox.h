// A box that holds an amount of money.
#pragma once

#include <string>

namespace payslate {

class BasPaySlate;
struct FormHelpers;

namespace ui {
class TextBox;
}

/// Wires the box: its text is selected when it is entered, only keys that leave an amount pass, Enter moves
/// on. All three must outlive the box's events.
void makeAmountBox(ui::TextBox& box, const BasPaySlate& bas, const FormHelpers& helpers);

/// The amount in the box as lists show it.
std::string listAmount(const ui::TextBox& box);

}  // namespace payslate
