// Objects created by registered name.
#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace payslate::common {

/// What can be created by name.
class Object {
 public:
  virtual ~Object() = default;
};

using ObjectMaker = std::function<std::unique_ptr<Object>()>;

/// Registers under a name of the form "Module.Class" (any letter case), in place of what had it. A host uses
/// it to hand the component helpers of its own.
void registerObject(const std::string& name, ObjectMaker make);

/// std::runtime_error that names the class when nothing is registered under the name.
std::unique_ptr<Object> createObject(const std::string& name);

/// Creates and checks that the object offers the interface.
template <class Interface>
std::unique_ptr<Interface> createObjectAs(const std::string& name) {
  std::unique_ptr<Object> made = createObject(name);
  auto* wanted = dynamic_cast<Interface*>(made.get());
  if (wanted == nullptr)
    throw std::runtime_error("The object registered as " + name + " lacks the interface it needs.");
  static_cast<void>(made.release());
  return std::unique_ptr<Interface>(wanted);
}

}  // namespace payslate::common
