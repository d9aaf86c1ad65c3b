// What lists and grids share: rows that are clicked, double-clicked and walked with keys.
#pragma once

#include <vector>

#include "platform/ui/Control.h"
#include "platform/ui/TextBox.h"

namespace payslate::ui {

/// 1/1440 inch. A width of 0 hides a column that still carries data.
using Twips = int;

struct ColumnLayout {
  std::string header;
  Twips width = 0;
  Alignment alignment = Alignment::Left;
};

/// Rows and columns count from 0, headers not counted; row -1 is the empty area.
class RowControl : public Control {
 public:
  using Control::Control;

  [[nodiscard]] virtual int rowCount() const = 0;
  [[nodiscard]] virtual const std::vector<ColumnLayout>& columns() const = 0;
  [[nodiscard]] virtual const std::string& cellText(int row, int column) const = 0;
  [[nodiscard]] virtual bool isRed(int row) const = 0;
  [[nodiscard]] virtual int currentRow() const = 0;
  /// The user's choice of a row, by mouse or keys.
  virtual void userSelects(int row) = 0;

  Event<> Click;
  Event<> DblClick;
  Event<MouseButton, int, int, int> MouseDown;  ///< button, shift mask, x and y in pixels of the control.

  [[nodiscard]] std::optional<std::string> propertyText(std::string_view property) const override;
  bool keyAction(const Key& key) override;

  /// Column by its header (trimmed, any letter case); -1 when there is none.
  [[nodiscard]] int columnNamed(std::string_view header) const;
};

}  // namespace payslate::ui
