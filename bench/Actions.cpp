// Driving the forms without a screen.
#include "bench/Actions.h"

#include <stdexcept>

#include "browser/FrmMaster.h"
#include "entry/frmpayslate.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"

namespace payslate::bench {

std::string nameOf(Action action) {
  switch (action) {
    case Action::List:
      return "list";
    case Action::NewEntry:
      return "new-entry";
    case Action::Choose:
      return "choose";
    case Action::Save:
      return "save";
    case Action::OpenStored:
      return "open-stored";
    case Action::MonthRun:
      return "month-run";
    case Action::Review:
      return "review";
  }
  throw std::logic_error("An action without a name");
}

void Desk::QuietClerk::attend(ui::Form& form) {
  said = form.Name() + " was shown.";
  form.abandon();
}

ui::Answer Desk::QuietClerk::answer(const ui::Message& message) {
  said = message.text;
  return message.asksYesNo() ? ui::Answer::No : ui::Answer::Ok;
}

Desk::Desk(const std::string& connection, const PayrollSize& size) : size_(size) {
  connection_->Open(connection);
  desktop_.setClerk(&clerk_);
  bas_.desktop(desktop_);
  bas_.adocon(connection_);
  bas_.intCompanyID = measuredCompany;
  bas_.intUserID = 1;
  bas_.intInterfaceID = interfaceId;
  bas_.intfinancialid = financialYear;
  bas_.TableLinks.load(*connection_);
  bas_.TableLinks.loadJournal(*connection_);
  tidy();
  usePrefix(presentPrefix);
}

Desk::~Desk() {
  connection_->Close();
}

void Desk::usePrefix(const std::string& prefix) const {
  connection_->Execute("update pPrefix set Prefix = '" + prefix +
                       "' where CompanyID = " + std::to_string(measuredCompany));
}

void Desk::listDaysBack(int days) const {
  connection_->Execute("update psettings set NoOfPreviousDays = " + std::to_string(days) +
                       " where companyID = " + std::to_string(measuredCompany));
}

void Desk::beginSession() {
  bas_.ProcessDate = processDate();
  bas_.strMode = EntryMode::New;
}

void Desk::requireQuiet(Action action) const {
  if (!clerk_.said.empty()) throw std::runtime_error(nameOf(action) + ": " + clerk_.said);
}

std::size_t Desk::list(const Meter& meter) {
  beginSession();
  const auto list = std::make_shared<FrmMaster>(bas_);
  meter(Action::List, [&] { list->load(); });
  requireQuiet(Action::List);
  return static_cast<std::size_t>(list->flexMaster.Rows() - 1);
}

void Desk::enter(const std::vector<std::int32_t>& employees, const Meter& meter) {
  for (const std::int32_t employee : employees) {
    beginSession();
    std::shared_ptr<frmpayslate> form;
    meter(Action::NewEntry, [&] {
      form = std::make_shared<frmpayslate>(bas_);
      form->load();
    });
    int index = 0;
    while (index < form->cboEmpname.ListCount() && form->cboEmpname.ItemData(index) != employee) ++index;
    meter(Action::Choose, [&] { form->input().choose(form->cboEmpname, index); });
    requireQuiet(Action::Choose);
    meter(Action::Save, [&] { form->input().click(form->cmdOk); });
    requireQuiet(Action::Save);
    if (form->isLoaded()) throw std::runtime_error("Employee " + std::to_string(employee) + " is not saved.");
  }
}

void Desk::openStored(const std::vector<std::int32_t>& entries, const Meter& meter) {
  for (const std::int32_t entry : entries) {
    beginSession();
    std::shared_ptr<frmpayslate> form;
    meter(Action::OpenStored, [&] {
      form = std::make_shared<frmpayslate>(bas_);
      form->openStored({entry, processDate().plusMonths(-1)});
    });
    requireQuiet(Action::OpenStored);
    if (!form->monthIsWhole()) throw std::runtime_error(form->whyNotWhole());
  }
}

clspayslate Desk::component(basic::Date processDate) {
  clspayslate component(desktop_);
  component.adocon(connection_);
  component.ProcessDate = processDate;
  component.intUserID = 1;
  component.intInterfaceID = interfaceId;
  component.intCompanyID = measuredCompany;
  component.intfinancialid = financialYear;
  return component;
}

void Desk::enterMonth(const std::vector<std::int32_t>& employees, const Meter& meter) {
  clspayslate host = component(processDate());
  MonthOptions options;
  options.employees = employees;
  MonthReport report;
  meter(Action::MonthRun, [&] { report = host.EnterMonth(options); });
  for (const MonthLine& line : report.lines)
    if (line.result != MonthResult::Stored)
      throw std::runtime_error(line.name + ": " + (line.reasons.empty() ? "not stored" : line.reasons[0]));
}

std::size_t Desk::review(const Meter& meter) {
  clspayslate host = component(processDate().plusMonths(-1));
  MonthReview review;
  meter(Action::Review, [&] { review = host.ReviewMonth({}); });
  return review.employees;
}

std::size_t Desk::tidy() const {
  const std::string added = " > " + std::to_string(size_.headers);
  ado::Recordset count =
      connection_->Execute("select count(*) from pempmonthlyentryheader where emhID" + added);
  const auto entries = static_cast<std::size_t>(basic::CLng(count.Fields(0).Value()));
  count.Close();
  connection_->BeginTrans();
  for (const char* idOf : {"pempmonthlyentryheader where emhID", "pemployeeallowancedetail where eadid",
                           "pemployeeDeductiondetail where eddid", "pempfacilitydeductiondetail where efdid",
                           "pEmployeeCurrentDetails where ecdPaySlateID", "pEntryJournal where ejEntryID"})
    connection_->Execute(std::string("delete from ") + idOf + added);
  connection_->CommitTrans();
  return entries;
}

}  // namespace payslate::bench
