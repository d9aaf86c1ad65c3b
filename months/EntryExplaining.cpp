// Opening an entry to explain it.
#include "months/EntryExplaining.h"

#include <memory>
#include <optional>

#include "component/FunctionRights.h"
#include "entry/frmpayslate.h"
#include "months/MonthDesktop.h"
#include "persistence/EntryReader.h"
#include "platform/basic/Numbers.h"

namespace payslate {

ExplainedEntry explainEntry(BasPaySlate& bas, const std::string& number) {
  MonthDesktop desktop;
  bas.desktop(desktop);
  bas.TableLinks.load(*bas.adocon());
  bas.TableLinks.loadJournal(*bas.adocon());
  FunctionRights rights;
  rights.load(bas);
  if (!rights.holds(Right::Edit)) throw ado::Error("This user has no right to open entries (E).", "42000");
  const auto id = entryOfNumber(bas, number);
  if (!id) throw ado::Error("The company has no entry with the number " + number + ".", "02000");
  const EntryRecord header = readHeader(bas, *id);
  const auto form = std::make_shared<frmpayslate>(bas);
  const bool dated = header.date != basic::Date();
  form->openStored({*id, dated ? std::optional(header.date) : std::nullopt, header.cancelled});
  ExplainedEntry explained{number, header.date, basic::Trim(form->cboEmpname.Text()), {}, {}};
  for (const std::string& said : desktop.takeMessages()) explained.remark += said;
  explained.explanations = form->explanations();
  return explained;
}

}  // namespace payslate
