// The entry form: one employee's month.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "component/BasPaySlate.h"
#include "component/EntryList.h"
#include "component/EntryRecord.h"
#include "component/EntryState.h"
#include "component/FormHelpers.h"
#include "component/Navigation.h"
#include "entry/Attendance.h"
#include "entry/EntryFacts.h"
#include "entry/PayBoxes.h"
#include "entry/PayLoader.h"
#include "entry/StoredMonth.h"
#include "entry/WorkingCopy.h"
#include "entry/frmExplain.h"
#include "explain/ExplainedMonth.h"
#include "facilities/FacilityPage.h"
#include "paycomponents/AllowancePage.h"
#include "paycomponents/CurrencyTotals.h"
#include "paycomponents/DeductionPage.h"
#include "paycomponents/Formulas.h"
#include "paycomponents/HourlyItems.h"
#include "paycomponents/ListMenu.h"
#include "platform/ui/Buttons.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/DatePicker.h"
#include "platform/ui/Form.h"
#include "platform/ui/Label.h"
#include "platform/ui/ListView.h"
#include "platform/ui/TabControl.h"
#include "platform/ui/TextBox.h"
#include "review/Review.h"

namespace payslate {

/// A month that OK would store, and what its review found.
struct OfferedMonth {
  EntryRecord entry;
  LoadedMonth loaded;
  std::vector<Finding> findings;
};

/// Owns the controls and the rules that span subjects: modes, navigation, closing, the order of a load and of
/// a save. Each subject has a collaborator of its own, which knows its controls and not the form.
class frmpayslate : public ui::Form {
 public:
  /// `list` shows what is stored, and must outlive the form; there need not be one.
  explicit frmpayslate(BasPaySlate& bas, EntryList* list = nullptr);

  /// Opens a stored entry in a form that is not loaded yet: reads it, loads the form, and fills it. An entry
  /// that is cancelled or that the payroll run has taken is told of and opens for reading. ado::Error when it
  /// cannot be read; the form is then of no use.
  void openStored(const ListedEntry& listed);

  /// Does the form hold the selected employee's month whole, so that it can be stored? If not, what stood in
  /// the way, as the clerk was told.
  [[nodiscard]] bool monthIsWhole() const { return state_.month == HeldMonth::Whole; }
  [[nodiscard]] const std::string& whyNotWhole() const { return state_.whyNotWhole; }

  // What a program does in a clerk's place that stores the month by itself.
  /// Is there a pay period for the form's date?
  [[nodiscard]] bool hasPeriod() const { return attendance_.hasPeriod(); }
  /// Ticks every recovery.
  void takeRecoveries();
  /// Deletes the row that pays salary kept back in earlier months.
  void leaveBalance();
  /// The month as OK would store it, validated as OK does; none where that refuses it, with a message.
  [[nodiscard]] std::optional<OfferedMonth> offeredMonth();
  [[nodiscard]] const std::vector<NetPay>& netPay() const { return totals_.netPay(); }

  /// Where the figure comes from that the control shows, in a list the selected row's; none for what is no
  /// figure, or while no month is there whole. Asks for what loading did not know. ado::Error.
  [[nodiscard]] std::optional<Explanation> explanationOf(const ui::Control& control);
  /// The same of every figure of the month.
  [[nodiscard]] std::vector<Explanation> explanations();
  /// What loading knew of them: nothing is asked.
  [[nodiscard]] std::vector<Explanation> knownExplanations() const;

  ui::Label lblAtteNo{*this, "lblAtteNo", "MonthlyEntry No:"};
  ui::TextBox txtAtteNo{*this, "txtAtteNo"};
  ui::Label lblAttdate{*this, "lblAttdate", "Date:"};
  ui::DatePicker dtpattdate{*this, "dtpattdate"};
  ui::Label lblEmpname{*this, "lblEmpname", "Employee Name:"};
  ui::ComboBox cboEmpname{*this, "cboEmpname"};
  ui::CommandButton cmdFirst{*this, "cmdFirst", "|<"};
  ui::CommandButton cmdPrevious{*this, "cmdPrevious", "<"};
  ui::CommandButton cmdNext{*this, "cmdNext", ">"};
  ui::CommandButton cmdLast{*this, "cmdLast", ">|"};
  ui::Label Label1{*this, "Label1", "Label1"};

  ui::Frame fraEmployeeAttendance{*this, "fraEmployeeAttendance"};
  ui::Label Label2{*this, "Label2", "Total Days:"};
  ui::TextBox txtTotalDays{*this, "txtTotalDays", ui::Alignment::Right};
  ui::Label lblnoofworkingdays{*this, "lblnoofworkingdays", "Working Days + Holidays:"};
  ui::TextBox txtworkingdays{*this, "txtworkingdays", ui::Alignment::Right};
  ui::Label lblNoPresent{*this, "lblNoPresent", "No of present + Holidays:"};
  ui::TextBox txtNoPresent{*this, "txtNoPresent", ui::Alignment::Right};
  ui::Label lblNoLeave{*this, "lblNoLeave", "No of leave:"};
  ui::TextBox txtNoLeave{*this, "txtNoLeave", ui::Alignment::Right};
  ui::Label lblNoAbsent{*this, "lblNoAbsent", "No of absent:"};
  ui::TextBox txtNoAbsent{*this, "txtNoAbsent", ui::Alignment::Right};

  ui::Label lblBasicPay{*this, "lblBasicPay", "Basic Pay:"};
  ui::TextBox txtBasicPay{*this, "txtBasicPay", ui::Alignment::Right};
  ui::Label lblcursymbol{*this, "lblcursymbol"};
  ui::CheckBox chkHold{*this, "chkHold", "Hold"};
  ui::CheckBox Chkpaid{*this, "Chkpaid", "Paid Cash"};
  ui::CommandButton cmdRefresh{*this, "cmdRefresh", "Refresh Formula's"};

  ui::TabControl tabpayslate{
      *this, "tabpayslate", {"Allowances", "Deductions", "Leaves", "Facilities", "Currency Spilitup"}};
  ui::ListView lvwAllow;
  ui::ListView lvwDeduct;
  ui::ListView lvwLeaves;
  ui::ListView lvwfacility;
  ui::Label lblCurrecnyname{*this, "lblCurrecnyname", "Currency Symbol:"};
  ui::ListView lvwCurrency;

  ui::Label lblTotal{*this, "lblTotal", "Total Amt:"};
  ui::TextBox txtTotal{*this, "txtTotal", ui::Alignment::Right};
  ui::CommandButton cmdOk{*this, "cmdOk", "&Ok"};
  ui::CommandButton cmdCancel{*this, "cmdCancel", "&Close"};

  void GetDeptID(std::int32_t& employeeId) { attendance_.GetDeptID(employeeId); }
  bool FnCheckCalendarSettingsNotEntered() { return attendance_.FnCheckCalendarSettingsNotEntered(); }
  double fnformulaamt(std::int32_t& formulaId) { return formulas_.fnformulaamt(formulaId); }
  void DisplayCurrency() { totals_.DisplayCurrency(); }

 private:
  void arrange();  // frmpayslateLayout.cpp: where the controls stand
  void wireEvents();

  void Form_Load();
  void dtpattdate_Change();
  void Form_KeyDown(int& keyCode);
  void Form_QueryUnload(bool& cancel);

  [[nodiscard]] NavigationButtons navigation() { return {cmdFirst, cmdPrevious, cmdNext, cmdLast}; }
  void fillEmployees();
  void takeListedEntry();

  // Choosing an employee: frmpayslateSelection.cpp
  void cboEmpname_SelectionMoved();
  void cboEmpname_Click();
  void chooseMonth(std::int32_t employeeId);
  [[nodiscard]] bool prepareNewMonth(std::int32_t employeeId);
  void loadNewMonth(std::int32_t employeeId);
  void meetStoredMonth(const EntryRecord& entry);
  void enableNavigation();
  void holdWhole();
  void giveMonthUp();
  /// Asks before what the clerk changed is lost.
  [[nodiscard]] bool mayLeaveMonth() const;
  void takeSelectionBack();
  /// What OK says of a month that it does not store.
  [[nodiscard]] static const char* noSaveReason(HeldMonth month);

  // Opening a stored entry: frmpayslateOpening.cpp
  void showStored(const EntryRecord& header);
  void refuseChanges(const std::string& reason);

  void cmdFirst_Click();
  void cmdPrevious_Click();
  void cmdNext_Click();
  void cmdLast_Click();
  void selectEmployee(int index, bool moveFocus);

  // Saving: frmpayslateSave.cpp
  void cmdOk_Click();
  bool fnValidateEntry();
  /// Asks about what should be looked at before. False when the clerk goes back, to the first of it that has
  /// a place on the form.
  bool reviewEntry();
  [[nodiscard]] std::vector<Finding> findings() const;
  void pointOut(const Finding& finding);
  void save();
  [[nodiscard]] EntryRecord record() const;

  // Explaining: frmpayslateExplain.cpp
  void explainFocused();
  [[nodiscard]] ExplainedMonth explainedMonth() const;
  [[nodiscard]] EntryFacts facts(const ExplainedMonth& month);

  BasPaySlate& bas_;
  EntryList* list_;
  FormHelpers helpers_;
  EntryState state_;
  bool blnSaveValid_ = false;
  std::optional<ListedEntry> opened_;  ///< The stored entry that the form was opened with.
  bool opening_ = false;               ///< It is being shown.
  bool takingBack_ = false;            ///< The combo is put back to the employee whose month is held.
  std::optional<int> heldIndex_;       ///< Whose month the form holds whole: position in the combo.
  basic::Date ownDate_;  ///< The form's date, also while a stored month that was met shows its own.

  Formulas formulas_;
  CurrencyTotals totals_;
  Attendance attendance_;
  HourlyItems hourlyItems_;
  PayLoader payLoader_;
  StoredMonth storedMonth_;
  AllowancePage allowances_;
  DeductionPage deductions_;
  FacilityPage facilities_;
  ListMenu listMenu_;
  PayBoxes boxes_;
  WorkingCopy workingCopy_;
  ui::FormSlot<frmExplain> explainForm_;
};

}  // namespace payslate
