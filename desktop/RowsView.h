// Lists and grids: whole rows, chosen by the control alone.
#pragma once

#include <QTableView>

#include "desktop/RowsModel.h"
#include "desktop/View.h"
#include "platform/ui/Grid.h"
#include "platform/ui/ListView.h"

namespace payslate::desktop {

/// A table that wants to show its columns and some rows, and gives the widest text column what room is left.
class RowsTable : public QTableView {
 public:
  RowsTable(const ui::RowControl& rows, QWidget* parent);
  void layColumns();
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] RowsModel& rows() const { return *model_; }
  [[nodiscard]] const RowsDelegate& delegate() const { return *delegate_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] int captionWidthOf(int column) const;
  [[nodiscard]] int columnWidthOf(int column) const;
  [[nodiscard]] int leastWidthOf(int column) const;
  [[nodiscard]] int heightOf(int rows) const;
  void fillRoom();

  const ui::RowControl& control_;
  RowsModel* model_;
  RowsDelegate* delegate_;
};

class RowsView : public View {
 public:
  RowsView(FormWindow& window, ui::RowControl& rows);
  void refresh() override;
  bool filter(QWidget& part, QEvent& event) override;
  void focusChanged(bool came) override;
  [[nodiscard]] QPoint pressPoint() const override;  ///< The header: focus without choosing a row.
  [[nodiscard]] RowsTable* table() const { return table_; }
  /// Where the row's menu belongs, in the viewport.
  [[nodiscard]] QRect rowRect(int row) const;

 protected:
  void follow(const ui::Change& change) override;

 private:
  void showCurrent();
  void showCurrentSoon();
  void showColours(bool focused);
  void press(const QMouseEvent& event);
  bool menuKey();

  ui::RowControl& rows_;
  RowsTable* table_;
  bool currentPending_ = false;
  int topRow_ = -1;  // to be scrolled to the top; -1 when nothing is wanted
};

}  // namespace payslate::desktop
