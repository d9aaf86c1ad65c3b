// Rows, columns, column edges, groups and pages.
#include "desktop/LayoutBuilder.h"

#include <QGridLayout>
#include <algorithm>

#include "desktop/FormWindow.h"
#include "desktop/LabelViews.h"
#include "desktop/TabView.h"
#include "platform/ui/RowControl.h"
#include "platform/ui/TextPage.h"

namespace payslate::desktop {

using ui::Layout;
using Kind = Layout::Kind;

namespace {

constexpr int fieldGap = 2;  // characters between two fields side by side

bool isTall(const Layout& node) {
  if (node.kind == Kind::Pages || dynamic_cast<const ui::RowControl*>(node.control) != nullptr ||
      dynamic_cast<const ui::TextPage*>(node.control) != nullptr)
    return true;
  return std::any_of(node.children.begin(), node.children.end(), isTall);
}

// A line of fields whose labels and controls may stand under those of other lines; room at its end is no
// matter.
bool isFieldLine(const Layout& node) {
  const auto isField = [](const Layout& one) { return one.kind == Kind::Field && !isTall(one); };
  if (node.kind != Kind::Row || node.children.empty()) return isField(node);
  const auto end = node.children.end() - (node.children.back().kind == Kind::Space ? 1 : 0);
  return end != node.children.begin() && std::all_of(node.children.begin(), end, isField);
}

// Lines of fields below each other share their column edges also where nobody asked for it.
bool areFieldLines(const Layout& column) {
  const auto isRow = [](const Layout& child) { return child.kind == Kind::Row; };
  return column.children.size() > 1 &&
         std::all_of(column.children.begin(), column.children.end(), isFieldLine) &&
         std::any_of(column.children.begin(), column.children.end(), isRow);
}

// Lists and pages take the room, asked or not.
int stretchOf(const Layout& node) {
  return isTall(node) ? std::max(1, node.grow) : node.grow;
}

// Where nothing wants the room that is left, it stays behind what is there, so that this keeps its place.
void fillUp(QBoxLayout& box) {
  const bool across = box.direction() == QBoxLayout::LeftToRight;
  if (!box.expandingDirections().testFlag(across ? Qt::Horizontal : Qt::Vertical)) box.addStretch();
}

const ui::Control* firstControl(const Layout& field) {
  const Layout* first = &field;
  while (first->kind != Kind::Item && !first->children.empty()) first = &first->children.front();
  return first->control;
}

}  // namespace

void LayoutBuilder::build(const Layout& root) {
  auto* top = new QVBoxLayout(&window_);
  add(*top, root);
  fillUp(*top);
  for (const auto& [label, field] : labels_) {
    View* named = field == nullptr ? nullptr : window_.view(*field);
    if (named != nullptr) static_cast<LabelView*>(label)->setField(*named);
  }
}

void LayoutBuilder::add(QBoxLayout& box, const Layout& node) {
  const bool across = box.direction() == QBoxLayout::LeftToRight;
  switch (node.kind) {
    case Kind::Item:
      return addItem(box, node);
    case Kind::Field:
      if (across || isTall(node)) return addField(box, node);
      return box.addLayout(rowOf({node}), stretchOf(node));
    case Kind::Row:
      return box.addLayout(rowOf(node.children), stretchOf(node));
    case Kind::Column:
    case Kind::Fields:
      return box.addLayout(columnOf(node), stretchOf(node));
    case Kind::Group:
      return addGroup(box, node);
    case Kind::Pages:
      return addPages(box, node);
    case Kind::Space:
      return box.addStretch(std::max(1, node.grow));
  }
}

void LayoutBuilder::addItem(QBoxLayout& box, const Layout& node) {
  QWidget* widget = window_.addView(*node.control, node).widget();
  const bool across = box.direction() == QBoxLayout::LeftToRight;
  const bool wide = (widget->sizePolicy().horizontalPolicy() & QSizePolicy::ExpandFlag) != 0;
  box.addWidget(widget, stretchOf(node), across || wide ? Qt::Alignment() : Qt::AlignLeft);
}

QWidget* LayoutBuilder::labelOf(const Layout& field) {
  View& label = window_.addView(*field.label, {});
  labels_.emplace_back(&label, firstControl(field));
  return label.widget();
}

// A list has its label above, anything else has it to its left.
void LayoutBuilder::addField(QBoxLayout& box, const Layout& field) {
  QBoxLayout* pair = isTall(field) ? static_cast<QBoxLayout*>(new QVBoxLayout) : new QHBoxLayout;
  if (!box.isEmpty() && box.direction() == QBoxLayout::LeftToRight)
    box.addSpacing(widthOf(window_, fieldGap));
  pair->addWidget(labelOf(field));
  addContent(*pair, field);
  box.addLayout(pair, stretchOf(field));
}

void LayoutBuilder::addContent(QBoxLayout& box, const Layout& field) {
  for (Layout child : field.children) {
    const bool alone = field.children.size() == 1;
    if (alone && child.grow == 0) child.grow = field.grow;
    if (alone && child.characters == 0) child.characters = field.characters;
    add(box, child);
  }
}

QLayout* LayoutBuilder::rowOf(const Nodes& nodes) {
  auto* row = new QHBoxLayout;
  for (const Layout& node : nodes) add(*row, node);
  fillUp(*row);
  return row;
}

QLayout* LayoutBuilder::columnOf(const Layout& node) {
  if (node.kind == Kind::Fields || areFieldLines(node)) return gridOf(node.children);
  auto* column = new QVBoxLayout;
  for (const Layout& child : node.children) add(*column, child);
  fillUp(*column);
  return column;
}

// Labels stand in the even columns, what they name in the odd ones.
bool LayoutBuilder::addGridLine(QGridLayout& grid, int line, const Layout& node) {
  const bool several = node.kind == Kind::Row && isFieldLine(node);
  const bool startsWithField =
      node.kind == Kind::Field || several ||
      (node.kind == Kind::Row && !node.children.empty() && node.children.front().kind == Kind::Field);
  if (!startsWithField || isTall(node)) return false;
  const std::size_t room = several && node.children.back().kind == Kind::Space ? 1 : 0;
  const std::size_t count = several ? node.children.size() - room : 1;
  for (std::size_t i = 0; i < count; ++i) {
    const Layout& field = node.kind == Kind::Field ? node : node.children[i];
    const int column = static_cast<int>(2 * i);
    QWidget* label = labelOf(field);
    if (column > 0) label->setContentsMargins(widthOf(window_, fieldGap), 0, 0, 0);
    grid.addWidget(label, line, column);
    auto* content = new QHBoxLayout;
    addContent(*content, field);
    if (!several && node.kind == Kind::Row)
      for (std::size_t rest = 1; rest < node.children.size(); ++rest) add(*content, node.children[rest]);
    fillUp(*content);
    grid.addLayout(content, line, column + 1, 1, i + 1 < count ? 1 : -1);
  }
  return true;
}

QLayout* LayoutBuilder::gridOf(const Nodes& lines) {
  auto* grid = new QGridLayout;
  int line = 0;
  for (const Layout& node : lines) {
    if (!addGridLine(*grid, line, node)) {
      auto* box = new QVBoxLayout;
      add(*box, node);
      grid->addLayout(box, line, 0, 1, -1);
      if (isTall(node)) grid->setRowStretch(line, std::max(1, node.grow));
    }
    ++line;
  }
  // The last column takes what is left, so the edges stay where they are.
  grid->setColumnStretch(grid->columnCount(), 1);
  return grid;
}

void LayoutBuilder::addGroup(QBoxLayout& box, const Layout& node) {
  auto& frame = static_cast<FrameView&>(window_.addView(*node.control, node));
  auto* inside = new QVBoxLayout(frame.box());
  for (const Layout& child : node.children) add(*inside, child);
  const bool across = box.direction() == QBoxLayout::LeftToRight;
  const bool keepsWidth = across && node.grow == 0;
  frame.box()->setSizePolicy(keepsWidth ? QSizePolicy::Maximum : QSizePolicy::Preferred,
                             isTall(node) ? QSizePolicy::Expanding : QSizePolicy::Fixed);
  box.addWidget(frame.box(), stretchOf(node));
}

void LayoutBuilder::addPages(QBoxLayout& box, const Layout& node) {
  auto& tabs = static_cast<TabView&>(window_.addView(*node.control, node));
  for (const Layout& child : node.children) {
    auto* page = new QWidget;
    auto* inside = new QVBoxLayout(page);
    add(*inside, child);
    fillUp(*inside);
    tabs.addPage(page);
  }
  box.addWidget(tabs.widget(), stretchOf(node));
}

}  // namespace payslate::desktop
