// Event slots of forms and controls.
#pragma once

#include <functional>
#include <utility>

namespace payslate::ui {

/// One handler a slot; assigning replaces it. Raising without a handler does nothing.
template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  Event& operator=(Handler handler) {
    handler_ = std::move(handler);
    return *this;
  }

  void raise(Args... args) const {
    if (!handler_) return;
    const Handler running = handler_;  // The handler may replace itself or unload its form.
    running(args...);
  }

 private:
  Handler handler_;
};

}  // namespace payslate::ui
