// What an errand's clerk sees: comparing forms, lists and rows with an expectation.
#pragma once

#include <string>
#include <vector>

#include "platform/basic/Value.h"
#include "platform/scripted/Errand.h"
#include "platform/ui/Form.h"
#include "platform/ui/MessageBox.h"

namespace payslate::scripted {

/// Expectations of controls and their rows. Throws Mismatch with the first difference. A grid whose one data
/// row is empty shows no rows: that is how a grid looks when there are none.
void see(const Instruction& expectation, const ui::Form& form);

/// Rows of a statement against a table without header. Throws Mismatch with the first difference.
void seeRows(const Table& table, const std::vector<std::vector<basic::Value>>& rows);

/// Throws Mismatch when text, style, title or the buttons differ.
void seeMessage(const Instruction& expectation, const ui::Message& message);
std::string described(const ui::Message& message);

/// Does the text follow the pattern, in which * stands for any text?
bool matches(std::string_view pattern, std::string_view text);

}  // namespace payslate::scripted
