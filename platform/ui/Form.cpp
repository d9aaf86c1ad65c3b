// A form's life, its focus and its mnemonics.
#include "platform/ui/Form.h"

#include <algorithm>
#include <cctype>

#include "platform/basic/Numbers.h"
#include "platform/ui/Label.h"
#include "platform/ui/TabControl.h"

namespace payslate::ui {

namespace {

// Sets a flag for a scope, whatever way it is left.
class FlagScope {
 public:
  explicit FlagScope(bool& flag) : flag_(flag) { flag_ = true; }
  ~FlagScope() { flag_ = false; }
  FlagScope(const FlagScope&) = delete;
  FlagScope& operator=(const FlagScope&) = delete;

 private:
  bool& flag_;
};

int mnemonicOf(const std::string& caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[i + 1] != '&') return std::toupper(static_cast<unsigned char>(caption[i + 1]));
    ++i;
  }
  return KeyCode::None;
}

}  // namespace

Form::Form(std::string name, Desktop& desktop, std::string caption)
    : Caption(std::move(caption), [this] { tell(FormAspect::Caption); }),
      MousePointer(Pointer::Default, [this] { tell(FormAspect::Pointer); }),
      name_(std::move(name)),
      desktop_(&desktop),
      input_(*this) {}

void Form::load() {
  loaded_ = true;
  try {
    Load.raise();
  } catch (...) {
    loaded_ = false;
    throw;
  }
}

void Form::activate() {
  input_.guarded([this] { Activate.raise(); });
}

void Form::settleFirstFocus() {
  if (active_ != nullptr && canHaveFocus(*active_)) return;
  active_ = nullptr;
  if (firstFocus_ != nullptr && canHaveFocus(*firstFocus_)) active_ = firstFocus_;
  for (const Place& place : places_) {
    if (active_ != nullptr) break;
    if (canHaveFocus(*place.control)) active_ = place.control;
  }
}

void Form::Show() {
  if (!loaded_ || visible_) return;
  const auto keep = shared_from_this();
  struct Front {
    explicit Front(Form& shown) : form(shown) {
      form.desktop_->shown_.push_back(&form);
      form.visible_ = true;
    }
    ~Front() {
      form.desktop_->shown_.pop_back();
      form.visible_ = false;
      form.desktop_->forgetKeys(form);
    }
    Form& form;
  };
  {
    const Front front(*this);
    activate();
    settleFirstFocus();
    if (active_ != nullptr) input_.guarded([this] { active_->GotFocus.raise(); });
    if (loaded_) desktop_->showModal(*this);
  }
  if (Form* next = desktop_->activeForm()) next->activate();
}

bool Form::Unload(UnloadMode mode) {
  if (!loaded_) return true;
  if (unloading_) return false;
  const auto keep = shared_from_this();
  const FlagScope unloading(unloading_);
  bool cancel = false;
  QueryUnload.raise(cancel, mode);
  if (cancel) return false;
  abandon();
  return true;
}

void Form::abandon() {
  if (!loaded_) return;
  const auto keep = shared_from_this();
  loaded_ = false;
  tell(FormAspect::Unloaded);
}

Control* Form::control(std::string_view name) const {
  const auto same = [name](const Control* one) { return basic::sameName(one->Name(), name); };
  const auto found = std::find_if(controls_.begin(), controls_.end(), same);
  return found == controls_.end() ? nullptr : *found;
}

void Form::setLayout(Layout layout) {
  layout_ = std::move(layout);
  places_.clear();
  labelled_.clear();
  std::vector<std::pair<Control*, int>> inside;
  collectPlaces(layout_, inside);
  std::stable_partition(places_.begin(), places_.end(), [](const Place& place) { return !place.tabLater; });
}

void Form::collectPlaces(const Layout& node, std::vector<std::pair<Control*, int>>& inside) {
  using Kind = Layout::Kind;
  if (node.label != nullptr) {
    places_.push_back({node.label, inside});
    const Layout* first = &node;
    while (first->kind != Kind::Item && !first->children.empty()) first = &first->children.front();
    if (first->control != nullptr) labelled_.emplace_back(node.label, first->control);
  }
  if (node.control != nullptr) places_.push_back({node.control, inside, node.tabLater});
  const bool encloses = node.kind == Kind::Group || node.kind == Kind::Pages;
  int page = 0;
  for (const Layout& child : node.children) {
    if (encloses) inside.emplace_back(node.control, node.kind == Kind::Pages ? page : -1);
    collectPlaces(child, inside);
    if (encloses) inside.pop_back();
    ++page;
  }
}

const Form::Place* Form::placeOf(const Control& control) const {
  const auto same = [&control](const Place& place) { return place.control == &control; };
  const auto found = std::find_if(places_.begin(), places_.end(), same);
  return found == places_.end() ? nullptr : &*found;
}

bool Form::isShown(const Control& control) const {
  const Place* place = placeOf(control);
  if (place == nullptr || !control.Visible()) return false;
  return std::all_of(place->inside.begin(), place->inside.end(), [](const auto& around) {
    const auto* tab = dynamic_cast<const TabControl*>(around.first);
    return around.first->Visible() && (tab == nullptr || tab->Tab() == around.second);
  });
}

bool Form::canHaveFocus(const Control& control) const {
  if (!control.acceptsFocus() || !control.Enabled() || !isShown(control)) return false;
  const Place* place = placeOf(control);
  return std::all_of(place->inside.begin(), place->inside.end(),
                     [](const auto& around) { return around.first->Enabled(); });
}

bool Form::moveFocus(Control& target) {
  if (&target == active_) return true;
  if (!visible_) {
    active_ = &target;
    return true;
  }
  if (validating_ || !canHaveFocus(target)) return false;
  if (active_ != nullptr) {
    bool refused = false;
    const FlagScope validating(validating_);
    active_->Validate.raise(refused);
    if (refused || !loaded_) return false;
  }
  Control* left = std::exchange(active_, &target);
  tell(FormAspect::Focus);
  if (left != nullptr) left->LostFocus.raise();
  if (loaded_ && active_ == &target) target.GotFocus.raise();
  return active_ == &target;
}

void Form::focusNext(bool backwards) {
  const auto count = static_cast<int>(places_.size());
  const Place* current = active_ == nullptr ? nullptr : placeOf(*active_);
  const int from = current == nullptr ? -1 : static_cast<int>(current - places_.data());
  for (int step = 1; step <= count; ++step) {
    const int index = ((backwards ? from - step : from + step) % count + count) % count;
    Control& next = *places_[static_cast<std::size_t>(index)].control;
    if (!canHaveFocus(next)) continue;
    moveFocus(next);
    return;
  }
}

// A control that is disabled or hidden while it has the focus hands it on, without being validated.
void Form::focusMayMove(const Control& control) {
  if (!visible_ || active_ != &control || canHaveFocus(control)) return;
  const Place* current = placeOf(control);
  const auto from = static_cast<std::size_t>(current - places_.data());
  for (std::size_t step = 1; step < places_.size(); ++step) {
    Control& next = *places_[(from + step) % places_.size()].control;
    if (!canHaveFocus(next)) continue;
    Control* left = std::exchange(active_, &next);
    tell(FormAspect::Focus);
    left->LostFocus.raise();
    next.GotFocus.raise();
    return;
  }
}

Control* Form::mnemonicTarget(int letter) const {
  for (const Place& place : places_) {
    if (mnemonicOf(place.control->mnemonicCaption()) != letter || !isShown(*place.control)) continue;
    if (place.control->acceptsFocus()) {
      if (canHaveFocus(*place.control)) return place.control;
      continue;
    }
    for (const auto& [label, field] : labelled_)
      if (label == place.control && canHaveFocus(*field)) return field;
  }
  return nullptr;
}

void Form::popUp(const PopupMenu& menu) {
  MenuItem* picked = desktop_->showMenu(*this, menu);
  if (picked != nullptr && picked->canBePicked()) picked->Click.raise();
}

}  // namespace payslate::ui
