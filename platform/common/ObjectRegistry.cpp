// Objects created by registered name.
#include "platform/common/ObjectRegistry.h"

#include <map>

#include "platform/basic/Numbers.h"
#include "platform/common/clsCommonDB.h"
#include "platform/common/clsCommonGen.h"

namespace payslate::common {

namespace {

std::map<std::string, ObjectMaker>& makers() {
  static std::map<std::string, ObjectMaker> registered{
      {basic::lower(CommonDB::registeredName), [] { return std::make_unique<clsCommonDB>(); }},
      {basic::lower(CommonGen::registeredName), [] { return std::make_unique<clsCommonGen>(); }},
  };
  return registered;
}

}  // namespace

void registerObject(const std::string& name, ObjectMaker make) {
  makers()[basic::lower(name)] = std::move(make);
}

std::unique_ptr<Object> createObject(const std::string& name) {
  const auto found = makers().find(basic::lower(name));
  if (found == makers().end()) throw std::runtime_error("No class is registered as " + name + ".");
  return found->second();
}

}  // namespace payslate::common
