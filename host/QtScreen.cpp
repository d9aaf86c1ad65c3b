// Choosing a platform for the windows, and handing out desktop and hands.
#include "host/QtScreen.h"

#include <QGuiApplication>
#include <QStringList>
#include <QtGlobal>
#include <array>
#include <utility>

#include "desktop/QtDesktop.h"
#include "desktop/QtHands.h"

namespace payslate::host {

namespace {

constexpr const char* platformVariable = "QT_QPA_PLATFORM";

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
// Displays are announced in the environment; one that does not answer is passed over like one that is absent.
void choosePlatform() {
  constexpr std::array<std::pair<const char*, const char*>, 2> displays{
      {{"WAYLAND_DISPLAY", "wayland"}, {"DISPLAY", "xcb"}}};
  if (!qEnvironmentVariableIsEmpty(platformVariable)) return;
  QStringList platforms;
  for (const auto& [variable, platform] : displays)
    if (!qEnvironmentVariableIsEmpty(variable)) platforms << QString::fromLatin1(platform);
  platforms << QStringLiteral("offscreen");
  qputenv(platformVariable, platforms.join(QLatin1Char(';')).toUtf8());
}
#else
// Sessions of these systems have a display.
void choosePlatform() {}
#endif

// What Qt remarks about its platform is noise beside a transcript; whoever configures Qt's logging sees it
// all.
void quietenRemarks() {
  static QtMessageHandler standard = nullptr;
  if (standard != nullptr || qEnvironmentVariableIsSet("QT_LOGGING_RULES")) return;
  standard =
      qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& context, const QString& text) {
        if (type == QtCriticalMsg || type == QtFatalMsg) standard(type, context, text);
      });
}

class QtScreen : public Screen {
 public:
  ui::Desktop& desktop() override { return desktop_; }
  ui::Hands& hands() override { return hands_; }
  void setClerk(ui::Clerk* clerk) override { desktop_.setClerk(clerk); }
  [[nodiscard]] bool isSeen() const override {
    const QString platform = QGuiApplication::platformName();
    return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
  }
  void saveScreens(const std::string& folder) override { desktop_.saveScreens(folder); }

 private:
  desktop::QtDesktop desktop_;
  desktop::QtHands hands_{desktop_};
};

}  // namespace

std::unique_ptr<Screen> makeQtScreen() {
  choosePlatform();
  quietenRemarks();
  return std::make_unique<QtScreen>();
}

}  // namespace payslate::host
