// The window of one form.
#pragma once

#include <QDialog>
#include <QHash>
#include <memory>
#include <optional>
#include <vector>

#include "desktop/View.h"

namespace payslate::ui {
class Form;
class Input;
}  // namespace payslate::ui

namespace payslate::desktop {

/// Shows the form's controls and hands every key, click and close to its Input; Qt itself acts on nothing
/// that could change a control. Must not outlive the form. Closing never destroys or hides it: who shows it
/// does, once the form is no longer loaded.
class FormWindow : public QDialog {
 public:
  FormWindow(ui::Form& form, QWidget* parent);
  ~FormWindow() override;

  [[nodiscard]] ui::Form& form() const { return form_; }
  [[nodiscard]] ui::Input& input() const;
  /// The view of a control of the form; null when the control is not in its layout.
  [[nodiscard]] View* view(const ui::Control& control) const;
  [[nodiscard]] bool hasFocus(const ui::Control& control) const;
  /// Is this the form that the user works on?
  [[nodiscard]] bool isInFront() const;

  /// Makes the view of a control, and keeps it.
  View& addView(ui::Control& control, const ui::Layout& node);

  /// Shows the window with the focus where the form has it.
  void appear();

  /// Where a menu of this form pops up, on the screen: the last press, else the current row.
  [[nodiscard]] QPoint menuPoint() const;
  void setMenuPoint(QPoint onScreen) { menuPoint_ = onScreen; }

  void reject() override;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void watch();
  void measureAgain();
  [[nodiscard]] View* viewOf(const QWidget& part) const;
  bool keyPressed(View* view, const QKeyEvent& event);
  bool focusCame(View* view);
  bool showToolTip(View* view, const QHelpEvent& event) const;
  void showFocus();
  void showCaption();
  void showPointer();
  void refresh();
  void openHelp() const;

  ui::Form& form_;
  std::vector<std::unique_ptr<View>> views_;
  QHash<const QWidget*, View*> byWidget_;
  std::optional<QPoint> menuPoint_;
};

}  // namespace payslate::desktop
