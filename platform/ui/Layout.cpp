// Building layout trees.
#include "platform/ui/Layout.h"

#include "platform/ui/Label.h"
#include "platform/ui/TabControl.h"

namespace payslate::ui::layout {

using Kind = Layout::Kind;

namespace {
Layout node(Kind kind, std::vector<Layout> children) {
  Layout made;
  made.kind = kind;
  made.children = std::move(children);
  return made;
}
}  // namespace

Layout item(Control& control) {
  Layout made;
  made.kind = Kind::Item;
  made.control = &control;
  return made;
}

Layout field(Label& label, std::vector<Layout> controls) {
  Layout made = node(Kind::Field, std::move(controls));
  made.label = &label;
  return made;
}

Layout field(Label& label, Control& control) {
  return field(label, std::vector<Layout>{item(control)});
}

Layout row(std::vector<Layout> children) {
  return node(Kind::Row, std::move(children));
}
Layout column(std::vector<Layout> children) {
  return node(Kind::Column, std::move(children));
}
Layout fields(std::vector<Layout> children) {
  return node(Kind::Fields, std::move(children));
}

Layout group(Frame& frame, Layout child) {
  Layout made = node(Kind::Group, {std::move(child)});
  made.control = &frame;
  return made;
}

Layout pages(TabControl& tab, std::vector<Layout> children) {
  Layout made = node(Kind::Pages, std::move(children));
  made.control = &tab;
  return made;
}

Layout space() {
  return node(Kind::Space, {}).growing();
}

}  // namespace payslate::ui::layout
