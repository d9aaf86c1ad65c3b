// Where the entry form's controls stand.
#include "entry/frmpayslate.h"

namespace payslate {

using namespace ui::layout;

namespace {
constexpr int dayCharacters = 6;
constexpr int amountCharacters = 16;
constexpr int numberCharacters = 12;
constexpr int nameCharacters = 36;
}  // namespace

void frmpayslate::arrange() {
  for (ui::TextBox* shown : {&txtAtteNo, &txtTotalDays, &txtworkingdays, &txtTotal}) shown->Locked = true;
  Label1.Visible = false;
  navigation().nameForReaders();
  std::size_t page = 0;
  for (ui::ListView* list : {&lvwAllow, &lvwDeduct, &lvwLeaves, &lvwfacility, &lvwCurrency})
    list->AccessibleName = tabpayslate.captions()[page++];
  setFirstFocus(cboEmpname);

  setLayout(column({
      fields({
          field(lblAtteNo, {item(txtAtteNo).wide(numberCharacters), space(), field(lblAttdate, dtpattdate)}),
          field(lblEmpname, {item(cboEmpname).wide(nameCharacters).growing(), item(cmdFirst),
                             item(cmdPrevious), item(cmdNext), item(cmdLast)}),
      }),
      group(fraEmployeeAttendance,
            column({
                row({field(Label2, {item(txtTotalDays).wide(dayCharacters)}),
                     field(lblnoofworkingdays, {item(txtworkingdays).wide(dayCharacters)}), space()}),
                row({field(lblNoPresent, {item(txtNoPresent).wide(dayCharacters)}),
                     field(lblNoLeave, {item(txtNoLeave).wide(dayCharacters)}),
                     field(lblNoAbsent, {item(txtNoAbsent).wide(dayCharacters)}), space()}),
            })),
      row({field(lblBasicPay, {item(txtBasicPay).wide(amountCharacters), item(lblcursymbol)}), item(chkHold),
           item(Chkpaid), space(), item(cmdRefresh)}),
      pages(tabpayslate, {item(lvwAllow), item(lvwDeduct), item(lvwLeaves), item(lvwfacility),
                          column({item(lblCurrecnyname), item(lvwCurrency).growing()})})
          .growing(),
      row({field(lblTotal, {item(txtTotal).wide(amountCharacters)}), space(), item(cmdOk), item(cmdCancel)}),
  }));
}

}  // namespace payslate
