// From the host's call to the list of entries.
#include "payslate/clspayslate.h"

#include <atomic>
#include <stdexcept>

#include "browser/FrmMaster.h"
#include "component/BasPaySlate.h"
#include "months/EntryExplaining.h"
#include "months/MonthReviewer.h"
#include "months/MonthRun.h"

namespace payslate {

namespace {

/// Session and forms are the process's, whatever instance shows them: two lists would share them.
class Showing {
 public:
  Showing() {
    if (shown_.exchange(true))
      throw std::logic_error("The monthly entry is shown already: show it again when its list is closed.");
  }
  ~Showing() { shown_ = false; }
  Showing(const Showing&) = delete;
  Showing& operator=(const Showing&) = delete;

 private:
  static std::atomic<bool> shown_;
};

std::atomic<bool> Showing::shown_ = false;

}  // namespace

const std::shared_ptr<ado::Connection>& clspayslate::adocon() {
  if (!adocon_) adocon_ = std::make_shared<ado::Connection>();
  return adocon_;
}

void clspayslate::handOver(Session& session) {
  session.intUserID = intUserID;
  session.intCompanyID = intCompanyID;
  session.intInterfaceID = intInterfaceID;
  session.MsgboxTitle = MsgboxTitle;
  session.adocon(adocon());
  session.ProcessDate = ProcessDate;
  session.intfinancialid = intfinancialid;
}

MonthReport clspayslate::EnterMonth(const MonthOptions& options, const MonthProgress& progress) {
  BasPaySlate session;  // Its own: a list may be shown meanwhile.
  handOver(session);
  return MonthRun(session, options).enter(progress);
}

MonthReview clspayslate::ReviewMonth(const ReviewOptions& options) {
  Session session;
  handOver(session);
  return MonthReviewer(session, options).review();
}

ExplainedEntry clspayslate::ExplainEntry(const std::string& number) {
  BasPaySlate session;  // Its own: a list may be shown meanwhile.
  handOver(session);
  return explainEntry(session, number);
}

void clspayslate::Show() {
  if (!desktop_->isOnOwnThread())
    throw std::logic_error(
        "The monthly entry is shown on the thread that made its desktop, and on no other.");
  const Showing showing;
  BasPaySlate& session = basPaySlate();  // Made before the form that refers to it, so that it outlives it.
  static ui::FormSlot<FrmMaster> browseForm([] { return std::make_shared<FrmMaster>(basPaySlate()); });

  handOver(session);
  session.desktop(*desktop_);
  desktop_->MessageTitle = MsgboxTitle;
  browseForm.get().Show();
}

}  // namespace payslate
