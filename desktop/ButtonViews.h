// Command buttons, check boxes and option buttons: they show the control's value and pass clicks on.
#pragma once

#include <QAbstractButton>

#include "desktop/View.h"
#include "platform/ui/Buttons.h"

namespace payslate::desktop {

/// What the three share: a press asks for the focus, a release inside is a click.
class ButtonView : public View {
 public:
  ButtonView(FormWindow& window, ui::Control& control, QAbstractButton* button);
  bool filter(QWidget& part, QEvent& event) override;
  [[nodiscard]] QString ownName() const override;
  void refresh() override;

 protected:
  void follow(const ui::Change& change) override;
  [[nodiscard]] QAbstractButton* button() const { return button_; }

 private:
  QAbstractButton* button_;
};

class CommandView : public ButtonView {
 public:
  CommandView(FormWindow& window, ui::CommandButton& command, const ui::Layout& node);
};

class CheckView : public ButtonView {
 public:
  CheckView(FormWindow& window, ui::CheckBox& check);
  void refresh() override;
  [[nodiscard]] QPoint pressPoint() const override;

 private:
  ui::CheckBox& check_;
};

class OptionView : public ButtonView {
 public:
  OptionView(FormWindow& window, ui::OptionButton& option);
  void refresh() override;
  [[nodiscard]] QPoint pressPoint() const override;

 private:
  ui::OptionButton& option_;
};

}  // namespace payslate::desktop
