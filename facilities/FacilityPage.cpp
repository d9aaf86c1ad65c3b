// Showing recoveries, and the deductions that follow from their ticks.
#include "facilities/FacilityPage.h"

#include "component/BasPaySlate.h"
#include "component/FormHelpers.h"
#include "component/PayRows.h"
#include "facilities/frmFacilityPopup.h"
#include "platform/basic/Numbers.h"
#include "platform/ui/ListView.h"

namespace payslate {

std::vector<ui::ColumnLayout> facilityColumns() {
  using enum ui::Alignment;
  return {{"SINo", 926, Left},
          {"FacilityID", 0, Left},
          {"Facility No", 2117, Left},
          {"Facility Name", 4233, Left},
          {"Actual Amount", 2117, Right},
          {"Deducted Amount", 2117, Right},
          {"Settlement Amount", 2117, Right},
          {"fmdeductionid", 0, Left},
          {"CurrencySymbol", 2117, Left}};
}

FacilityPage::FacilityPage(BasPaySlate& bas, const Controls& controls, const FormHelpers& helpers,
                           std::function<void()> displayCurrency)
    : bas_(bas),
      controls_(controls),
      helpers_(helpers),
      displayCurrency_(std::move(displayCurrency)),
      popup_([this] { return std::make_shared<frmFacilityPopup>(bas_, *this); }) {
  controls_.lvwfacility.ItemCheck = [this](int row) { settleRow(row); };
}

void FacilityPage::show(const std::vector<FacilityRow>& recoveries, bool ticked) {
  list().clear();
  for (const FacilityRow& row : recoveries)
    list().addRow({std::to_string(row.position), row.trackingId, row.number, row.name, row.actual,
                   row.deducted, row.settlement, row.deductionId, row.symbol},
                  ticked);
}

double FacilityPage::tickedSum(std::int32_t deductionId) const {
  const ui::ListView& facilities = controls_.lvwfacility;
  double sum = 0;
  for (int row = 0; row < facilities.rowCount(); ++row) {
    if (facilities.isChecked(row) &&
        basic::numberOrZero(facilities.cellText(row, FacilityColumn::DeductionId)) == deductionId)
      sum += basic::Val(facilities.cellText(row, FacilityColumn::SettlementAmount));
  }
  return sum;
}

int FacilityPage::deductionRow(std::int32_t deductionId) const {
  const ui::ListView& deductions = controls_.lvwDeduct;
  for (int row = 0; row < deductions.rowCount(); ++row) {
    if (deductions.cellText(row, DeductColumn::Type) == DeductKind::Facility &&
        basic::numberOrZero(deductions.cellText(row, DeductColumn::DeductID)) == deductionId)
      return row;
  }
  return -1;
}

void FacilityPage::addDeduction(std::int32_t deductionId, const std::string& amount,
                                const std::string& symbol) {
  helpers_.objCommonDB->strTableName(bas_.TableLinks["pDeductions"]);
  const std::string id = std::to_string(deductionId);
  const std::string description = basic::textOf(helpers_.objCommonDB->fnreturnfield(
      "dDescription", "dDedID=" + id + " and  dCompanyID = " + bas_.companyText()));
  ui::ListView& deductions = controls_.lvwDeduct;
  deductions.addRow({nextSerialNumber(deductions), description, amount, id, DeductKind::Facility, symbol});
}

void FacilityPage::Addfacilitytodedution(std::int32_t deductionId, int row) {
  const double sum = tickedSum(deductionId);
  const int deduction = deductionRow(deductionId);
  if (sum > 0 && deduction >= 0) {
    controls_.lvwDeduct.setCell(deduction, DeductColumn::Amount, basic::numberText(sum));
  } else if (sum > 0) {
    addDeduction(deductionId, basic::numberText(sum), list().cellText(row, FacilityColumn::CurrencySymbol));
  } else if (deduction >= 0) {
    controls_.lvwDeduct.removeRow(deduction);
  }
}

void FacilityPage::settleRow(int row) {
  Addfacilitytodedution(basic::CLng(list().cellText(row, FacilityColumn::DeductionId)), row);
  DisplayCurrency();
}

FacilityRow FacilityPage::recovery(int row) const {
  const auto cell = [&](int column) { return controls_.lvwfacility.cellText(row, column); };
  return {static_cast<std::int16_t>(row + 1),     cell(FacilityColumn::FacilityID),
          cell(FacilityColumn::FacilityNo),       cell(FacilityColumn::FacilityName),
          cell(FacilityColumn::ActualAmount),     cell(FacilityColumn::DeductedAmount),
          cell(FacilityColumn::SettlementAmount), cell(FacilityColumn::DeductionId),
          cell(FacilityColumn::CurrencySymbol)};
}

std::vector<FacilityRow> FacilityPage::taken() const {
  std::vector<FacilityRow> rows;
  for (int row = 0; row < controls_.lvwfacility.rowCount(); ++row)
    if (controls_.lvwfacility.isChecked(row)) rows.push_back(recovery(row));
  return rows;
}

void FacilityPage::showPopup(const char* mode) {
  strFacility = mode;
  if (list().SelectedItem() >= 0) popup_.show([](frmFacilityPopup& popup) { popup.showSelectedRecovery(); });
}

void FacilityPage::add() {
  showPopup(PopupMode::Adding);
}

void FacilityPage::edit() {
  showPopup(PopupMode::Editing);
}

void FacilityPage::remove() {
  if (!deleteSelectedRow(bas_, *helpers_.objCommonDB, list(),
                         list().cellText(list().SelectedItem(), FacilityColumn::FacilityName)))
    return;
  blnfailitychange = true;
  DisplayCurrency();
}

}  // namespace payslate
