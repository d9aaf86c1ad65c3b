// A desktop with real windows, on Qt Widgets.
#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/ui/Desktop.h"

class QApplication;
class QMenu;
class QString;
class QWidget;

namespace payslate::ui {
class Clerk;
}

namespace payslate::desktop {

class FormWindow;
class MessageWindow;
class Pictures;

/// Works inside a host's QApplication when there is one, which must then outlive it; otherwise it makes its
/// own. All calls come from the thread of the QApplication. Forms are application-modal and stand over the
/// window that is active when the first of them is shown.
///
/// With a clerk, windows are shown as ever but nobody is waited for. An exception that the clerk throws never
/// crosses Qt's event loop: it is kept, what is open is left at once, and it goes on from the innermost
/// QtHands call that is safe, in the end from the outermost showModal.
class QtDesktop : public ui::Desktop {
 public:
  QtDesktop();
  ~QtDesktop() override;
  QtDesktop(const QtDesktop&) = delete;
  QtDesktop& operator=(const QtDesktop&) = delete;

  void showModal(ui::Form& form) override;
  ui::Answer showMessage(const ui::Message& message) override;
  ui::MenuItem* showMenu(ui::Form& form, const ui::PopupMenu& model) override;
  void beep() override;
  [[nodiscard]] std::string shortDatePattern() const override;
  [[nodiscard]] std::string applicationFolder() const override;

  /// The clerk answers from now on; null gives the windows back to the user. It must outlive its work.
  void setClerk(ui::Clerk* clerk) { clerk_ = clerk; }

  /// From now on every window is pictured when it is shown, before another opens over it, and before it
  /// closes, as NN-Name.png in this folder.
  void saveScreens(const std::string& folder);
  /// Pictures the form's window now. False when it is not shown or the file cannot be written.
  bool grab(const ui::Form& form, const std::string& file) const;

  /// The window of a form that is shown; null for another.
  [[nodiscard]] FormWindow* window(const ui::Form& form) const;
  /// Lets Qt do all that is waiting to be done.
  void settle();
  /// Throws what the clerk has thrown inside a nested window, if anything.
  void throwClerksFailure();

 private:
  void waitForUser(FormWindow& window);
  void askClerk(const std::function<void()>& question);
  void waitUntilShown(const QWidget& window);
  void picture(QWidget& window, const QString& name);
  void pictureInFront();
  void answerByClerk(MessageWindow& box, const ui::Message& message);
  ui::MenuItem* pickByClerk(QMenu& menu, ui::Form& form, const ui::PopupMenu& model);

  std::unique_ptr<QApplication> ownApplication_;
  std::unique_ptr<Pictures> pictures_;
  std::vector<FormWindow*> windows_;
  ui::Clerk* clerk_ = nullptr;
  std::exception_ptr failure_;
};

/// A region's short date format as dd, MM and yyyy in the region's order with its separators; dd/MM/yyyy when
/// the format cannot be written so (month names, missing parts).
std::string numericDatePattern(const QString& regionFormat);

}  // namespace payslate::desktop
