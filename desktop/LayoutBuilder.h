// Turns a form's layout tree into Qt layouts.
#pragma once

#include <QBoxLayout>
#include <vector>

#include "platform/ui/Layout.h"

class QGridLayout;

namespace payslate::desktop {

class FormWindow;
class View;

class LayoutBuilder {
 public:
  explicit LayoutBuilder(FormWindow& window) : window_(window) {}
  void build(const ui::Layout& root);

 private:
  using Nodes = std::vector<ui::Layout>;

  void add(QBoxLayout& box, const ui::Layout& node);
  void addItem(QBoxLayout& box, const ui::Layout& node);
  void addField(QBoxLayout& box, const ui::Layout& field);
  void addContent(QBoxLayout& box, const ui::Layout& field);
  void addGroup(QBoxLayout& box, const ui::Layout& node);
  void addPages(QBoxLayout& box, const ui::Layout& node);
  QWidget* labelOf(const ui::Layout& field);
  QLayout* rowOf(const Nodes& nodes);
  QLayout* columnOf(const ui::Layout& node);
  QLayout* gridOf(const Nodes& lines);
  bool addGridLine(QGridLayout& grid, int line, const ui::Layout& node);

  FormWindow& window_;
  std::vector<std::pair<View*, const ui::Control*>> labels_;  // label, what it names
};

}  // namespace payslate::desktop
