// The pointer while something takes its time.
#pragma once

#include "platform/ui/Form.h"

namespace payslate {

/// Shows the hourglass over the form for as long as it lives.
class Hourglass {
 public:
  explicit Hourglass(ui::Form& form) : form_(form) { form_.MousePointer = ui::Pointer::Hourglass; }
  ~Hourglass() { form_.MousePointer = ui::Pointer::Default; }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;

 private:
  ui::Form& form_;
};

}  // namespace payslate
