// Colours that follow the system's theme.
#pragma once

#include <QPalette>

namespace payslate::desktop {

/// A red that can be read on the theme's background, light or dark.
QColor readableRed(const QPalette& theme);
/// The chosen row's background: stronger where the keyboard is.
QColor rowTint(const QPalette& theme, bool focused);

}  // namespace payslate::desktop
