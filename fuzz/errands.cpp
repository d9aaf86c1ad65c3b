// Fuzz target: an errand, read and performed by the scripted clerk on a toy form.
#include <memory>
#include <sstream>
#include <string>

#include "fuzz/Target.h"
#include "platform/scripted/ErrandRunner.h"
#include "platform/scripted/ScriptedDesktop.h"
#include "platform/scripted/ScriptedHands.h"
#include "tests/scripted/ToyForms.h"

using namespace payslate;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // What every errand that shows something begins with.
  const std::string start =
      "session company 1 user 1 interface 1 year 2006 date 2006/04/30 title Toy\nshow\n";
  const std::string text = fuzz::textOf(data, size);
  const bool complete = text.starts_with('#');
  try {
    const scripted::Errand errand = scripted::Errand::parse(complete ? text : start + text, "fuzz.errand");
    scripted::ScriptedDesktop desktop;
    scripted::ScriptedHands hands;
    scripted::ToyStage stage;
    std::shared_ptr<scripted::ToyForm> form;
    stage.answer = {{std::int64_t{1}, std::string("x"), basic::Null{}, basic::Date(46142.5)}};
    stage.shows = [&] {
      form = std::make_shared<scripted::ToyForm>(desktop);
      form->load();
      form->Show();
    };
    std::ostringstream transcript;
    scripted::ErrandRunner runner(errand, hands, stage, transcript);
    desktop.setClerk(&runner);
    const bool done = runner.run();
    fuzz::require(done == !runner.failure(), "an errand that is not done says where it failed");
    fuzz::require(done || !runner.failure()->found.empty(), "a failure says what was found");
    fuzz::require(!form || !form->isLoaded(), "no form stays open behind an errand");
  } catch (const scripted::ErrandSyntaxError& error) {
    fuzz::require(error.line > 0 && !error.problem.empty() && !error.remedy.empty(),
                  "a syntax error tells all");
  }
  return 0;
}
