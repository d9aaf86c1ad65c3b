// The window of one message box.
#include "desktop/MessageWindow.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QKeyEvent>

#include "desktop/Mouse.h"
#include "desktop/Texts.h"

namespace payslate::desktop {

namespace {

QMessageBox::Icon iconOf(ui::MessageStyle style) {
  constexpr int iconMask = 0x70;
  switch (static_cast<int>(style) & iconMask) {
    case 0x10:
      return QMessageBox::Critical;
    case 0x20:
      return QMessageBox::Question;
    case 0x30:
      return QMessageBox::Warning;
    default:
      return QMessageBox::Information;
  }
}

QMessageBox::StandardButton buttonOf(ui::Answer answer) {
  if (answer == ui::Answer::Yes) return QMessageBox::Yes;
  return answer == ui::Answer::No ? QMessageBox::No : QMessageBox::Ok;
}

}  // namespace

MessageWindow::MessageWindow(const ui::Message& message, QWidget* parent)
    : QMessageBox(parent), asks_(message.asksYesNo()) {
  setAttribute(Qt::WA_QuitOnClose, false);
  setObjectName(QStringLiteral("message"));
  setTextFormat(Qt::PlainText);
  setText(toQt(message.text));
  setWindowTitle(toQt(message.title));
  setIcon(iconOf(message.style));
  setStandardButtons(asks_ ? QMessageBox::Yes | QMessageBox::No
                           : QMessageBox::StandardButtons(QMessageBox::Ok));
  setDefaultButton(buttonOf(message.defaultAnswer()));
  setWindowFlag(Qt::WindowCloseButtonHint, !asks_);
  setWindowModality(Qt::ApplicationModal);
}

void MessageWindow::press(ui::Answer answer) {
  if (answer == ui::Answer::Escape) return strikeKey(*this, *ui::Key::named("Escape"));
  QAbstractButton* pressed = button(buttonOf(answer));
  if (pressed != nullptr) clickAt(*pressed, pressed->rect().center());
}

ui::Answer MessageWindow::answer() const {
  if (!asks_) return ui::Answer::Ok;
  return result() == QMessageBox::Yes ? ui::Answer::Yes : ui::Answer::No;
}

// Qt takes No for what Escape and the close box mean.
void MessageWindow::keyPressEvent(QKeyEvent* event) {
  if (!asks_ || !event->matches(QKeySequence::Cancel)) QMessageBox::keyPressEvent(event);
}

void MessageWindow::closeEvent(QCloseEvent* event) {
  if (asks_)
    event->ignore();
  else
    QMessageBox::closeEvent(event);
}

}  // namespace payslate::desktop
