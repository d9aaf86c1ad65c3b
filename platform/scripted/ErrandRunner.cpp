// Performing instructions as forms, message boxes and menus come and go.
#include "platform/scripted/ErrandRunner.h"

#include <algorithm>
#include <exception>
#include <ostream>

#include "platform/basic/Numbers.h"
#include "platform/scripted/Seeing.h"
#include "platform/ui/Form.h"

namespace payslate::scripted {

using namespace payslate::ui;

namespace {

// What happens behind the scenes: it may stand anywhere, also while a message box or a menu is open.
bool isBehind(Verb verb) {
  switch (verb) {
    case Verb::Database:
    case Verb::Sql:
    case Verb::Session:
    case Verb::ExpectSql:
    case Verb::ExpectError:
    case Verb::ExpectSent:
      return true;
    default:
      return false;
  }
}

bool isExpectation(Verb verb) {
  return verb >= Verb::ExpectProperty;
}

std::string menuCaptions(const PopupMenu& menu) {
  std::string line;
  for (const MenuItem* item : menu.items()) {
    if (!item->Visible() || item->isSeparator()) continue;
    line += (line.empty() ? "" : ", ") + inQuotes(withoutMnemonic(item->Caption()));
    if (!item->Enabled()) line += " (disabled)";
  }
  return line.empty() ? "an empty menu" : "a menu of " + line;
}

}  // namespace

ErrandRunner::ErrandRunner(const Errand& errand, Hands& hands, Stage& stage, std::ostream& transcript)
    : errand_(&errand),
      stage_(&stage),
      transcript_(&transcript),
      doing_(hands, [this] { return failed(); }) {}

bool ErrandRunner::run() {
  while (!failed() && !atEnd()) performNext();
  if (!failed()) checkShowError(nullptr);
  return !failed();
}

void ErrandRunner::attend(Form& form) {
  forms_.push_back(&form);
  while (form.isLoaded()) {
    if (!failed() && atEnd())
      fail(nullptr, "no form open at the end of the errand", form.Name() + " is open");
    if (failed())
      form.abandon();
    else
      performNext();
  }
  forms_.pop_back();
}

// The next instruction when it is about what just opened; what happens behind the scenes goes before it.
const Instruction* ErrandRunner::nextAbout(Verb verb, const std::string& what) {
  while (!failed() && !atEnd() && isBehind(upcoming().verb)) performNext();
  if (failed()) return nullptr;
  if (atEnd()) {
    fail(nullptr, "the end of the errand", what);
    return nullptr;
  }
  const Instruction& next = upcoming();
  if (next.verb != verb) {
    fail(&next, next.written, what);
    return nullptr;
  }
  ++next_;
  write(next);
  return &next;
}

Answer ErrandRunner::answer(const Message& message) {
  const Answer nonCommittal = message.asksYesNo() ? Answer::No : Answer::Ok;
  const Instruction* named = nextAbout(Verb::AnswerMessage, described(message));
  if (named == nullptr) return nonCommittal;
  guarded(*named, [&] { seeMessage(*named, message); });
  return failed() ? nonCommittal : named->answer;
}

MenuItem* ErrandRunner::pick(Form&, const PopupMenu& menu) {
  const Instruction* named = nextAbout(Verb::PickMenu, menuCaptions(menu));
  if (named == nullptr || named->none) return nullptr;
  const auto isNamed = [&](const MenuItem* item) {
    return basic::Trim(withoutMnemonic(item->Caption())) == basic::Trim(named->text) && item->canBePicked();
  };
  const auto item = std::find_if(menu.items().begin(), menu.items().end(), isNamed);
  if (item != menu.items().end()) return *item;
  fail(named, "an enabled item " + inQuotes(named->text), menuCaptions(menu));
  return nullptr;
}

void ErrandRunner::performNext() {
  const Instruction& next = upcoming();
  ++next_;
  write(next);
  guarded(next, [&] {
    checkShowError(&next);
    if (failed()) return;
    if (isBehind(next.verb))
      performBehind(next);
    else
      performHere(next);
  });
}

void ErrandRunner::performBehind(const Instruction& instruction) {
  switch (instruction.verb) {
    case Verb::Database:
      return stage_->runFile(instruction.target);
    case Verb::Sql:
      return stage_->runStatement(instruction.text);
    case Verb::Session:
      hasSession_ = true;
      return stage_->setSession(instruction.session);
    case Verb::ExpectSql:
      return seeRows(instruction.table, stage_->rows(instruction.text));
    case Verb::ExpectError:
      return checkError(instruction);
    default: {
      const long sent = stage_->takeSentCount();
      if (sent != instruction.number)
        throw Mismatch(std::to_string(instruction.number) + " statements sent", std::to_string(sent));
    }
  }
}

void ErrandRunner::performHere(const Instruction& instruction) {
  switch (instruction.verb) {
    case Verb::Show:
      return show(instruction);
    case Verb::ExpectForm:
    case Verb::ExpectNoForm:
      return checkForm(instruction);
    case Verb::AnswerMessage:
      throw Mismatch(instruction.written, "no message box is open");
    case Verb::PickMenu:
      throw Mismatch(instruction.written, "no menu is open");
    default:
      break;
  }
  if (forms_.empty()) throw Mismatch("a form in front", "no form is open");
  Form& front = *forms_.back();
  if (isExpectation(instruction.verb))
    see(instruction, front);
  else
    doing_.perform(instruction, front);
}

void ErrandRunner::show(const Instruction& instruction) {
  if (!forms_.empty()) throw Mismatch("no form open before show", forms_.back()->Name() + " is open");
  if (!hasSession_) throw Mismatch("a session line before show", "none");
  shown_ = &instruction;
  showError_.reset();
  showErrorSeen_ = false;
  try {
    stage_->show();
  } catch (const std::exception& error) {
    showError_ = error.what();
  }
}

// An error of the last show that the errand does not ask for fails it, at the show.
void ErrandRunner::checkShowError(const Instruction* instruction) {
  if (!showError_ || showErrorSeen_) return;
  if (instruction != nullptr && (isBehind(instruction->verb) || instruction->verb == Verb::ExpectNoForm))
    return;
  fail(shown_, "show returns without an error", "it raised " + inQuotes(*showError_));
}

void ErrandRunner::checkError(const Instruction& instruction) {
  if (!showError_)
    throw Mismatch(
        "an error that contains " + inQuotes(instruction.text),
        shown_ == nullptr || !forms_.empty() ? "no show has returned" : "the last show raised none");
  if (showError_->find(instruction.text) == std::string::npos)
    throw Mismatch("an error that contains " + inQuotes(instruction.text), inQuotes(*showError_));
  showErrorSeen_ = true;
}

void ErrandRunner::checkForm(const Instruction& instruction) const {
  const std::string front = forms_.empty() ? "no form is open" : forms_.back()->Name();
  if (instruction.verb == Verb::ExpectNoForm) {
    if (!forms_.empty()) throw Mismatch("no form", front);
  } else if (forms_.empty() || !basic::sameName(instruction.target, front)) {
    throw Mismatch(instruction.target + " in front", front);
  }
}

void ErrandRunner::guarded(const Instruction& instruction, const std::function<void()>& action) {
  try {
    action();
  } catch (const Mismatch& mismatch) {
    fail(&instruction, mismatch.expected(), mismatch.found);
  } catch (const std::exception& error) {
    fail(&instruction, "the instruction succeeds", error.what());
  }
}

void ErrandRunner::fail(const Instruction* instruction, const std::string& expected,
                        const std::string& found) {
  if (failed()) return;
  const auto& all = errand_->instructions;
  if (instruction == nullptr && !all.empty()) instruction = &all.back();
  failure_ = {errand_->file, instruction == nullptr ? 0 : instruction->line,
              instruction == nullptr ? std::string() : instruction->written, expected, found};
}

void ErrandRunner::write(const Instruction& instruction) {
  *transcript_ << instruction.line << '\t' << std::string(2 * forms_.size(), ' ') << instruction.written
               << '\n';
}

}  // namespace payslate::scripted
