// Showing forms, messages and menus in real windows.
#include "desktop/QtDesktop.h"

#include <QAction>
#include <QApplication>
#include <QDeadlineTimer>
#include <QLocale>
#include <QMenu>
#include <QScopeGuard>
#include <QTimer>
#include <QWindow>
#include <algorithm>

#include "desktop/FormWindow.h"
#include "desktop/MessageWindow.h"
#include "desktop/Mouse.h"
#include "desktop/Pictures.h"
#include "desktop/Texts.h"
#include "platform/ui/Clerk.h"
#include "platform/ui/Form.h"

namespace payslate::desktop {

namespace {

constexpr int settlingRounds = 3;  // What is posted by what is posted by an action is done with it.
constexpr int longestWaitMs = 2000;
constexpr int waitStepMs = 10;

QApplication* applicationIfNone() {
  if (QCoreApplication::instance() != nullptr) return nullptr;
  static int argumentCount = 1;
  static char name[] = "payslate";
  static char* arguments[] = {name, nullptr};
  auto* application = new QApplication(argumentCount, arguments);
  QApplication::setQuitOnLastWindowClosed(false);
  return application;
}

}  // namespace

QtDesktop::QtDesktop() : ownApplication_(applicationIfNone()) {}

QtDesktop::~QtDesktop() = default;

FormWindow* QtDesktop::window(const ui::Form& form) const {
  const auto shows = [&form](const FormWindow* window) { return &window->form() == &form; };
  const auto found = std::find_if(windows_.begin(), windows_.end(), shows);
  return found == windows_.end() ? nullptr : *found;
}

void QtDesktop::settle() {
  for (int round = 0; round < settlingRounds; ++round) {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents(QEventLoop::AllEvents);
  }
}

void QtDesktop::waitUntilShown(const QWidget& window) {
  const QDeadlineTimer deadline(longestWaitMs);
  const auto isShown = [&window] {
    const QWindow* handle = window.windowHandle();
    return handle != nullptr && handle->isExposed();
  };
  while (!isShown() && !deadline.hasExpired()) {
    QTimer::singleShot(waitStepMs, [] {});  // Wakes the wait below.
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  settle();
}

void QtDesktop::askClerk(const std::function<void()>& question) {
  try {
    question();
  } catch (...) {
    if (!failure_) failure_ = std::current_exception();
  }
}

void QtDesktop::throwClerksFailure() {
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void QtDesktop::saveScreens(const std::string& folder) {
  pictures_ = std::make_unique<Pictures>(toQt(folder));
}

void QtDesktop::picture(QWidget& window, const QString& name) {
  if (pictures_ != nullptr) pictures_->take(window, name);
}

// Before something opens over it: what led there.
void QtDesktop::pictureInFront() {
  if (!windows_.empty()) picture(*windows_.back(), windows_.back()->objectName());
}

bool QtDesktop::grab(const ui::Form& form, const std::string& file) const {
  FormWindow* shown = window(form);
  return shown != nullptr && shown->grab().save(toQt(file));
}

void QtDesktop::waitForUser(FormWindow& window) {
  QTimer::singleShot(0, &window, [this, &window] { picture(window, window.objectName()); });
  // Not an event loop of its own, nor below: when the host's application quits, what the user typed is not
  // lost, and the host's loop ends after the form.
  while (window.form().isLoaded()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void QtDesktop::showModal(ui::Form& form) {
  if (failure_) return form.abandon();
  pictureInFront();
  {
    QWidget* behind = windows_.empty() ? QApplication::activeWindow() : windows_.back();
    FormWindow window(form, behind);
    windows_.push_back(&window);
    const auto leave = qScopeGuard([this, &window] {
      windows_.pop_back();
      if (pictures_ != nullptr) pictures_->forget(window);
    });
    window.appear();
    if (clerk_ == nullptr) {
      waitForUser(window);
    } else {
      waitUntilShown(window);
      picture(window, window.objectName());
      askClerk([&] { clerk_->attend(form); });
    }
    picture(window, window.objectName());
    form.abandon();  // where the clerk went away
  }
  if (windows_.empty()) throwClerksFailure();
}

ui::Answer QtDesktop::showMessage(const ui::Message& message) {
  if (failure_) return message.asksYesNo() ? ui::Answer::No : ui::Answer::Ok;
  pictureInFront();
  MessageWindow box(message, windows_.empty() ? QApplication::activeWindow() : windows_.back());
  box.show();
  if (clerk_ == nullptr) {
    QTimer::singleShot(0, &box, [this, &box] { picture(box, box.objectName()); });
    while (box.isVisible()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  } else {
    waitUntilShown(box);
    picture(box, box.objectName());
    askClerk([&] { answerByClerk(box, message); });
    box.hide();
  }
  if (pictures_ != nullptr) pictures_->forget(box);
  return box.answer();
}

void QtDesktop::answerByClerk(MessageWindow& box, const ui::Message& message) {
  ui::Answer answer = ui::Answer::Escape;
  do {
    answer = clerk_->answer(message);
    box.press(answer);
    settle();
  } while (answer == ui::Answer::Escape && box.isVisible());
}

ui::MenuItem* QtDesktop::showMenu(ui::Form& form, const ui::PopupMenu& model) {
  FormWindow* shown = window(form);
  if (failure_ || shown == nullptr) return nullptr;
  QMenu menu(shown);
  for (ui::MenuItem* item : model.items()) {
    if (!item->Visible()) continue;
    QAction* action = item->isSeparator() ? menu.addSeparator() : menu.addAction(toQt(item->Caption()));
    action->setEnabled(item->Enabled());
    action->setData(QVariant::fromValue(static_cast<void*>(item)));
  }
  if (menu.isEmpty()) return nullptr;
  pictureInFront();
  const QPoint at = shown->menuPoint();
  if (clerk_ != nullptr) {
    menu.popup(at);
    return pickByClerk(menu, form, model);
  }
  const QAction* picked = menu.exec(at);
  return picked == nullptr ? nullptr : static_cast<ui::MenuItem*>(picked->data().value<void*>());
}

ui::MenuItem* QtDesktop::pickByClerk(QMenu& menu, ui::Form& form, const ui::PopupMenu& model) {
  waitUntilShown(menu);
  picture(menu, QStringLiteral("menu-") + toQt(model.Name()));
  if (pictures_ != nullptr) pictures_->forget(menu);
  ui::MenuItem* wanted = nullptr;
  ui::MenuItem* picked = nullptr;
  QObject::connect(&menu, &QMenu::triggered, &menu, [&picked](const QAction* action) {
    picked = static_cast<ui::MenuItem*>(action->data().value<void*>());
  });
  askClerk([&] { wanted = clerk_->pick(form, model); });
  for (QAction* action : menu.actions()) {
    if (wanted == nullptr || action->data().value<void*>() != wanted) continue;
    clickAt(menu, menu.actionGeometry(action).center());
    break;
  }
  settle();
  menu.close();
  return picked;
}

void QtDesktop::beep() {
  QApplication::beep();
}

std::string QtDesktop::shortDatePattern() const {
  const QLocale region = QLocale::system();
  if (region.language() == QLocale::C) return Desktop::shortDatePattern();
  return numericDatePattern(region.dateFormat(QLocale::ShortFormat));
}

std::string QtDesktop::applicationFolder() const {
  return fromQt(QCoreApplication::applicationDirPath());
}

std::string numericDatePattern(const QString& regionFormat) {
  std::string usual = "dd/MM/yyyy";
  constexpr struct {
    char letter;
    const char* written;
    qsizetype longest;  // a longer run is a name
  } parts[] = {{'d', "dd", 2}, {'M', "MM", 2}, {'y', "yyyy", 4}};
  std::string pattern;
  std::string found;
  for (qsizetype at = 0; at < regionFormat.size();) {
    const QChar one = regionFormat.at(at);
    qsizetype end = at;
    while (end < regionFormat.size() && regionFormat.at(end) == one) ++end;
    const auto* part = std::find_if(std::begin(parts), std::end(parts),
                                    [one](const auto& known) { return one == QLatin1Char(known.letter); });
    if (part != std::end(parts)) {
      if (end - at > part->longest) return usual;
      pattern += part->written;
      found += part->letter;
    } else if (one.isLetter() || one == QLatin1Char('\'')) {
      return usual;
    } else if (one.isPrint()) {
      pattern += fromQt(regionFormat.mid(at, end - at));
    }
    at = end;
  }
  std::sort(found.begin(), found.end());
  return found == "Mdy" ? pattern : usual;
}

}  // namespace payslate::desktop
