// From the host's call to the list of entries.
#include "payslate/clspayslate.h"

#include "browser/FrmMaster.h"
#include "component/BasPaySlate.h"

namespace payslate {

const std::shared_ptr<ado::Connection>& clspayslate::adocon() {
  if (!adocon_) adocon_ = std::make_shared<ado::Connection>();
  return adocon_;
}

void clspayslate::Show() {
  BasPaySlate& session = basPaySlate();  // Made before the form that refers to it, so that it outlives it.
  static ui::FormSlot<FrmMaster> browseForm([] { return std::make_shared<FrmMaster>(basPaySlate()); });

  session.intUserID = intUserID;
  session.intCompanyID = intCompanyID;
  session.intInterfaceID = intInterfaceID;
  session.MsgboxTitle = MsgboxTitle;
  session.adocon(adocon());
  session.ProcessDate = ProcessDate;
  session.intfinancialid = intfinancialid;
  session.desktop(*desktop_);
  desktop_->MessageTitle = MsgboxTitle;
  browseForm.get().Show();
}

}  // namespace payslate
