// Texts between the model (UTF-8, counted in code points) and Qt (UTF-16).
#pragma once

#include <QString>
#include <string>

namespace payslate::desktop {

QString toQt(const std::string& text);
std::string fromQt(const QString& text);

/// UTF-16 units of the first `characters` code points of `text`; all of them when it is shorter.
int unitsOf(const QString& text, int characters);
/// Code points in the first `units` UTF-16 units of `text`.
int charactersOf(const QString& text, int units);

/// A label's or button's caption as a screen reader says it: without mnemonic mark and closing colon.
QString spokenName(const std::string& caption);
/// A caption of which Qt shows every & as it stands.
QString withoutMarks(const QString& caption);

}  // namespace payslate::desktop
