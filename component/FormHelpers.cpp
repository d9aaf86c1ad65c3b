// Making helper objects by their registered names.
#include "component/FormHelpers.h"

#include "component/Session.h"
#include "platform/common/ObjectRegistry.h"

namespace payslate {

void FormHelpers::create(Session& session) {
  objCommonGen = common::createObjectAs<common::CommonGen>(common::CommonGen::registeredName);
  objCommonDB = common::createObjectAs<common::CommonDB>(common::CommonDB::registeredName);
  objCommonDB->adocon(session.adocon());
}

}  // namespace payslate
