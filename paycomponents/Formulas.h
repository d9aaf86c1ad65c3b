// Formulas of allowances and deductions, computed by the database server.
#pragma once

#include <cstdint>
#include <string>

#include "component/Origins.h"

namespace payslate {

class RowOrigins;
struct EntryState;
struct Session;

namespace common {
class CommonDB;
}
namespace ui {
class ListView;
class TextBox;
}  // namespace ui

/// What of the entry form a formula reads.
struct FormulaControls {
  const ui::TextBox& txtNoPresent;
  const ui::TextBox& txtNoAbsent;
  const ui::TextBox& txtNoLeave;
};

class Formulas {
 public:
  Formulas(Session& session, const EntryState& state, const FormulaControls& controls)
      : session_(session), state_(state), controls_(controls) {}

  /// Value of the formula for the selected employee and the pay period, with the server's full precision. An
  /// employee must be selected. ado::Error: no such formula or an empty one, whatever the server refuses (an
  /// unknown word, a division by zero), a result of several columns, that is Null or no number; the
  /// description then holds the statement as sent.
  [[nodiscard]] double fnformulaamt(std::int32_t formulaId) const { return computed(formulaId).answer; }
  /// The same with all that led to it, by the form's day counts or by others.
  [[nodiscard]] FormulaOrigin computed(std::int32_t formulaId) const { return computed(formulaId, days()); }
  [[nodiscard]] FormulaOrigin computed(std::int32_t formulaId, const FormulaDays& days) const;

  /// The same, and an error says which pay component it is about.
  [[nodiscard]] FormulaOrigin amountOf(const std::string& component, std::int32_t formulaId) const;

  /// Computes the amount of every row whose pay component has a formula; rows before a failing one stay
  /// computed. Rows carried forward are no components. `state` hears what was written.
  void refresh(common::CommonDB& database, ui::ListView& lvwAllow, ui::ListView& lvwDeduct,
               EntryState& state) const;

 private:
  struct Parameters;
  void refreshRow(ui::ListView& list, int row, int descriptionColumn, int amountColumn,
                  std::int32_t formulaId, RowOrigins& origins) const;
  [[nodiscard]] FormulaDays days() const;
  [[nodiscard]] Parameters parameters(const FormulaDays& days) const;
  [[nodiscard]] std::string expression(std::int32_t formulaId) const;

  Session& session_;
  const EntryState& state_;
  FormulaControls controls_;
};

}  // namespace payslate
