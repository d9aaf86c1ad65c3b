// Lists and grids.
#include "desktop/RowsView.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMouseEvent>
#include <QProxyStyle>
#include <QScrollBar>
#include <algorithm>

#include "desktop/FormWindow.h"
#include "desktop/Keys.h"
#include "desktop/Theme.h"
#include "platform/ui/Form.h"

namespace payslate::desktop {

namespace {
constexpr int twipsPerInch = 1440;
constexpr int rowsShown = 10;
constexpr int fewestRowsShown = 3;
constexpr int widestTable = 110;    // characters that a table asks for; it may become wider
constexpr int narrowestTable = 30;  // characters
constexpr int narrowestText = 16;   // characters of the widest column
constexpr int narrowestCell = 12;   // characters of another one
constexpr int rowPadding = 6;
constexpr int headerPadding = 3;  // characters beside a caption

// Cells with some air: a right-aligned number must not touch the text beside it.
class AiryStyle : public QProxyStyle {
 public:
  [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                const QWidget* widget) const override {
    const int usual = QProxyStyle::pixelMetric(metric, option, widget);
    return metric == PM_FocusFrameHMargin || metric == PM_HeaderMargin ? usual + air : usual;
  }

 private:
  static constexpr int air = 4;
};
}  // namespace

RowsTable::RowsTable(const ui::RowControl& rows, QWidget* parent)
    : QTableView(parent),
      control_(rows),
      model_(new RowsModel(rows, this)),
      delegate_(new RowsDelegate(this)) {
  auto* airy = new AiryStyle;
  airy->setParent(this);
  setStyle(airy);
  horizontalHeader()->setStyle(airy);
  setModel(model_);
  setItemDelegate(delegate_);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setShowGrid(false);
  setWordWrap(false);
  setAlternatingRowColors(true);
  setCornerButtonEnabled(false);
  setHorizontalScrollMode(ScrollPerPixel);
  setFocusPolicy(Qt::TabFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setMinimumSectionSize(1);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionsClickable(false);
  horizontalHeader()->setFocusPolicy(Qt::NoFocus);
  layColumns();
}

int RowsTable::captionWidthOf(int column) const {
  const QString caption = model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
  return horizontalHeader()->fontMetrics().horizontalAdvance(caption) + widthOf(*this, headerPadding);
}

int RowsTable::columnWidthOf(int column) const {
  const ui::ColumnLayout& layout = control_.columns()[static_cast<std::size_t>(column)];
  if (layout.width <= 0) return 0;
  return std::max(layout.width * logicalDpiX() / twipsPerInch, captionWidthOf(column));
}

int RowsTable::leastWidthOf(int column) const {
  return std::min(columnWidthOf(column), std::max(captionWidthOf(column), widthOf(*this, narrowestCell)));
}

void RowsTable::layColumns() {
  for (int column = 0; column < model_->columnCount(); ++column) {
    const int width = columnWidthOf(column);
    setColumnHidden(column, width == 0);
    if (width > 0) setColumnWidth(column, width);
  }
  fillRoom();
  updateGeometry();
}

// The widest column of text takes the room that is left. Where room lacks, the others first give what they do
// not need for their captions and usual amounts.
void RowsTable::fillRoom() {
  int widest = -1;
  int lacking = -viewport()->width();
  for (int column = 0; column < model_->columnCount(); ++column) {
    const int width = columnWidthOf(column);
    lacking += width;
    const bool isText =
        control_.columns()[static_cast<std::size_t>(column)].alignment == ui::Alignment::Left && width > 0;
    if (isText && (widest < 0 || width > columnWidthOf(widest))) widest = column;
  }
  if (widest < 0) return;
  for (int column = model_->columnCount() - 1; column >= 0; --column) {
    const int width = columnWidthOf(column);
    if (column == widest || width == 0) continue;
    const int given = std::clamp(lacking, 0, width - leastWidthOf(column));
    setColumnWidth(column, width - given);
    lacking -= given;
  }
  const int usual = columnWidthOf(widest);
  setColumnWidth(widest, std::max(std::min(usual, widthOf(*this, narrowestText)), usual - lacking));
}

void RowsTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  fillRoom();
}

int RowsTable::heightOf(int rows) const {
  return horizontalHeader()->sizeHint().height() + rows * verticalHeader()->defaultSectionSize() +
         2 * frameWidth();
}

QSize RowsTable::sizeHint() const {
  int width = verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
  for (int column = 0; column < model_->columnCount(); ++column) width += columnWidthOf(column);
  return {std::min(width, widthOf(*this, widestTable)), heightOf(rowsShown)};
}

QSize RowsTable::minimumSizeHint() const {
  return {std::min(sizeHint().width(), widthOf(*this, narrowestTable)), heightOf(fewestRowsShown)};
}

RowsView::RowsView(FormWindow& window, ui::RowControl& rows)
    : View(window, rows, new RowsTable(rows, &window)),
      rows_(rows),
      table_(static_cast<RowsTable*>(widget())) {
  if (const auto* grid = dynamic_cast<const ui::Grid*>(&rows); grid != nullptr && grid->TopRow() > 1)
    topRow_ = grid->TopRow() - 1;
}

void RowsView::refresh() {
  View::refresh();
  showColours(window().hasFocus(rows_));
  showCurrentSoon();
}

void RowsView::follow(const ui::Change& change) {
  table_->rows().follow(change);
  switch (change.aspect) {
    case ui::Aspect::Columns:
      table_->layColumns();
      return showCurrentSoon();
    case ui::Aspect::TopRow:
      topRow_ = change.row;
      return showCurrentSoon();
    case ui::Aspect::RowsReset:
    case ui::Aspect::CurrentCell:
    case ui::Aspect::SelectedRow:
      return showCurrentSoon();
    default:
      return View::follow(change);
  }
}

// A program that walks through all rows moves the current one a hundred thousand times: what counts is where
// it stands when the user looks again.
void RowsView::showCurrentSoon() {
  if (std::exchange(currentPending_, true)) return;
  QMetaObject::invokeMethod(
      table_, [this] { showCurrent(); }, Qt::QueuedConnection);
}

void RowsView::showCurrent() {
  currentPending_ = false;
  const int row = rows_.currentRow();
  if (row < 0 || row >= table_->rows().rowCount()) {
    table_->clearSelection();
    table_->setCurrentIndex({});
    return;
  }
  const int column = std::max({0, table_->columnAt(0), table_->rows().leadingColumn()});
  const QModelIndex current = table_->rows().index(row, column);
  table_->selectionModel()->setCurrentIndex(current,
                                            QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  table_->scrollTo(current);
  if (const int top = std::exchange(topRow_, -1); top >= 0 && top < table_->rows().rowCount())
    table_->scrollTo(table_->rows().index(top, column), QAbstractItemView::PositionAtTop);
}

// A tint instead of the theme's full highlight: red stays red and readable on the chosen row.
void RowsView::showColours(bool focused) {
  const QPalette theme = window().palette();
  QPalette palette = theme;
  palette.setColor(QPalette::Highlight, rowTint(theme, focused));
  palette.setColor(QPalette::HighlightedText, theme.color(QPalette::Text));
  table_->setPalette(palette);
  table_->rows().setRed(readableRed(theme));
}

void RowsView::focusChanged(bool came) {
  showColours(came);
}

bool RowsView::filter(QWidget& part, QEvent& event) {
  const auto type = event.type();
  const bool inRows = &part == table_->viewport();
  if (type == QEvent::ContextMenu &&
      static_cast<QContextMenuEvent&>(event).reason() != QContextMenuEvent::Mouse)
    return menuKey();
  const bool pressed = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
  if (!table_->isEnabled()) return false;
  if (&part == table_->horizontalHeader()->viewport()) {
    if (pressed) window().input().focus(rows_);
    return false;
  }
  if (!inRows) return false;
  if (pressed) press(static_cast<QMouseEvent&>(event));
  return pressed || type == QEvent::MouseButtonRelease || type == QEvent::MouseMove ||
         type == QEvent::ContextMenu;
}

void RowsView::press(const QMouseEvent& event) {
  const QPoint at = event.position().toPoint();
  const int row = table_->rowAt(at.y());
  const bool left = event.button() == Qt::LeftButton;
  if (!left && event.button() != Qt::RightButton) return;
  auto* list = dynamic_cast<ui::ListView*>(&rows_);
  if (left && row >= 0 && list != nullptr && list->hasCheckBoxes()) {
    const QModelIndex index = table_->rows().index(row, table_->rows().leadingColumn());
    if (table_->delegate().checkRect(*table_, index).contains(at))
      return window().input().checkRow(*list, row);
  }
  // Of a double click, the first press has been told already.
  if (left && event.type() == QEvent::MouseButtonDblClick) return window().input().clickAgain(rows_);
  window().input().clickRow(rows_, row, left ? ui::MouseButton::Left : ui::MouseButton::Right,
                            shiftMask(event.modifiers()), at.x(), at.y());
}

// The keyboard's menu key does what the right button does on the current row.
bool RowsView::menuKey() {
  const int row = rows_.currentRow();
  const QPoint at = rowRect(row).center();
  window().setMenuPoint(table_->viewport()->mapToGlobal(at));
  window().input().clickRow(rows_, row, ui::MouseButton::Right, ui::Shift::None, at.x(), at.y());
  return true;
}

QRect RowsView::rowRect(int row) const {
  return row < 0 ? QRect() : table_->visualRect(table_->rows().index(row, table_->rows().leadingColumn()));
}

QPoint RowsView::pressPoint() const {
  QWidget* header = table_->horizontalHeader()->viewport();
  return header->mapTo(table_, header->rect().center());
}

}  // namespace payslate::desktop
