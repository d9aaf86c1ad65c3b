// Forms made like the list and the entry form.
#include "tests/desktop/LookForms.h"

namespace payslate::tests {

using namespace ui::layout;  // NOLINT: a layout reads like its drawing

ListLook::ListLook(ui::Desktop& desktop)
    : Form("frmListLook", desktop, "Monthly Entry"),
      fraBrowse(*this, "fraBrowse", "Browse"),
      lblsearch(*this, "lblsearch", "&Search On:"),
      cboColNames(*this, "cboColNames", ui::ComboStyle::DropDownList),
      cboSearch(*this, "cboSearch", ui::ComboStyle::DropDownList),
      optAscend(*this, "optAscend", "Ascending"),
      optDescend(*this, "optDescend", "Descending"),
      txtsearch(*this, "txtsearch"),
      flexMaster(*this, "flexMaster"),
      cmdnew(*this, "cmdnew", "&New"),
      CmdEdit(*this, "CmdEdit", "&Edit"),
      CmdDelete(*this, "CmdDelete", "&Delete"),
      cmdUpdate(*this, "cmdUpdate", "&Post Ledgers"),
      CmdClose(*this, "CmdClose", "&Close") {
  setLayout(column(
      {row({group(fraBrowse, row({item(cboColNames), item(optAscend), item(optDescend)})), space(),
            field(lblsearch, {item(cboSearch), item(txtsearch)})}),
       item(flexMaster).growing(),
       row({item(cmdnew), item(CmdEdit), item(CmdDelete), item(cmdUpdate), space(), item(CmdClose)})}));
  setFirstFocus(flexMaster);
  fill();
}

void ListLook::fill() {
  for (const char* each : {"Entry No", "Entry Date", "Employee Name", "Cancelled"}) {
    cboColNames.AddItem(each);
    cboSearch.AddItem(each);
  }
  cboColNames.setListIndex(2);
  cboSearch.setListIndex(0);
  optAscend.Value = true;
  txtsearch.Text = "EN1";
  flexMaster.clear(5);
  flexMaster.setFormatString(
      "|Entry No                 |>Entry Date     |Employee Name                              |Cancelled ");
  flexMaster.setRows({{"1", "EN1", "31/03/2006", "Asha", "No"},
                      {"2", "EN2", "31/03/2006", "Bram", "Yes"},
                      {"3", "EN3", "31/03/2006", "Chidi of a name that goes on and on, and on again", "Yes"},
                      {"4", "EN4", "31/03/2006", "Dana", "No"}});
  flexMaster.setColumnWidth(0, 0);
  for (int line = 2; line <= 3; ++line)
    for (int cell = 0; cell < flexMaster.Cols(); ++cell) {
      flexMaster.setCurrent(line, cell);
      flexMaster.setCellColor(ui::Grid::red);
    }
  CmdDelete.Enabled = false;
}

EntryLook::EntryLook(ui::Desktop& desktop)
    : Form("frmEntryLook", desktop, "Monthly Entry-For period From - 01/04/2006 To 30/04/2006"),
      lblAtteNo(*this, "lblAtteNo", "MonthlyEntry No:"),
      lblAttdate(*this, "lblAttdate", "Date:"),
      lblEmpname(*this, "lblEmpname", "Employee Name:"),
      lblTotalDays(*this, "Label2", "Total Days:"),
      lblWorking(*this, "lblnoofworkingdays", "Working Days + Holidays:"),
      lblPresent(*this, "lblNoPresent", "No of present + Holidays:"),
      lblLeave(*this, "lblNoLeave", "No of leave:"),
      lblAbsent(*this, "lblNoAbsent", "No of absent:"),
      lblBasicPay(*this, "lblBasicPay", "BasicPay (Rs):"),
      lblcursymbol(*this, "lblcursymbol", "Rs"),
      lblTotal(*this, "lblTotal", "Total Amt:"),
      txtAtteNo(*this, "txtAtteNo"),
      txtTotalDays(*this, "txtTotalDays", ui::Alignment::Right),
      txtworkingdays(*this, "txtworkingdays", ui::Alignment::Right),
      txtNoPresent(*this, "txtNoPresent", ui::Alignment::Right),
      txtNoLeave(*this, "txtNoLeave", ui::Alignment::Right),
      txtNoAbsent(*this, "txtNoAbsent", ui::Alignment::Right),
      txtBasicPay(*this, "txtBasicPay", ui::Alignment::Right),
      txtTotal(*this, "txtTotal", ui::Alignment::Right),
      dtpattdate(*this, "dtpattdate"),
      cboEmpname(*this, "cboEmpname"),
      cmdFirst(*this, "cmdFirst", "|<"),
      cmdPrevious(*this, "cmdPrevious", "<"),
      cmdNext(*this, "cmdNext", ">"),
      cmdLast(*this, "cmdLast", ">|"),
      cmdRefresh(*this, "cmdRefresh", "Refresh Formula's"),
      cmdOk(*this, "cmdOk", "&Ok"),
      cmdCancel(*this, "cmdCancel", "&Close"),
      fraDays(*this, "fraEmployeeAttendance"),
      chkHold(*this, "chkHold", "Hold"),
      Chkpaid(*this, "Chkpaid", "Paid Cash"),
      tabpayslate(*this, "tabpayslate",
                  {"Allowances", "Deductions", "Leaves", "Facilities", "Currency Spilitup"}),
      lvwAllow(*this, "lvwAllow",
               {{"SlNo", 700, ui::Alignment::Left},
                {"Allowance Type", 3500, ui::Alignment::Left},
                {"Amount", 1400, ui::Alignment::Right},
                {"AllowID", 0, ui::Alignment::Left},
                {"Symbol", 1000, ui::Alignment::Left}}),
      lvwDeduct(*this, "lvwDeduct", {{"SlNo", 700, ui::Alignment::Left}}) {
  constexpr int days = 5;
  const auto dayField = [](ui::Label& label, ui::TextBox& box) {
    return field(label, {item(box).wide(days)});
  };
  setLayout(
      column({fields({row({field(lblAtteNo, txtAtteNo), space(), field(lblAttdate, dtpattdate)}),
                      field(lblEmpname, {item(cboEmpname).wide(30), item(cmdFirst), item(cmdPrevious),
                                         item(cmdNext), item(cmdLast)})}),
              group(fraDays, column({row({dayField(lblTotalDays, txtTotalDays),
                                          dayField(lblWorking, txtworkingdays), space()}),
                                     row({dayField(lblPresent, txtNoPresent), dayField(lblLeave, txtNoLeave),
                                          dayField(lblAbsent, txtNoAbsent)})})),
              row({field(lblBasicPay, {item(txtBasicPay), item(lblcursymbol)}), item(chkHold), item(Chkpaid),
                   space(), item(cmdRefresh)}),
              pages(tabpayslate, {item(lvwAllow), item(lvwDeduct), space(), space(), space()}).growing(),
              row({field(lblTotal, txtTotal), space(), item(cmdOk), item(cmdCancel)})}));
  setFirstFocus(cboEmpname);
  fill();
}

void EntryLook::fill() {
  cboEmpname.AddItem("Asha", 1);
  cboEmpname.setListIndex(0);
  dtpattdate.Value = basic::Date::fromCalendar(2006, 4, 30);
  txtAtteNo.Text = "EN11";
  txtAtteNo.Locked = true;
  txtTotalDays.Text = "30";
  txtTotalDays.Enabled = false;
  txtworkingdays.Text = "5";
  txtNoPresent.Text = "3";
  txtNoLeave.Text = "25";
  txtNoAbsent.Text = "2";
  txtBasicPay.Text = "28000.00";
  cmdFirst.Enabled = false;
  cmdPrevious.Enabled = false;
  lvwAllow.addRow({"1", "House rent", "1500.00", "3", "Rs"});
  lvwAllow.addRow({"2", "Travel", "250.00", "4", "Rs"});
}

}  // namespace payslate::tests
