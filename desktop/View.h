// The screen's side of one control.
#pragma once

#include <QKeyEvent>
#include <QWidget>
#include <memory>

#include "platform/ui/Control.h"
#include "platform/ui/Layout.h"

namespace payslate::desktop {

class FormWindow;

/// Who acts on a keystroke.
enum class KeyOwner {
  Form,  ///< the form's Input, as all keys unless a view says otherwise
  Qt,    ///< the widget's own handling: moves of the caret
  Done,  ///< the view has acted on it
};

/// Shows a control in a widget and hands what the user does there to the form's Input; it never changes
/// anything by itself. The widget belongs to the window, the view to the window's list of views.
class View {
 public:
  View(FormWindow& window, ui::Control& control, QWidget* widget);
  virtual ~View();
  View(const View&) = delete;
  View& operator=(const View&) = delete;

  [[nodiscard]] ui::Control& control() const { return control_; }
  [[nodiscard]] QWidget* widget() const { return widget_; }
  /// The part that has the keyboard.
  [[nodiscard]] virtual QWidget* focusTarget() const { return widget_; }

  /// Shows everything as the control says.
  virtual void refresh();
  /// An event on the widget or a part of it, before Qt acts; true keeps it from Qt.
  virtual bool filter(QWidget& part, QEvent& event);
  virtual KeyOwner keyOwner(const QKeyEvent& event);
  /// Called when the form has acted on a keystroke that arrived here.
  virtual void keyDone() {}
  /// Called before a press elsewhere takes the focus from here.
  virtual void leaving() {}
  /// Called when the keyboard came here or left.
  virtual void focusChanged(bool) {}
  /// A text that does not fit in the widget, for its tool tip; empty when all is seen.
  [[nodiscard]] virtual QString clippedText() const { return {}; }
  /// The name screen readers say when neither the control's AccessibleName nor a label gives one.
  [[nodiscard]] virtual QString ownName() const { return {}; }

  /// The caption of the label that stands with the control.
  void setLabelName(const QString& name);

  /// Where a mouse that means the control as a whole presses.
  [[nodiscard]] virtual QPoint pressPoint() const { return widget_->rect().center(); }

 protected:
  virtual void follow(const ui::Change& change);
  [[nodiscard]] FormWindow& window() const { return window_; }

  /// A press brings the focus here, if the form allows it. False: the press must not reach Qt.
  bool pressTakesFocus(const QMouseEvent& press);

 private:
  void showName();

  FormWindow& window_;
  ui::Control& control_;
  QWidget* widget_;
  QString labelName_;
};

/// The view of a control in the style of its kind. `node` is its place in the form's layout.
std::unique_ptr<View> makeView(FormWindow& window, ui::Control& control, const ui::Layout& node);

/// Width of a box for this many characters in the widget's font, without frame.
int widthOf(const QWidget& widget, int characters);

/// Gives a one-line box its width: as wide as `node` or else `usual` says, more when it may grow.
void setBoxWidth(QWidget& box, const ui::Layout& node, int usual);

}  // namespace payslate::desktop
