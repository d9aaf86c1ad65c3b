// Observable properties of forms and controls.
#pragma once

#include <functional>
#include <utility>

namespace payslate::ui {

/// Reads as `control.Text()`, writes as `control.Text = "…"`. A write that does not differ does nothing;
/// any other tells its owner after the value is in place.
template <class T>
class Property {
 public:
  using Changed = std::function<void()>;

  explicit Property(T initial = {}, Changed changed = {})
      : value_(std::move(initial)), changed_(std::move(changed)) {}
  Property(const Property&) = delete;
  Property& operator=(const Property&) = delete;

  const T& operator()() const { return value_; }

  Property& operator=(T value) {
    if (value == value_) return *this;
    value_ = std::move(value);
    if (changed_) changed_();
    return *this;
  }

  /// The value itself, to be changed without telling anybody: for the owner alone.
  T& stored() { return value_; }

 private:
  T value_;
  Changed changed_;
};

}  // namespace payslate::ui
