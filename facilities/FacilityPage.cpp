// Loading recoveries, and the deductions that follow from their ticks.
#include "facilities/FacilityPage.h"

#include "component/BasPaySlate.h"
#include "component/CurrencySymbols.h"
#include "component/FormHelpers.h"
#include "component/PayRows.h"
#include "facilities/frmFacilityPopup.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"
#include "platform/ui/ListView.h"

namespace payslate {

namespace {

std::string pendingRecoveries(const Session& session, std::int32_t employeeId) {
  return "select m.fmcurrencyid,h.fthTrackingID,h.fthTrackingno,m.fmFacilityName,"
         " h.fthDeductionAmt , sum(IsNull(d.efddedamount, 0)) DedcutedAmt,m.fmdeductionid "
         " from pFacilityMaster m,pdeductions de ,pFacilityTrackingHeader h"
         " left outer join  pempfacilitydeductiondetail d on h.fthTrackingID=d.efdtrackingid"
         " and h.fthCompanyID= d.efdcompanyid where h.fthCancelled=0 "
         " and  m.fmFacilityID=h.fthFacilityID and m.fmCompanyID=h.fthCompanyID and "
         " h.fthTrackingID not in (select distinct efdtrackingid from pEmpFacilityDeductiondetail"
         " where efdcompanyid =" +
         session.companyText() + ") and  h.fthEmployeeID= " + std::to_string(employeeId) +
         " and h.fthDeductionAmt>0 and h.fthCompanyID=" + session.companyText() +
         " and de.dCompanyID=m.fmCompanyID "
         " group by m.fmcurrencyid,h.fthTrackingID,h.fthTrackingno,m.fmFacilityName,h.fthDeductionAmt,"
         "m.fmdeductionid";
}

// A recovery that lacks something cannot be recovered rightly.
std::string requiredText(ado::Recordset& recovery, const char* column) {
  const basic::Value value = recovery.Fields(column).Value();
  if (basic::isNull(value))
    throw ado::Error("A facility recovery of the employee (" + recovery.Fields("fthTrackingID").Text() +
                         ") has no " + column + ": complete the facility before the entry is made.",
                     "22002");
  return basic::textOf(value);
}

}  // namespace

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
                           std::string& strCurSymbol, std::function<void()> displayCurrency)
    : bas_(bas),
      controls_(controls),
      helpers_(helpers),
      strCurSymbol_(strCurSymbol),
      displayCurrency_(std::move(displayCurrency)),
      popup_([this] { return std::make_shared<frmFacilityPopup>(bas_, *this); }) {
  controls_.lvwfacility.ItemCheck = [this](int row) { settleRow(row); };
}

void FacilityPage::addRecovery(ado::Recordset& recovery) {
  const std::string amount = requiredText(recovery, "fthDeductionAmt");
  std::vector<std::string> cells{nextSerialNumber(list()),
                                 requiredText(recovery, "fthTrackingID"),
                                 requiredText(recovery, "fthTrackingno"),
                                 requiredText(recovery, "fmFacilityName"),
                                 amount,
                                 amount,
                                 amount,
                                 requiredText(recovery, "fmdeductionid")};
  static_cast<void>(requiredText(recovery, "fmcurrencyid"));
  strCurSymbol_ = currencySymbol(bas_, *helpers_.objCommonDB, recovery.Fields("fmcurrencyid").Value());
  cells.push_back(strCurSymbol_);
  list().addRow(std::move(cells));
}

void FacilityPage::fnLoadFacilities(std::int32_t employeeId) {
  list().clear();
  ado::Recordset recoveries;
  recoveries.Open(pendingRecoveries(bas_, employeeId), *bas_.adocon(), ado::CursorType::Keyset,
                  ado::LockType::Optimistic);
  for (; !recoveries.Eof(); recoveries.MoveNext()) addRecovery(recoveries);
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

std::vector<FacilityRow> FacilityPage::taken() const {
  const ui::ListView& facilities = controls_.lvwfacility;
  std::vector<FacilityRow> rows;
  for (int row = 0; row < facilities.rowCount(); ++row) {
    if (!facilities.isChecked(row)) continue;
    rows.push_back({static_cast<std::int16_t>(row + 1), facilities.cellText(row, FacilityColumn::FacilityID),
                    facilities.cellText(row, FacilityColumn::SettlementAmount),
                    facilities.cellText(row, FacilityColumn::ActualAmount)});
  }
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
  if (deleteSelectedRow(bas_, *helpers_.objCommonDB, list(),
                        list().cellText(list().SelectedItem(), FacilityColumn::FacilityName)))
    blnfailitychange = true;
}

}  // namespace payslate
