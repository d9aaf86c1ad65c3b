// Combo boxes, with suggestions while the user types.
#pragma once

#include <QAbstractListModel>
#include <QComboBox>
#include <memory>

#include "desktop/LineEditing.h"
#include "platform/ui/ComboBox.h"

namespace payslate::desktop {

class Suggestions;

/// The items of a combo, read where they are.
class ItemsModel : public QAbstractListModel {
 public:
  explicit ItemsModel(const ui::ComboBox& combo, QObject* parent);
  [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  void itemsChanged();

 private:
  const ui::ComboBox& combo_;
  int count_;
};

class ComboView : public View {
 public:
  ComboView(FormWindow& window, ui::ComboBox& combo, const ui::Layout& node);
  ~ComboView() override;
  void refresh() override;
  bool filter(QWidget& part, QEvent& event) override;
  KeyOwner keyOwner(const QKeyEvent& event) override;
  void keyDone() override;
  void leaving() override;
  void focusChanged(bool came) override;
  [[nodiscard]] QWidget* focusTarget() const override;
  [[nodiscard]] QString clippedText() const override;
  [[nodiscard]] QPoint pressPoint() const override;
  [[nodiscard]] QComboBox* box() const { return box_; }

 protected:
  void follow(const ui::Change& change) override;

 private:
  void show();
  void choose(int index);

  ui::ComboBox& combo_;
  QComboBox* box_;
  ItemsModel* items_;
  std::unique_ptr<LineEditing> editing_;  // of a combo whose text can be typed
  std::unique_ptr<Suggestions> suggestions_;
  QString suggestedFor_;
};

}  // namespace payslate::desktop
