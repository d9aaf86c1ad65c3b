// Explaining the figure that has the focus, or all of them.
#include <array>

#include "entry/EntryFacts.h"
#include "entry/frmExplain.h"
#include "entry/frmpayslate.h"
#include "explain/Explainer.h"

namespace payslate {

ExplainedMonth frmpayslate::explainedMonth() const {
  ExplainedMonth month;
  month.entry = record();
  month.entry.processed = state_.loaded.entry.processed;
  month.symbol = lblcursymbol.Caption();
  month.loadedBasicPay = state_.loaded.entry.basicPay;
  month.days = {txtTotalDays.Text(), txtworkingdays.Text(), txtNoPresent.Text(), txtNoLeave.Text(),
                txtNoAbsent.Text()};
  month.loadedDays = state_.loaded.entry.days;
  for (int row = 0; row < lvwfacility.rowCount(); ++row)
    month.recoveries.push_back({facilities_.recovery(row), lvwfacility.isChecked(row)});
  month.statement = totals_.statement();
  return month;
}

EntryFacts frmpayslate::facts(const ExplainedMonth& month) {
  return {bas_, month.entry.employeeId, month.entry.id, {formulas_, hourlyItems_, helpers_}};
}

std::optional<Explanation> frmpayslate::explanationOf(const ui::Control& control) {
  if (!monthIsWhole()) return {};
  const ExplainedMonth month = explainedMonth();
  EntryFacts asked = facts(month);
  const Explainer explainer(month, &asked);
  const std::array<const ui::Control*, dayBoxes> days{&txtTotalDays, &txtworkingdays, &txtNoPresent,
                                                      &txtNoLeave, &txtNoAbsent};
  for (std::size_t box = 0; box < days.size(); ++box)
    if (days.at(box) == &control) return explainer.dayCount(static_cast<DayBox>(box));
  if (&control == &txtBasicPay) return explainer.basicPay();
  const auto* list = dynamic_cast<const ui::ListView*>(&control);
  if (list == nullptr || list->SelectedItem() < 0) return {};
  const auto row = static_cast<std::size_t>(list->SelectedItem());
  if (list == &lvwAllow) return explainer.allowance(row);
  if (list == &lvwDeduct) return explainer.deduction(row);
  if (list == &lvwfacility) return explainer.recovery(row);
  if (list == &lvwCurrency) return explainer.statement(row);
  return {};
}

void frmpayslate::explainFocused() {
  if (ActiveControl() == nullptr) return;
  if (const auto explanation = explanationOf(*ActiveControl()))
    explainForm_.show([&](frmExplain& form) { form.shows(*explanation); });
}

std::vector<Explanation> frmpayslate::explanations() {
  if (!monthIsWhole()) return {};
  const ExplainedMonth month = explainedMonth();
  EntryFacts asked = facts(month);
  return Explainer(month, &asked).all();
}

std::vector<Explanation> frmpayslate::knownExplanations() const {
  if (!monthIsWhole()) return {};
  const ExplainedMonth month = explainedMonth();
  return Explainer(month, nullptr).all();
}

}  // namespace payslate
