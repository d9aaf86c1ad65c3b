// Text boxes.
#pragma once

#include "desktop/LineEditing.h"
#include "platform/ui/TextBox.h"

namespace payslate::desktop {

class TextView : public View {
 public:
  TextView(FormWindow& window, ui::TextBox& box, const ui::Layout& node);
  void refresh() override;
  bool filter(QWidget& part, QEvent& event) override;
  KeyOwner keyOwner(const QKeyEvent& event) override;
  [[nodiscard]] QString clippedText() const override { return editing_.clippedText(); }
  [[nodiscard]] QPoint pressPoint() const override { return editing_.caretPoint(); }

 protected:
  void follow(const ui::Change& change) override;

 private:
  ui::TextBox& box_;
  QLineEdit* edit_;
  LineEditing editing_;
};

}  // namespace payslate::desktop
