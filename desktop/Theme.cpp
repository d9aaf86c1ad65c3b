// Colours that follow the system's theme.
#include "desktop/Theme.h"

namespace payslate::desktop {

namespace {
constexpr int middleLightness = 128;
constexpr double focusedTint = 0.40;
constexpr double restingTint = 0.18;

float mixed(float base, float added, double share) {
  return static_cast<float>(base * (1 - share) + added * share);
}
}  // namespace

QColor readableRed(const QPalette& theme) {
  const bool dark = theme.color(QPalette::Base).lightness() < middleLightness;
  return dark ? QColor(0xFF, 0x9A, 0x92) : QColor(0xB0, 0x00, 0x18);
}

QColor rowTint(const QPalette& theme, bool focused) {
  const QColor base = theme.color(QPalette::Active, QPalette::Base);
  const QColor added = theme.color(QPalette::Active, QPalette::Highlight);
  const double share = focused ? focusedTint : restingTint;
  return QColor::fromRgbF(mixed(base.redF(), added.redF(), share),
                          mixed(base.greenF(), added.greenF(), share),
                          mixed(base.blueF(), added.blueF(), share));
}

}  // namespace payslate::desktop
