// The facility recoveries of the entry form.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "component/EntryRecord.h"
#include "component/ListPage.h"
#include "platform/ui/Form.h"
#include "platform/ui/RowControl.h"

namespace payslate {

class frmFacilityPopup;
struct FormHelpers;

namespace FacilityColumn {
enum : int {
  SiNo,
  FacilityID,
  FacilityNo,
  FacilityName,
  ActualAmount,
  DeductedAmount,
  SettlementAmount,
  DeductionId,
  CurrencySymbol
};
}

std::vector<ui::ColumnLayout> facilityColumns();

/// A ticked row is recovered in this entry. The ticked settlements of one deduction type are one row of type
/// "F" among the deductions.
class FacilityPage : public ListPage {
 public:
  struct Controls {
    ui::ListView& lvwfacility;
    ui::ListView& lvwDeduct;
  };

  /// The helpers are those of the entry form; they must be there before anything is ticked.
  /// `displayCurrency` rebuilds the totals.
  FacilityPage(BasPaySlate& bas, const Controls& controls, const FormHelpers& helpers,
               std::function<void()> displayCurrency);

  /// Refills the list: with recoveries that are still open, none of them ticked; with those of a stored
  /// entry, all ticked.
  void fnLoadFacilities(const std::vector<FacilityRow>& open) { show(open, false); }
  void showTaken(const std::vector<FacilityRow>& taken) { show(taken, true); }
  /// Brings the deduction type's row of type "F" up to date; a new one gets the currency of list row `row`.
  void Addfacilitytodedution(std::int32_t deductionId, int row);
  /// The same for the deduction type of a list row, then the totals.
  void settleRow(int row);
  [[nodiscard]] FacilityRow recovery(int row) const;
  /// The ticked ones.
  [[nodiscard]] std::vector<FacilityRow> taken() const;

  [[nodiscard]] ui::ListView& list() override { return controls_.lvwfacility; }
  [[nodiscard]] bool offersAdd() const override { return false; }
  [[nodiscard]] bool mayDelete(int) const override { return true; }
  void add() override;
  void edit() override;
  /// Leaves the row of type "F" as it is.
  void remove() override;

  std::string strFacility;        ///< A PopupMode.
  bool blnfailitychange = false;  ///< The clerk has deleted a row.
  void DisplayCurrency() const { displayCurrency_(); }

 private:
  void show(const std::vector<FacilityRow>& recoveries, bool ticked);
  [[nodiscard]] double tickedSum(std::int32_t deductionId) const;
  /// The deduction type's row of type "F"; -1 when there is none.
  [[nodiscard]] int deductionRow(std::int32_t deductionId) const;
  void addDeduction(std::int32_t deductionId, const std::string& amount, const std::string& symbol);
  void showPopup(const char* mode);

  BasPaySlate& bas_;
  Controls controls_;
  const FormHelpers& helpers_;
  std::function<void()> displayCurrency_;
  ui::FormSlot<frmFacilityPopup> popup_;
};

}  // namespace payslate
