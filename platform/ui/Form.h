// Windows with controls, shown modally.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/Control.h"
#include "platform/ui/Desktop.h"
#include "platform/ui/Input.h"
#include "platform/ui/Layout.h"
#include "platform/ui/Menu.h"

namespace payslate::ui {

enum class UnloadMode { CloseBox = 0, Code = 1 };
enum class Pointer { Default = 0, Hourglass = 11 };
enum class FormAspect { Caption, Pointer, Focus, Unloaded };

/// Made, loaded, shown and unloaded through a FormSlot. Controls are members of the derived class and
/// register themselves in the order of their declaration.
class Form : public std::enable_shared_from_this<Form> {
 public:
  Form(std::string name, Desktop& desktop, std::string caption = {});
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] Desktop& desktop() const { return *desktop_; }

  Property<std::string> Caption;
  Property<std::string> Tag;
  Property<Pointer> MousePointer;
  bool KeyPreview = false;  ///< The form sees keys before the focused control does.

  Event<> Load;
  Event<> Activate;                      ///< Shown, or in front again after a form that it showed was closed.
  Event<bool&, UnloadMode> QueryUnload;  ///< true refuses
  Event<int&, int> KeyDown;
  Event<int&> KeyPress;

  /// Runs the load handler, whose error goes to the caller (the form is then not loaded).
  void load();
  [[nodiscard]] bool isLoaded() const { return loaded_; }
  /// Shows the form and returns when it has been unloaded.
  void Show();
  [[nodiscard]] bool isVisible() const { return visible_; }
  /// Closes the form unless its query-unload handler refuses. True when the form is not loaded any more.
  /// Inside the query-unload handler it does nothing: the closing is under way.
  bool Unload(UnloadMode mode = UnloadMode::Code);
  /// Closes the form without asking its query-unload handler: for a user who gives everything up.
  void abandon();

  [[nodiscard]] const std::vector<Control*>& Controls() const { return controls_; }
  /// By name in any letter case; null when there is none.
  [[nodiscard]] Control* control(std::string_view name) const;

  [[nodiscard]] Control* ActiveControl() const { return active_; }
  /// Moves the focus: Validate of the control that has it (which may refuse), lost focus, got focus.
  /// False when the target cannot have the focus or leaving was refused.
  bool moveFocus(Control& target);
  void focusNext(bool backwards);
  [[nodiscard]] bool canHaveFocus(const Control& control) const;
  /// Is it visible with all that it stands in, and on a page in front?
  [[nodiscard]] bool isShown(const Control& control) const;
  /// The control whose mnemonic this upper-case letter is, among those shown; a label stands for its field.
  [[nodiscard]] Control* mnemonicTarget(int letter) const;

  [[nodiscard]] const Layout& layout() const { return layout_; }
  [[nodiscard]] Input& input() { return input_; }

  /// Pops the menu up and runs the picked item's handler.
  void popUp(const PopupMenu& menu);

  void observe(std::function<void(FormAspect)> observer) { observer_ = std::move(observer); }

 protected:
  void setLayout(Layout layout);
  void setFirstFocus(Control& control) { firstFocus_ = &control; }

 private:
  friend class Control;
  struct Place {
    Control* control;
    std::vector<std::pair<Control*, int>> inside;  // frames (page -1) and tab controls with the page
    bool tabLater = false;
  };
  void adopt(Control& control) { controls_.push_back(&control); }
  void collectPlaces(const Layout& node, std::vector<std::pair<Control*, int>>& inside);
  void focusMayMove(const Control& control);
  void settleFirstFocus();
  void activate();
  [[nodiscard]] const Place* placeOf(const Control& control) const;
  void tell(FormAspect aspect) const {
    if (observer_) observer_(aspect);
  }

  std::string name_;
  Desktop* desktop_;
  std::vector<Control*> controls_;
  Layout layout_;
  std::vector<Place> places_;                            // in tab order
  std::vector<std::pair<Control*, Control*>> labelled_;  // label, field
  Control* active_ = nullptr;
  Control* firstFocus_ = nullptr;
  bool loaded_ = false;
  bool visible_ = false;
  bool unloading_ = false;
  bool validating_ = false;
  std::function<void(FormAspect)> observer_;
  Input input_;
};

/// The one instance of a form class: made and loaded on first use, made afresh on the next use after it was
/// unloaded. The last instance lives until then, so it outlives the handler that unloads it.
template <class F>
class FormSlot {
 public:
  explicit FormSlot(std::function<std::shared_ptr<F>()> make) : make_(std::move(make)) {}

  F& get() {
    if (!form_ || !form_->isLoaded()) {
      form_ = make_();
      form_->load();
    }
    return *form_;
  }
  [[nodiscard]] bool isLoaded() const { return form_ && form_->isLoaded(); }

  /// Prepares the instance, which `prepare` gets by reference, and shows it. One that could not be prepared
  /// is not kept, and the error goes to the caller.
  template <class Prepare>
  void show(Prepare prepare) {
    shown(get(), prepare);
  }

  /// The same for an instance that `open` loads itself, where something comes before the load.
  template <class Open>
  void open(Open open) {
    if (!isLoaded()) form_ = make_();
    shown(*form_, open);
  }

 private:
  template <class Prepare>
  void shown(F& form, Prepare& prepare) {
    try {
      prepare(form);
    } catch (...) {
      form.abandon();
      throw;
    }
    form.Show();
  }

  std::function<std::shared_ptr<F>()> make_;
  std::shared_ptr<F> form_;
};

}  // namespace payslate::ui
