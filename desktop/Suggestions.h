// What the text typed into a combo may become: a list below it that the user may step into or ignore.
#pragma once

#include <QKeyEvent>
#include <QListView>
#include <QStringListModel>
#include <functional>
#include <vector>

#include "platform/ui/ComboBox.h"

namespace payslate::desktop {

/// Never has the keyboard: typing goes on in the combo. Down steps into the list, Enter then picks; as long
/// as the user has not stepped in, Enter, Tab and Escape mean what they mean without it.
class Suggestions : public QListView {
 public:
  Suggestions(const ui::ComboBox& combo, QWidget& below, std::function<void(int)> pick);
  /// Shows the items that start with the text, then those that contain it, whatever the case of letters.
  void offer(const QString& typed);
  /// True when the key was meant for the list.
  bool takesKey(const QKeyEvent& event);

 private:
  void pickRow(int row);
  bool step(int rows);

  const ui::ComboBox& combo_;
  QWidget& below_;
  std::function<void(int)> pick_;
  QStringListModel texts_;
  std::vector<int> indexes_;  // of the items, by row
};

}  // namespace payslate::desktop
