// The session of a host's call.
#include "component/Session.h"

namespace payslate {

const std::shared_ptr<ado::Connection>& Session::adocon() {
  if (!adocon_) adocon_ = std::make_shared<ado::Connection>();
  return adocon_;
}

}  // namespace payslate
