// The window that shows who stored an entry, changed it and cancelled it.
#pragma once

#include <cstdint>
#include <string>

#include "platform/ui/Buttons.h"
#include "platform/ui/Form.h"
#include "platform/ui/Label.h"
#include "platform/ui/ListView.h"

namespace payslate {

class BasPaySlate;

class FrmEntryJournal : public ui::Form {
 public:
  explicit FrmEntryJournal(BasPaySlate& bas);

  ui::ListView lvwJournal{*this,
                          "lvwJournal",
                          {{"Time", 2400},
                           {"User", 2400},
                           {"What", 5400},
                           {"Before", 2600, ui::Alignment::Right},
                           {"After", 2600, ui::Alignment::Right}}};
  ui::Label lblOlder{*this, "lblOlder",
                     "Nothing is written down of this entry: it was stored before there was a journal."};
  ui::CommandButton cmdClose{*this, "cmdClose", "&Close"};

  /// To be said before the window is shown. ado::Error.
  void shows(std::int32_t entryId, const std::string& number);

 private:
  void arrange();

  BasPaySlate& bas_;
};

}  // namespace payslate
