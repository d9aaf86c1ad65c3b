// The allowances of the entry form.
#pragma once

#include <memory>
#include <string>

#include "component/ListPage.h"
#include "platform/ui/Form.h"

namespace payslate {

class CurrencyTotals;
class Formulas;
class RowOrigins;
class frmAllowPopup;
struct FormHelpers;

class AllowancePage : public ListPage {
 public:
  /// The helpers are those of the entry form; they must be there before a command runs.
  AllowancePage(BasPaySlate& bas, ui::ListView& lvwAllow, const FormHelpers& helpers,
                const Formulas& formulas, CurrencyTotals& totals, RowOrigins& origins);

  [[nodiscard]] ui::ListView& list() override { return lvwAllow_; }
  [[nodiscard]] bool offersAdd() const override { return true; }
  /// Standing allowances stay.
  [[nodiscard]] bool mayDelete(int row) const override;
  void add() override;
  void edit() override;
  void remove() override;

  std::string strAllowanceFlag;  ///< A PopupMode: whether the popup adds a row or edits the selected one.
  bool blnAllowChange = false;   ///< The clerk has added, changed or deleted a row.

  [[nodiscard]] const Formulas& formulas() const { return formulas_; }
  [[nodiscard]] RowOrigins& origins() const { return origins_; }
  void DisplayCurrency();

 private:
  BasPaySlate& bas_;
  ui::ListView& lvwAllow_;
  const FormHelpers& helpers_;
  const Formulas& formulas_;
  CurrencyTotals& totals_;
  RowOrigins& origins_;
  ui::FormSlot<frmAllowPopup> popup_;
};

}  // namespace payslate
