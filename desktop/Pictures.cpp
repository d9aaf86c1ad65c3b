// Pictures of the windows that were shown.
#include "desktop/Pictures.h"

#include <QDir>
#include <QWidget>

namespace payslate::desktop {

Pictures::Pictures(QString folder) : folder_(std::move(folder)) {
  if (!QDir().mkpath(folder_)) qCritical("The folder %s cannot be created.", qPrintable(folder_));
}

void Pictures::take(QWidget& window, const QString& name) {
  const QImage image = window.grab().toImage();
  if (last_.value(&window) == image) return;
  last_.insert(&window, image);
  const QString file = QStringLiteral("%1-%2.png").arg(++taken_, 2, 10, QLatin1Char('0')).arg(name);
  if (image.save(QDir(folder_).filePath(file)) || failed_) return;
  failed_ = true;
  qCritical("The picture %s cannot be written to %s.", qPrintable(file), qPrintable(folder_));
}

}  // namespace payslate::desktop
