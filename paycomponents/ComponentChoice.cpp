// Amount, currency and formula of the chosen component.
#include "paycomponents/ComponentChoice.h"

#include "component/FormHelpers.h"
#include "paycomponents/Formulas.h"
#include "platform/basic/Numbers.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/Label.h"
#include "platform/ui/TextBox.h"

namespace payslate {

std::int32_t ComponentChoice::componentId() const {
  return controls_.combo.ItemData(controls_.combo.ListIndex());
}

void ComponentChoice::chosen() {
  incomplete_ = controls_.combo.ListIndex() >= 0;
  if (!incomplete_) return;
  try {
    fillIn(componentId());
    incomplete_ = false;
  } catch (...) {
    // The last choice's figures must not stand beside this one's name.
    if (!row_) controls_.txtAmount.Text = "";
    controls_.lblsymbol.Caption = "";
    controls_.lblformula.Caption = "";
    throw;
  }
}

bool ComponentChoice::showsRetired() const {
  return row_ && controls_.combo.ListIndex() < 0 && controls_.combo.Text() == row_->description;
}

void ComponentChoice::typed() {
  if (!showsRetired()) return;
  keepRowAmount();
  controls_.lblsymbol.Caption = row_->symbol;
  controls_.lblformula.Caption = "";
  controls_.txtAmount.Enabled = true;
}

void ComponentChoice::complete() {
  if (incomplete_) chosen();
}

bool ComponentChoice::isOfRow(std::int32_t componentId) const {
  return row_ && row_->componentId == componentId;
}

Origin ComponentChoice::origin(const std::string& before) const {
  Origin origin;
  origin.known = true;
  origin.formula = priced_;
  origin.change = priced_.id == 0 ? ChangedBy::Clerk : ChangedBy::Nobody;
  origin.before = before;
  return origin;
}

void ComponentChoice::price(std::int32_t componentId) {
  priced_ = {};
  if (isOfRow(componentId)) return keepRowAmount();
  const std::int32_t formulaId = lookups_.formulaId(*helpers_.objCommonDB, componentId);
  if (formulaId >= 1) {
    priced_ = formulas_.amountOf(controls_.combo.Text(), formulaId);
    controls_.txtAmount.Text = basic::numberText(priced_.answer);
  } else if (row_) {
    keepRowAmount();
  } else {
    controls_.txtAmount.Text = "";
  }
}

// What the clerk typed stays; what a formula computed goes with its component.
void ComponentChoice::keepRowAmount() {
  if (!controls_.txtAmount.Enabled()) controls_.txtAmount.Text = row_->amount;
}

void ComponentChoice::fillIn(std::int32_t componentId) {
  price(componentId);
  common::CommonDB& database = *helpers_.objCommonDB;
  controls_.lblsymbol.Caption = lookups_.symbol(database, componentId);
  const std::string code = lookups_.formulaCode(database, componentId);
  controls_.lblformula.Caption = code.empty() ? std::string() : "Amount By Formula :" + code;
  controls_.txtAmount.Enabled = code.empty();
  // What was typed for another component meanwhile is not this one's.
  if (!code.empty() && isOfRow(componentId)) controls_.txtAmount.Text = row_->amount;
}

void ComponentChoice::showRow(const Row& row) {
  row_ = row;
  controls_.txtAmount.Text = row.amount;
  controls_.combo.setListIndex(-1);  // So that choosing is a choice even when the last row had the same type.
  if (row.componentId) helpers_.objCommonGen->selectcomboitembyvalue(controls_.combo, *row.componentId);
  if (controls_.combo.ListIndex() >= 0) return;
  controls_.combo.setText(row.description);
  controls_.lblsymbol.Caption = row.symbol;
  controls_.lblformula.Caption = "";
  controls_.txtAmount.Enabled = true;
}

}  // namespace payslate
