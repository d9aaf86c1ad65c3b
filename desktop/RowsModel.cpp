// The rows of a list or grid for Qt.
#include "desktop/RowsModel.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

#include "desktop/Texts.h"
#include "platform/ui/ListView.h"

namespace payslate::desktop {

namespace {

int alignmentOf(ui::Alignment alignment) {
  constexpr Qt::Alignment sides[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
  return static_cast<int>(sides[static_cast<int>(alignment)] | Qt::AlignVCenter);
}

const ui::ListView* withCheckBoxes(const ui::RowControl& rows) {
  const auto* list = dynamic_cast<const ui::ListView*>(&rows);
  return list != nullptr && list->hasCheckBoxes() ? list : nullptr;
}

}  // namespace

RowsModel::RowsModel(const ui::RowControl& rows, QObject* parent)
    : QAbstractTableModel(parent), rows_(rows), checked_(withCheckBoxes(rows)) {
  reset();
}

int RowsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rowCount_;
}

int RowsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columnCount_;
}

int RowsModel::leadingColumn() const {
  for (int column = 0; column < columnCount_; ++column)
    if (rows_.columns()[static_cast<std::size_t>(column)].width > 0) return column;
  return 0;
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
  // The control may be ahead of what Qt knows, inside the call that changes it.
  if (!index.isValid() || index.row() >= rows_.rowCount() ||
      index.column() >= static_cast<int>(rows_.columns().size()))
    return {};
  switch (role) {
    case Qt::DisplayRole:
      return toQt(rows_.cellText(index.row(), index.column()));
    case Qt::TextAlignmentRole:
      return alignmentOf(rows_.columns()[static_cast<std::size_t>(index.column())].alignment);
    case Qt::ForegroundRole:
      return rows_.isRed(index.row()) ? QVariant(red_) : QVariant();
    case Qt::CheckStateRole:
      if (checked_ == nullptr || index.column() != leadingColumn()) return {};
      return checked_->isChecked(index.row()) ? Qt::Checked : Qt::Unchecked;
    default:
      return {};
  }
}

QVariant RowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section >= static_cast<int>(rows_.columns().size())) return {};
  const ui::ColumnLayout& column = rows_.columns()[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole) return toQt(column.header).trimmed();
  if (role == Qt::TextAlignmentRole) return alignmentOf(column.alignment);
  return {};
}

Qt::ItemFlags RowsModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
  if (checked_ != nullptr && index.column() == leadingColumn()) flags |= Qt::ItemIsUserCheckable;
  return flags;
}

void RowsModel::reset() {
  beginResetModel();
  rowCount_ = rows_.rowCount();
  columnCount_ = static_cast<int>(rows_.columns().size());
  endResetModel();
}

void RowsModel::follow(const ui::Change& change) {
  switch (change.aspect) {
    case ui::Aspect::RowsReset:
    case ui::Aspect::Columns:
      return reset();
    case ui::Aspect::RowInserted:
      beginInsertRows({}, change.row, change.row);
      ++rowCount_;
      return endInsertRows();
    case ui::Aspect::RowRemoved:
      beginRemoveRows({}, change.row, change.row);
      --rowCount_;
      return endRemoveRows();
    case ui::Aspect::RowChanged:
      if (columnCount_ > 0) emit dataChanged(index(change.row, 0), index(change.row, columnCount_ - 1));
      return;
    default:
      return;
  }
}

void RowsDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  option->state &= ~QStyle::State_HasFocus;  // Rows are chosen, not cells.
  const QVariant colour = index.data(Qt::ForegroundRole);
  if (colour.isValid()) option->palette.setColor(QPalette::HighlightedText, colour.value<QColor>());
}

QRect RowsDelegate::checkRect(const QAbstractItemView& view, const QModelIndex& index) const {
  QStyleOptionViewItem option;
  option.initFrom(&view);
  option.rect = view.visualRect(index);
  option.widget = &view;
  initStyleOption(&option, index);
  return view.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &view);
}

bool RowsDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
  const QRect cell = view->visualRect(index);
  if (index.isValid() && sizeHint(option, index).width() > cell.width())
    QToolTip::showText(event->globalPos(), index.data().toString().toHtmlEscaped(), view->viewport(), cell);
  else
    QToolTip::hideText();
  return true;
}

}  // namespace payslate::desktop
