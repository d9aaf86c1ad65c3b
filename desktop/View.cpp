// What the views of all controls share, and which view shows which control.
#include "desktop/View.h"

#include <QApplication>
#include <QFontMetrics>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionFrame>
#include <algorithm>

#include "desktop/ButtonViews.h"
#include "desktop/ComboView.h"
#include "desktop/DateView.h"
#include "desktop/FormWindow.h"
#include "desktop/LabelViews.h"
#include "desktop/PageView.h"
#include "desktop/RowsView.h"
#include "desktop/TabView.h"
#include "desktop/TextView.h"
#include "desktop/Texts.h"
#include "platform/ui/Form.h"

namespace payslate::desktop {

View::View(FormWindow& window, ui::Control& control, QWidget* widget)
    : window_(window), control_(control), widget_(widget) {
  widget_->setObjectName(QString::fromStdString(control.Name()));
  control_.observe([this](const ui::Change& change) { follow(change); });
}

View::~View() {
  control_.observe({});
}

void View::refresh() {
  widget_->setVisible(control_.Visible());
  widget_->setEnabled(control_.Enabled());
  showName();
}

void View::setLabelName(const QString& name) {
  labelName_ = name;
  showName();
}

void View::showName() {
  QString name = toQt(control_.AccessibleName);
  if (name.isEmpty()) name = labelName_;
  if (name.isEmpty()) name = ownName();
  widget_->setAccessibleName(name);
  focusTarget()->setAccessibleName(name);
  widget_->setAccessibleDescription(toQt(control_.ToolTip));
}

void View::follow(const ui::Change& change) {
  if (change.aspect == ui::Aspect::Visible)
    widget_->setVisible(control_.Visible());
  else if (change.aspect == ui::Aspect::Enabled)
    widget_->setEnabled(control_.Enabled());
}

bool View::filter(QWidget&, QEvent&) {
  return false;
}

KeyOwner View::keyOwner(const QKeyEvent&) {
  return KeyOwner::Form;
}

bool View::pressTakesFocus(const QMouseEvent& press) {
  if (!widget_->isEnabled() || !window_.input().focus(control_)) return false;
  // A handler may have shown a message meanwhile; the button was then released over it.
  return !press.spontaneous() || QApplication::mouseButtons() != Qt::NoButton;
}

std::unique_ptr<View> makeView(FormWindow& window, ui::Control& control, const ui::Layout& node) {
  if (auto* label = dynamic_cast<ui::Label*>(&control)) return std::make_unique<LabelView>(window, *label);
  if (auto* frame = dynamic_cast<ui::Frame*>(&control)) return std::make_unique<FrameView>(window, *frame);
  if (auto* box = dynamic_cast<ui::TextBox*>(&control)) return std::make_unique<TextView>(window, *box, node);
  if (auto* page = dynamic_cast<ui::TextPage*>(&control)) return std::make_unique<PageView>(window, *page);
  if (auto* combo = dynamic_cast<ui::ComboBox*>(&control))
    return std::make_unique<ComboView>(window, *combo, node);
  if (auto* button = dynamic_cast<ui::CommandButton*>(&control))
    return std::make_unique<CommandView>(window, *button, node);
  if (auto* check = dynamic_cast<ui::CheckBox*>(&control)) return std::make_unique<CheckView>(window, *check);
  if (auto* option = dynamic_cast<ui::OptionButton*>(&control))
    return std::make_unique<OptionView>(window, *option);
  if (auto* picker = dynamic_cast<ui::DatePicker*>(&control))
    return std::make_unique<DateView>(window, *picker);
  if (auto* rows = dynamic_cast<ui::RowControl*>(&control)) return std::make_unique<RowsView>(window, *rows);
  if (auto* tab = dynamic_cast<ui::TabControl*>(&control)) return std::make_unique<TabView>(window, *tab);
  qFatal("No view shows a control of the kind %s", std::string(control.TypeName()).c_str());
}

int widthOf(const QWidget& widget, int characters) {
  const QFontMetrics metrics = widget.fontMetrics();
  const int one = std::max(metrics.averageCharWidth(), metrics.horizontalAdvance(QLatin1Char('0')));
  return one * characters;
}

void setBoxWidth(QWidget& box, const ui::Layout& node, int usual) {
  const int characters = node.characters > 0 ? node.characters : usual;
  QStyleOptionFrame option;
  option.initFrom(&box);
  const QSize content(widthOf(box, characters + 1), box.fontMetrics().height());
  const int width = box.style()->sizeFromContents(QStyle::CT_LineEdit, &option, content, &box).width();
  if (node.grow > 0) {
    box.setMinimumWidth(width);
    box.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  } else {
    box.setFixedWidth(width);
    box.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  }
}

}  // namespace payslate::desktop
