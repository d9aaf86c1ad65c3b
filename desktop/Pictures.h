// Pictures of the windows that were shown, in a folder.
#pragma once

#include <QHash>
#include <QImage>
#include <QString>

class QWidget;

namespace payslate::desktop {

class Pictures {
 public:
  /// Creates the folder when there is none. A picture that cannot be written is reported once on stderr.
  explicit Pictures(QString folder);
  /// Writes NN-name.png, NN counting from 01 in the order of taking. A window that looks as in its last
  /// picture is not taken again.
  void take(QWidget& window, const QString& name);
  void forget(const QWidget& window) { last_.remove(&window); }

 private:
  QString folder_;
  int taken_ = 0;
  bool failed_ = false;
  QHash<const QWidget*, QImage> last_;
};

}  // namespace payslate::desktop
