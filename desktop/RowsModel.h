// The rows of a list or grid, read where they are, and how they are painted.
#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QStyledItemDelegate>

#include "platform/ui/RowControl.h"

class QAbstractItemView;

namespace payslate::ui {
class ListView;
}

namespace payslate::desktop {

class RowsModel : public QAbstractTableModel {
 public:
  RowsModel(const ui::RowControl& rows, QObject* parent);
  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

  /// Tells Qt what the control has just told.
  void follow(const ui::Change& change);
  void setRed(const QColor& red) { red_ = red; }
  /// The first column that is shown; it holds the check boxes.
  [[nodiscard]] int leadingColumn() const;

 private:
  void reset();

  const ui::RowControl& rows_;
  const ui::ListView* checked_;  // null without check boxes
  int rowCount_ = 0;             // what Qt has been told
  int columnCount_ = 0;
  QColor red_;
};

class RowsDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  [[nodiscard]] QRect checkRect(const QAbstractItemView& view, const QModelIndex& index) const;
  /// A tool tip for what is too long for its cell.
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace payslate::desktop
