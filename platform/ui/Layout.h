// How a form's controls stand together: rows, columns, groups and pages, for a desktop to draw.
#pragma once

#include <utility>
#include <vector>

namespace payslate::ui {

class Control;
class Frame;
class Label;
class TabControl;

/// A tree. Reading order is the tab order, but for what comes later.
struct Layout {
  enum class Kind {
    Item,    ///< `control`
    Field,   ///< `label`, then `children`; the label names the first control of them
    Row,     ///< `children` side by side
    Column,  ///< `children` one below the other
    Fields,  ///< `children` are fields whose labels and controls share one column edge each
    Group,   ///< `control` is the frame around the one child
    Pages,   ///< `control` is the tab control, a child a page
    Space,   ///< takes the room that is left
  };

  Kind kind = Kind::Space;
  Control* control = nullptr;
  Label* label = nullptr;
  std::vector<Layout> children;
  int grow = 0;           ///< Share of the room that is left over; 0 takes none.
  int characters = 0;     ///< Wanted width in characters; 0 leaves it to the kind of control.
  bool tabLater = false;  ///< An item that is tabbed to behind all others.

  [[nodiscard]] Layout growing(int share = 1) && {
    grow = share;
    return std::move(*this);
  }
  [[nodiscard]] Layout wide(int count) && {
    characters = count;
    return std::move(*this);
  }
  [[nodiscard]] Layout later() && {
    tabLater = true;
    return std::move(*this);
  }
};

namespace layout {
Layout item(Control& control);
Layout field(Label& label, std::vector<Layout> controls);
Layout field(Label& label, Control& control);
Layout row(std::vector<Layout> children);
Layout column(std::vector<Layout> children);
Layout fields(std::vector<Layout> children);
Layout group(Frame& frame, Layout child);
Layout pages(TabControl& tab, std::vector<Layout> children);
Layout space();
}  // namespace layout

}  // namespace payslate::ui
