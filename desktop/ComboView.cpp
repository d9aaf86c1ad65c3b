// Combo boxes.
#include "desktop/ComboView.h"

#include <QMouseEvent>
#include <QSignalBlocker>

#include "desktop/FormWindow.h"
#include "desktop/Suggestions.h"
#include "desktop/Texts.h"
#include "platform/ui/Form.h"

namespace payslate::desktop {

namespace {

constexpr int usualWidth = 18;  // characters
constexpr int visibleItems = 15;

EditedText editedText(ui::ComboBox& combo) {
  return {[&combo] { return combo.Text(); }, [&combo] { return combo.SelStart(); },
          [&combo] { return combo.SelLength(); },
          [&combo](int start, int length) { combo.Select(start, length); }};
}

}  // namespace

ItemsModel::ItemsModel(const ui::ComboBox& combo, QObject* parent)
    : QAbstractListModel(parent), combo_(combo), count_(combo.ListCount()) {}

int ItemsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : count_;
}

QVariant ItemsModel::data(const QModelIndex& index, int role) const {
  const bool isText = role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::ToolTipRole;
  if (!isText || !index.isValid() || index.row() >= combo_.ListCount()) return {};
  const QString item = toQt(combo_.List(index.row()));
  return role == Qt::ToolTipRole ? item.toHtmlEscaped() : item;
}

void ItemsModel::itemsChanged() {
  const int now = combo_.ListCount();
  if (now == count_ + 1) {
    beginInsertRows({}, count_, count_);
    count_ = now;
    endInsertRows();
  } else {
    beginResetModel();
    count_ = now;
    endResetModel();
  }
}

ComboView::ComboView(FormWindow& window, ui::ComboBox& combo, const ui::Layout& node)
    : View(window, combo, new QComboBox(&window)), combo_(combo), box_(static_cast<QComboBox*>(widget())) {
  items_ = new ItemsModel(combo, box_);
  box_->setModel(items_);
  box_->setMaxVisibleItems(visibleItems);
  box_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setBoxWidth(*box_, node, usualWidth);
  box_->setInsertPolicy(QComboBox::NoInsert);
  box_->setFocusPolicy(Qt::TabFocus);
  if (combo.Style == ui::ComboStyle::DropDown) {
    box_->setEditable(true);
    box_->setCompleter(nullptr);
    editing_ = std::make_unique<LineEditing>(*box_->lineEdit(), window, editedText(combo), false);
    suggestions_ = std::make_unique<Suggestions>(combo, *box_, [this](int index) { choose(index); });
  }
  QObject::connect(box_, &QComboBox::activated, box_, [this](int index) { choose(index); });
}

ComboView::~ComboView() = default;

void ComboView::choose(int index) {
  window().input().choose(combo_, index);
  show();  // The form may have refused.
}

void ComboView::refresh() {
  View::refresh();
  show();
}

void ComboView::show() {
  const QSignalBlocker quiet(box_);
  const QSignalBlocker quietLine(box_->lineEdit());  // Its caret moves before the form's is shown.
  if (box_->currentIndex() != combo_.ListIndex()) box_->setCurrentIndex(combo_.ListIndex());
  if (editing_ != nullptr) editing_->show();
}

void ComboView::follow(const ui::Change& change) {
  switch (change.aspect) {
    case ui::Aspect::Items: {
      const QSignalBlocker quiet(box_);
      items_->itemsChanged();
      return show();
    }
    case ui::Aspect::ListIndex:
      return show();
    case ui::Aspect::TextSelection:
      if (editing_ != nullptr) editing_->show();
      return;
    default:
      return View::follow(change);
  }
}

bool ComboView::filter(QWidget& part, QEvent& event) {
  const bool inText = editing_ != nullptr && &part == box_->lineEdit();
  switch (event.type()) {
    case QEvent::Wheel:
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
      if (!box_->isEnabled()) return false;
      if (suggestions_ != nullptr) suggestions_->hide();
      const bool hadFocus = window().hasFocus(combo_);
      if (!pressTakesFocus(static_cast<QMouseEvent&>(event))) return true;
      return inText && (editing_->filter(event) || editing_->keepsSelection(hadFocus));
    }
    default:
      return inText && editing_->filter(event);
  }
}

KeyOwner ComboView::keyOwner(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
  const bool arrow = event.key() == Qt::Key_Down || event.key() == Qt::Key_Up;
  if ((event.key() == Qt::Key_F4 && held == Qt::NoModifier) || (arrow && held == Qt::AltModifier)) {
    if (suggestions_ != nullptr) suggestions_->hide();
    box_->showPopup();
    return KeyOwner::Done;
  }
  suggestedFor_ = toQt(combo_.Text());
  if (suggestions_ != nullptr && suggestions_->takesKey(event)) return KeyOwner::Done;
  return editing_ != nullptr ? editing_->keyOwner(event) : KeyOwner::Form;
}

// After a key changed the text to one that is no item, what it may become is offered.
void ComboView::keyDone() {
  if (suggestions_ == nullptr) return;
  const QString typed = toQt(combo_.Text());
  if (typed == suggestedFor_ && suggestions_->isVisible()) return;
  const bool searching = typed != suggestedFor_ && !typed.isEmpty() && combo_.ListIndex() < 0;
  if (searching && window().hasFocus(combo_) && window().isInFront())
    suggestions_->offer(typed);
  else
    suggestions_->hide();
}

void ComboView::leaving() {
  if (suggestions_ != nullptr) suggestions_->hide();
}

void ComboView::focusChanged(bool came) {
  if (!came && suggestions_ != nullptr) suggestions_->hide();
}

QWidget* ComboView::focusTarget() const {
  return editing_ != nullptr ? static_cast<QWidget*>(box_->lineEdit()) : box_;
}

QString ComboView::clippedText() const {
  return editing_ != nullptr ? editing_->clippedText() : QString();
}

QPoint ComboView::pressPoint() const {
  return editing_ != nullptr ? box_->lineEdit()->mapTo(box_, editing_->caretPoint()) : View::pressPoint();
}

}  // namespace payslate::desktop
