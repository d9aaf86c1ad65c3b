// Killing runs that enter a month for everybody, and letting the next run complete it.
#include <chrono>
#include <iterator>
#include <random>
#include <sstream>
#include <thread>

#include "host/ComponentStage.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"
#include "platform/scripted/ScriptedDesktop.h"
#include "tools/attack/Attacks.h"
#include "tools/attack/MarkedMonth.h"
#include "tools/attack/Processes.h"

namespace payslate::attack {

namespace {

constexpr int kills = 200;
constexpr int patience = 60'000;  // Milliseconds
constexpr char storing = 's';
constexpr char done = 'd';

/// Everybody goes into one transaction, unless another clerk enters one of them before it begins: then each
/// is stored alone.
enum class Way { Together, Alone };

void enterOneMeanwhile(ado::Connection& connection) {
  ado::Recordset live = connection.Execute(
      "select count(*) from pempmonthlyentryheader where emhCompanyID = 1 and emhempID = 103 and emhDate = "
      "'2026/04/30'");
  if (basic::CLng(live.Fields(0).Value()) != 0) return;
  connection.Execute(
      "insert into pempmonthlyentryheader (emhCompanyID, emhID, emhNo, emhDate, emhempID, emhbasicpay, "
      "emhstartdate, emhCancelled) values (1, 900, 'X1', '2026/04/30', 103, 1, '2026/04/01', 0)");
}

// Tells when the last is chosen, and at the end how long it took to store them.
void enterMonth(const std::string& path, Way way, const Worker::Tell& tell) {
  using Clock = std::chrono::steady_clock;
  const auto connection = std::make_shared<ado::Connection>();
  connection->Open(path);
  scripted::ScriptedDesktop desktop;
  clspayslate component = host::makeComponent(
      desktop, connection, {1, 1, 40001, 2026, basic::Date::fromCalendar(2026, 4, 30), ""});
  const auto start = Clock::now();
  auto chosen = start;
  component.EnterMonth({}, [&](std::size_t before, std::size_t total) {
    if (before + 1 < total) return true;
    if (way == Way::Alone) enterOneMeanwhile(*connection);
    tell(storing, {}, "");
    chosen = Clock::now();
    return true;
  });
  const auto microseconds = [](Clock::duration time) {
    return std::chrono::duration_cast<std::chrono::microseconds>(time).count();
  };
  tell(done, {microseconds(Clock::now() - start), microseconds(Clock::now() - chosen)}, "");
}

Note hear(Worker& worker, char kind) {
  while (const std::optional<Note> note = worker.note(patience)) {
    if (note->kind == '!') throw Broken(std::string("A run could not go on: ") + note->text);
    if (note->kind == kind) return *note;
  }
  throw Broken("A run does not come to its end.");
}

/// What a run that nobody kills stores, and its times.
struct Undisturbed {
  EntryRows before;
  EntryRows after;
  std::int64_t microseconds = 0;
  std::int64_t microsecondsOfStoring = 0;
};

Note complete(const std::string& path, Way way) {
  Worker worker([&](const Worker::Tell& tell) { enterMonth(path, way, tell); });
  return hear(worker, done);
}

Undisturbed undisturbed(const Plan& plan, Way way) {
  const std::string path = freshDatabase(plan, "months.db");
  Undisturbed month;
  month.before = MarkedMonth(path).rows();
  const Note note = complete(path, way);
  month.microseconds = note.numbers[0];
  month.microsecondsOfStoring = note.numbers[1];
  month.after = MarkedMonth(path).rows();
  return month;
}

struct Figures {
  int nothing = 0;
  int some = 0;
  int all = 0;
};

void killOnce(const std::string& path, Way way, const Undisturbed& month, std::mt19937& chance,
              Figures& figures) {
  {
    Worker victim([&](const Worker::Tell& tell) { enterMonth(path, way, tell); });
    const bool whileStoring = chance() % 4 != 0;
    if (whileStoring) hear(victim, storing);
    const std::int64_t most = (whileStoring ? month.microsecondsOfStoring : month.microseconds) * 5 / 4;
    std::this_thread::sleep_for(std::chrono::microseconds(static_cast<std::int64_t>(chance()) % most));
    victim.kill();
    victim.ended();
  }
  const auto rowsFound = [&] {
    MarkedMonth found(path);
    found.holdings();
    found.requireJournal();
    return found.rows();
  };
  const EntryRows killed = rowsFound();
  for (const auto& [id, rows] : killed)
    if (const auto whole = month.after.find(id); whole == month.after.end() || whole->second != rows)
      throw Broken("Entry " + std::to_string(id) + " is not the one of an undisturbed run.");
  const std::size_t stored = killed.size() - month.before.size();
  const bool all = killed.size() == month.after.size();
  ++(stored == 0 ? figures.nothing : all ? figures.all : figures.some);
  if (way == Way::Together && stored != 0 && !all) throw Broken("A part of one transaction is stored.");
  complete(path, way);
  if (rowsFound() != month.after) throw Broken("The next run does not complete the month.");
}

}  // namespace

void killMonthRuns(const Plan& plan) {
  const int count = kills * plan.percent / 100;
  std::mt19937 chance(plan.seed);
  std::ostringstream line;
  line << count << " month runs killed and completed";
  for (const Way way : {Way::Together, Way::Alone}) {
    const Undisturbed month = undisturbed(plan, way);
    Figures figures;
    for (int kill = 0; kill < count / 2; ++kill) {
      try {
        killOnce(freshDatabase(plan, "months.db"), way, month, chance, figures);
      } catch (const std::exception& error) {
        throw Broken("after kill " + std::to_string(kill + 1) +
                     (way == Way::Alone ? ", each alone: " : ": ") + error.what());
      }
    }
    line << (way == Way::Together ? "; in one transaction: " : "; each alone: ") << figures.nothing
         << " before anything was stored, " << figures.some << " amid the "
         << month.after.size() - month.before.size() << " entries, " << figures.all << " behind them";
    if (way == Way::Alone && figures.some < count / 8) throw Broken("too few of the kills met the storing");
  }
  report(line.str());
}

}  // namespace payslate::attack
