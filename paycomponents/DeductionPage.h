// The deductions of the entry form.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "component/ListPage.h"
#include "platform/ui/Form.h"

namespace payslate {

class CurrencyTotals;
class Formulas;
class RowOrigins;
class frmDeductPopup;
struct EntryState;
struct FormHelpers;

class DeductionPage : public ListPage {
 public:
  /// The helpers are those of the entry form; they must be there before a command runs.
  DeductionPage(BasPaySlate& bas, const EntryState& state, ui::ListView& lvwDeduct,
                const FormHelpers& helpers, const Formulas& formulas, CurrencyTotals& totals,
                RowOrigins& origins);

  [[nodiscard]] ui::ListView& list() override { return lvwDeduct_; }
  [[nodiscard]] bool offersAdd() const override { return true; }
  /// Only what the clerk added goes.
  [[nodiscard]] bool mayDelete(int row) const override;
  [[nodiscard]] bool keysActivate() const override { return false; }
  void add() override;
  void edit() override;
  void remove() override;

  std::string strDeductionFlag;  ///< A PopupMode: whether the popup adds a row or edits the selected one.
  bool blnDeductChange = false;  ///< The clerk has added, changed or deleted a row.

  [[nodiscard]] const Formulas& formulas() const { return formulas_; }
  [[nodiscard]] RowOrigins& origins() const { return origins_; }
  /// The employee whose month is entered; one must be selected.
  [[nodiscard]] std::int32_t employeeId() const;
  void DisplayCurrency();

 private:
  BasPaySlate& bas_;
  const EntryState& state_;
  ui::ListView& lvwDeduct_;
  const FormHelpers& helpers_;
  const Formulas& formulas_;
  CurrencyTotals& totals_;
  RowOrigins& origins_;
  ui::FormSlot<frmDeductPopup> popup_;
};

}  // namespace payslate
