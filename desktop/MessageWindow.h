// The window of one message box.
#pragma once

#include <QMessageBox>

#include "platform/ui/MessageBox.h"

namespace payslate::desktop {

/// Shows a message as its style says. A question is closed by its buttons alone; Escape and the close box
/// mean OK where that is the only one.
class MessageWindow : public QMessageBox {
 public:
  MessageWindow(const ui::Message& message, QWidget* parent);

  /// Clicks the button of an answer, or presses Escape.
  void press(ui::Answer answer);
  /// Of a question that was left without a button: No.
  [[nodiscard]] ui::Answer answer() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  bool asks_;
};

}  // namespace payslate::desktop
