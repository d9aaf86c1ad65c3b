// A clerk, a stage and a screen brought together.
#include "host/Performance.h"

#include <filesystem>
#include <ostream>

#include "host/ComponentStage.h"
#include "platform/scripted/ErrandRunner.h"

namespace payslate::host {

bool perform(const scripted::Errand& errand, const SharedConnection& connection, Screen& screen,
             std::ostream& out) {
  ComponentStage stage(screen.desktop(), connection,
                       std::filesystem::path(errand.file).parent_path().string());
  scripted::ErrandRunner clerk(errand, screen.hands(), stage, out);
  screen.setClerk(&clerk);
  const bool held = clerk.run();
  screen.setClerk(nullptr);
  if (const auto& failure = clerk.failure()) {
    out << failure->file << ':' << failure->line << ": " << failure->instruction
        << "\n  expected: " << failure->expected << "\n  found:    " << failure->found << '\n';
  }
  return held;
}

}  // namespace payslate::host
