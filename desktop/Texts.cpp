// Converting texts and counting their characters.
#include "desktop/Texts.h"

#include <QList>

#include "platform/ui/Menu.h"

namespace payslate::desktop {

QString toQt(const std::string& text) {
  return QString::fromStdString(text);
}

std::string fromQt(const QString& text) {
  return text.toStdString();
}

int unitsOf(const QString& text, int characters) {
  qsizetype unit = 0;
  for (int counted = 0; counted < characters && unit < text.size(); ++counted)
    unit += text.at(unit).isHighSurrogate() && unit + 1 < text.size() ? 2 : 1;
  return static_cast<int>(unit);
}

int charactersOf(const QString& text, int units) {
  return static_cast<int>(text.left(units).toUcs4().size());
}

QString spokenName(const std::string& caption) {
  QString name = toQt(ui::withoutMnemonic(caption)).trimmed();
  while (name.endsWith(QLatin1Char(':'))) name = name.chopped(1).trimmed();
  return name;
}

QString withoutMarks(const QString& caption) {
  QString plain = caption;
  return plain.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace payslate::desktop
