// Forms made like the list and the entry form, to see how layouts come out.
#pragma once

#include "tests/desktop/ToyForm.h"

namespace payslate::tests {

class ListLook : public ui::Form {
 public:
  explicit ListLook(ui::Desktop& desktop);

  ui::Frame fraBrowse;
  ui::Label lblsearch;
  ui::ComboBox cboColNames, cboSearch;
  ui::OptionButton optAscend, optDescend;
  ui::TextBox txtsearch;
  ui::Grid flexMaster;
  ui::CommandButton cmdnew, CmdEdit, CmdDelete, cmdUpdate, CmdClose;

 private:
  void fill();
};

class EntryLook : public ui::Form {
 public:
  explicit EntryLook(ui::Desktop& desktop);

  ui::Label lblAtteNo, lblAttdate, lblEmpname, lblTotalDays, lblWorking, lblPresent, lblLeave, lblAbsent,
      lblBasicPay, lblcursymbol, lblTotal;
  ui::TextBox txtAtteNo, txtTotalDays, txtworkingdays, txtNoPresent, txtNoLeave, txtNoAbsent, txtBasicPay,
      txtTotal;
  ui::DatePicker dtpattdate;
  ui::ComboBox cboEmpname;
  ui::CommandButton cmdFirst, cmdPrevious, cmdNext, cmdLast, cmdRefresh, cmdOk, cmdCancel;
  ui::Frame fraDays;
  ui::CheckBox chkHold, Chkpaid;
  ui::TabControl tabpayslate;
  ui::ListView lvwAllow, lvwDeduct;

 private:
  void fill();
};

}  // namespace payslate::tests
