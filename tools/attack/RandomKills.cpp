// Killing clerks at random moments.
#include <algorithm>
#include <array>
#include <chrono>
#include <deque>
#include <random>
#include <sstream>
#include <thread>

#include "tools/attack/Attacks.h"
#include "tools/attack/MarkedMonth.h"
#include "tools/attack/Processes.h"

namespace payslate::attack {

namespace {

constexpr int kills = 1000;
constexpr int killsOfADatabase = 100;
constexpr int patience = 20'000;  // Milliseconds
constexpr int highestMark = 100'000;
constexpr char begun = 'b';
constexpr char done = 'd';

using Random = std::mt19937;

// Saves, rewrites and cancels until he is killed; now and then he closes the database and opens it again.
void workOn(const std::string& path, const std::vector<std::int32_t>& employees, unsigned seed,
            const Worker::Tell& tell) {
  Random chance(seed);
  std::unique_ptr<MarkedMonth> month;
  Holdings holdings;
  for (;;) {
    if (!month || chance() % 8 == 0) {
      month.reset();
      month = std::make_unique<MarkedMonth>(path);
      holdings = month->holdings();
    }
    const std::int32_t employee = employees[chance() % employees.size()];
    Holding& holding = holdings[employee];
    Deed deed{Kind::Enter, employee, static_cast<std::int32_t>(1 + chance() % highestMark)};
    if (holding.live != 0) deed.kind = chance() % 3 == 0 ? Kind::Cancel : Kind::Rewrite;
    if (deed.kind == Kind::Cancel) deed.mark = holding.live;
    const auto start = std::chrono::steady_clock::now();
    tell(begun, {static_cast<int>(deed.kind), deed.employee, deed.mark, 0}, "");
    month->perform(deed);
    const auto taken = std::chrono::steady_clock::now() - start;
    tell(done, {0, 0, 0, std::chrono::duration_cast<std::chrono::microseconds>(taken).count()}, "");
    holding = holding.after(deed);
  }
}

class Clerk {
 public:
  explicit Clerk(std::vector<std::int32_t> employees) : employees_(std::move(employees)) {}

  std::int64_t microseconds = 2000;  // That a deed takes, lately.
  std::optional<Deed> open;          // Begun, and not told as stored.

  void start(const std::string& path, unsigned seed) {
    if (!worker_) worker_.emplace([&](const Worker::Tell& tell) { workOn(path, employees_, seed, tell); });
  }
  // False when nothing more is told in that time.
  bool hear(int milliseconds) {
    const std::optional<Note> note = worker_->note(milliseconds);
    if (!note) return false;
    if (note->kind == '!') throw Broken(std::string("A clerk could not go on: ") + note->text);
    if (note->kind == begun) {
      open = Deed{static_cast<Kind>(note->numbers[0]), static_cast<std::int32_t>(note->numbers[1]),
                  static_cast<std::int32_t>(note->numbers[2])};
      states_.push_back(states_.back());
      Holding& holding = states_.back()[open->employee];
      holding = holding.after(*open);
    } else {
      open.reset();
      stored_ = states_.size() - 1;
      microseconds = (microseconds * 3 + note->numbers[3]) / 4;
    }
    return true;
  }
  void hearBegin(int times) {
    while (times > 0) {
      if (!hear(patience)) throw Broken("A clerk does not begin his work.");
      if (open) --times;
    }
  }
  void kill() {
    worker_->kill();
    worker_->ended();
    while (hear(0)) continue;
    worker_.reset();
  }
  // What the database held at a moment: after all that was told as stored before, and before what is begun
  // now.
  [[nodiscard]] std::size_t told() const { return stored_; }
  void requireHeld(const Holdings& all, std::size_t storedBefore) {
    Holdings held;
    for (const std::int32_t employee : employees_)
      if (const auto found = all.find(employee); found != all.end()) held.insert(*found);
    const auto from = states_.begin() + static_cast<std::ptrdiff_t>(storedBefore);
    const auto state = std::find(from, states_.end(), held);
    if (state == states_.end())
      throw Broken("The database holds neither what was told as stored nor what was begun then.");
    // A living clerk may have gone on behind the moment.
    states_.erase(states_.begin(), worker_ ? states_.begin() + static_cast<std::ptrdiff_t>(stored_) : state);
    if (!worker_) states_.resize(1);
    stored_ = 0;
  }

 private:
  std::vector<std::int32_t> employees_;
  std::optional<Worker> worker_;
  std::vector<Holdings> states_{Holdings()};
  std::size_t stored_ = 0;  // The last of the states that was told as stored.
};

struct Figures {
  int twoAtWork = 0;
  int opening = 0;
  int between = 0;
  std::array<int, 3> during{};
  std::size_t entries = 0;
};

void killOnce(std::deque<Clerk>& clerks, const std::string& path, Random& chance, Figures& figures) {
  for (Clerk& clerk : clerks) clerk.start(path, static_cast<unsigned>(chance()));
  Clerk& victim = clerks[chance() % clerks.size()];
  const bool opening = chance() % 8 == 0;
  if (!opening) victim.hearBegin(1 + static_cast<int>(chance() % 3));
  const std::int64_t most = victim.microseconds * 5 / 4 + 1;
  std::this_thread::sleep_for(std::chrono::microseconds(static_cast<std::int64_t>(chance()) % most));
  victim.kill();
  if (victim.open) ++figures.during[static_cast<std::size_t>(victim.open->kind)];
  if (!victim.open) ++(opening ? figures.opening : figures.between);
  if (clerks.size() > 1) ++figures.twoAtWork;
  victim.open.reset();

  std::vector<std::size_t> told;
  for (Clerk& clerk : clerks) {
    if (&clerk != &victim)
      while (clerk.hear(0)) continue;
    told.push_back(clerk.told());
  }
  MarkedMonth month(path);
  const Holdings held = month.holdings();
  if (chance() % 8 == 0) month.requireJournal();  // It reads everything.
  for (const auto& [employee, holding] : held)
    figures.entries += holding.cancelled.size() + (holding.live != 0 ? 1 : 0);
  for (std::size_t i = 0; i < clerks.size(); ++i) {
    if (&clerks[i] != &victim)
      while (clerks[i].hear(0)) continue;
    clerks[i].requireHeld(held, told[i]);
  }
}

}  // namespace

void killAtRandom(const Plan& plan) {
  const int count = kills * plan.percent / 100;
  std::string path;
  Random chance(plan.seed);
  Figures figures;
  std::deque<Clerk> clerks;
  for (int kill = 0; kill < count; ++kill) {
    const bool two = kill >= count / 2;
    if (kill % killsOfADatabase == 0 || (two && clerks.size() == 1)) {
      clerks.clear();
      path = freshDatabase(plan, "kills.db");
      clerks.emplace_back(std::vector<std::int32_t>{101, 102, 103});
      if (two) clerks.emplace_back(std::vector<std::int32_t>{104, 105, 106});
    }
    try {
      killOnce(clerks, path, chance, figures);
    } catch (const std::exception& error) {
      throw Broken("after kill " + std::to_string(kill + 1) + ": " + error.what());
    }
  }
  std::ostringstream line;
  line << count << " kills (" << figures.twoAtWork << " beside a second clerk):";
  for (std::size_t kind = 0; kind < figures.during.size(); ++kind)
    line << ' ' << figures.during[kind] << " in a " << kindNames[kind] << ',';
  line << ' ' << figures.opening << " while opening, " << figures.between << " between; " << figures.entries
       << " times an entry was found whole";
  report(line.str());
  const int inADeed = figures.during[0] + figures.during[1] + figures.during[2];
  if (inADeed < count / 3) throw Broken("too few of the kills met a deed");
}

}  // namespace payslate::attack
