// Command buttons, check boxes and option buttons.
#include "desktop/ButtonViews.h"

#include <QCheckBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <algorithm>

#include "desktop/FormWindow.h"
#include "desktop/Texts.h"
#include "platform/ui/Form.h"

namespace payslate::desktop {

namespace {

// Buttons that leave their state to the control.
class ShownCheckBox : public QCheckBox {
 public:
  using QCheckBox::QCheckBox;
  void nextCheckState() override {}
};

class ShownOption : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;
  void nextCheckState() override {}
};

constexpr int narrowButton = 4;  // characters of a button that shows a sign

bool isSign(const std::string& caption) {
  const QString text = toQt(caption);
  return std::none_of(text.begin(), text.end(), [](QChar one) { return one.isLetterOrNumber(); });
}

QPoint markPoint(const QWidget& button) {
  return QStyle::visualPos(button.layoutDirection(), button.rect(),
                           {button.height() / 2, button.height() / 2});
}

}  // namespace

ButtonView::ButtonView(FormWindow& window, ui::Control& control, QAbstractButton* button)
    : View(window, control, button), button_(button) {
  button_->setFocusPolicy(Qt::TabFocus);
  button_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  QObject::connect(button_, &QAbstractButton::clicked, &window,
                   [this] { this->window().input().click(this->control()); });
}

bool ButtonView::filter(QWidget&, QEvent& event) {
  const auto type = event.type();
  if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonDblClick) return false;
  const auto& press = static_cast<QMouseEvent&>(event);
  return press.button() == Qt::LeftButton && button_->isEnabled() && !pressTakesFocus(press);
}

QString ButtonView::ownName() const {
  return spokenName(control().mnemonicCaption());
}

void ButtonView::refresh() {
  View::refresh();
  button_->setText(toQt(control().mnemonicCaption()));
}

void ButtonView::follow(const ui::Change& change) {
  if (change.aspect == ui::Aspect::Caption || change.aspect == ui::Aspect::Value) return refresh();
  View::follow(change);
}

CommandView::CommandView(FormWindow& window, ui::CommandButton& command, const ui::Layout& node)
    : ButtonView(window, command, new QPushButton(&window)) {
  auto* push = static_cast<QPushButton*>(button());
  push->setAutoDefault(false);
  push->setDefault(command.Default);
  int characters = node.characters;
  if (characters == 0 && isSign(command.Caption())) characters = narrowButton;
  if (characters > 0) push->setFixedWidth(widthOf(*push, characters));
}

CheckView::CheckView(FormWindow& window, ui::CheckBox& check)
    : ButtonView(window, check, new ShownCheckBox(&window)), check_(check) {}

void CheckView::refresh() {
  ButtonView::refresh();
  constexpr Qt::CheckState states[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
  static_cast<QCheckBox*>(button())->setCheckState(states[static_cast<int>(check_.Value())]);
}

QPoint CheckView::pressPoint() const {
  return markPoint(*widget());
}

OptionView::OptionView(FormWindow& window, ui::OptionButton& option)
    : ButtonView(window, option, new ShownOption(&window)), option_(option) {
  button()->setAutoExclusive(false);
}

void OptionView::refresh() {
  ButtonView::refresh();
  button()->setChecked(option_.Value());
}

QPoint OptionView::pressPoint() const {
  return markPoint(*widget());
}

}  // namespace payslate::desktop
