// Filling the list of an entry's journal.
#include "browser/FrmEntryJournal.h"

#include "component/BasPaySlate.h"
#include "persistence/JournalLines.h"
#include "persistence/JournalReader.h"

namespace payslate {

FrmEntryJournal::FrmEntryJournal(BasPaySlate& bas)
    : Form("FrmEntryJournal", bas.desktop(), "Journal"), bas_(bas) {
  arrange();
  Load = [this] { desktop().HelpFile = bas_.helpFile(); };
  cmdClose.Click = [this] { Unload(); };
}

void FrmEntryJournal::arrange() {
  using namespace ui::layout;
  lvwJournal.AccessibleName = "Journal of the entry";
  cmdClose.Cancel = true;
  setFirstFocus(lvwJournal);
  setLayout(column({item(lvwJournal).growing(), row({item(lblOlder), space(), item(cmdClose)})}));
}

void FrmEntryJournal::shows(std::int32_t entryId, const std::string& number) {
  for (const JournalLine& line : journalLines(bas_, readChain(bas_, entryId).rows))
    lvwJournal.addRow({line.row.time, line.user, line.done + ": " + line.what, line.before, line.after});
  Caption = "Journal of the entry " + number;
  lblOlder.Visible = lvwJournal.rowCount() == 0;
}

}  // namespace payslate
