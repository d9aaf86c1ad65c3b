// Choosing a type of allowance or deduction in a popup: what follows from the choice.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "component/Origins.h"
#include "paycomponents/PayLookups.h"

namespace payslate {

class Formulas;
struct FormHelpers;

namespace ui {
class ComboBox;
class Label;
class TextBox;
}  // namespace ui

/// The combo offers the types; its choice fills amount, currency symbol and formula label. A component with a
/// formula is not priced by hand: its amount box is disabled.
class ComponentChoice {
 public:
  struct Controls {
    ui::ComboBox& combo;
    ui::TextBox& txtAmount;
    ui::Label& lblsymbol;
    ui::Label& lblformula;
  };
  /// A row as its list shows it. Without a component the combo only shows the description.
  struct Row {
    std::string description;
    std::string amount;
    std::string symbol;
    std::optional<std::int32_t> componentId;
  };

  ComponentChoice(const Session& session, const PayComponentKind& kind, const Formulas& formulas,
                  const FormHelpers& helpers, const Controls& controls)
      : lookups_(session, kind), formulas_(formulas), helpers_(helpers), controls_(controls) {}

  /// The combo's Click. Where formula or currency cannot be had, what the last choice showed goes, and the
  /// error is passed on.
  void chosen();
  /// The combo's Change: a row's own description, typed back, brings back what belongs to the row.
  void typed();
  /// Fills in what `chosen` could not, or fails like it. For OK: nothing without its amount gets into a list.
  void complete();
  /// Shows a row that is in the list. Its amount stays while its component does; a component with a formula
  /// that is chosen in its place brings its own, and the row's component its amount again if it has a
  /// formula.
  void showRow(const Row& row);

  /// Is the row's own component shown, one that cannot be chosen any more? Its amount can still be corrected.
  [[nodiscard]] bool showsRetired() const;

  /// Where the amount of the chosen component comes from, when it is new in its row: its formula, or the
  /// clerk.
  [[nodiscard]] Origin origin(const std::string& before = {}) const;

  /// A component must be chosen.
  [[nodiscard]] std::int32_t componentId() const;

 private:
  void fillIn(std::int32_t componentId);
  void price(std::int32_t componentId);
  [[nodiscard]] bool isOfRow(std::int32_t componentId) const;
  void keepRowAmount();

  PayLookups lookups_;
  const Formulas& formulas_;
  const FormHelpers& helpers_;
  Controls controls_;
  bool incomplete_ = false;  ///< The choice could not be priced.
  FormulaOrigin priced_;     ///< By which the chosen component was priced.
  std::optional<Row> row_;   ///< As shown first; empty while one is added.
};

}  // namespace payslate
