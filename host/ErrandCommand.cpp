// payroll-host errand: errands from files.
#include <memory>
#include <ostream>

#include "host/Commands.h"
#include "host/Database.h"
#include "host/Performance.h"
#include "platform/ado/ConnectionString.h"

namespace payslate::host {

namespace {

// All files are read before the first one is performed: a wrong line costs nothing.
std::vector<scripted::Errand> readAll(const std::vector<std::string>& files) {
  std::vector<scripted::Errand> errands;
  errands.reserve(files.size());
  for (const std::string& file : files) errands.push_back(scripted::Errand::read(file));
  return errands;
}

}  // namespace

ExitCode errand(const ErrandWish& wish, const ScreenMaker& makeScreen, std::ostream& out) {
  const auto errands = readAll(wish.files);
  SharedConnection connection = wish.connect ? openDatabase(*wish.connect) : nullptr;
  const std::unique_ptr<Screen> screen = wish.window ? makeScreen() : std::make_unique<ScriptedScreen>();
  for (const scripted::Errand& one : errands) {
    out << "== " << one.file << '\n';
    if (!wish.connect) connection = openDatabase(ado::inMemory);
    if (!perform(one, connection, *screen, out)) return ExitCode::Failed;
  }
  out << (errands.size() == 1 ? "1 errand" : std::to_string(errands.size()) + " errands") << " held.\n";
  return ExitCode::Ok;
}

}  // namespace payslate::host
