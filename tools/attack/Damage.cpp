// Damaged databases: random damage to copies, and each byte of the stored catalog.
#include <sqlite3.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <deque>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <sstream>
#include <vector>

#include "tools/attack/Attacks.h"
#include "tools/attack/DamagedWork.h"
#include "tools/attack/MarkedMonth.h"
#include "tools/attack/Processes.h"

namespace payslate::attack {

namespace {

constexpr std::size_t pageSize = 4096;
constexpr std::size_t headerSize = 100;
constexpr std::int64_t copies = 500;
constexpr int workers = 2;
constexpr int mostSeconds = 5;           // Of a processor.
constexpr int mostSecondsOnAClock = 20;  // The machine may be busy.

using Random = std::mt19937;

struct Image {
  std::string database;
  std::string wal;
};

std::string contents(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void write(const Image& image, const std::string& path) {
  for (const char* suffix : {"-wal", "-shm"}) std::filesystem::remove(path + suffix);
  std::ofstream(path, std::ios::binary) << image.database;
  if (!image.wal.empty()) std::ofstream(path + "-wal", std::ios::binary) << image.wal;
}

// ---- Damage ----

void overwrite(std::string& bytes, Random& chance, std::size_t from, std::size_t count) {
  for (std::size_t i = from; i < std::min(from + count, bytes.size()); ++i)
    bytes[i] = static_cast<char>(chance());
}
void spray(std::string& bytes, Random& chance, std::size_t below, unsigned most) {
  for (auto left = 1 + chance() % most; left > 0; --left)
    overwrite(bytes, chance, chance() % std::min(below, bytes.size()), 1);
}
std::size_t anyPage(const std::string& bytes, Random& chance) {
  return chance() % (bytes.size() / pageSize) * pageSize;
}

struct Damage {
  const char* name;
  bool overwritesValues;  // With others of their type, unnoticed: rows have no sums.
  void (*inflict)(Image& image, Random& chance);
};

constexpr Damage damages[] = {
    {"bytes overwritten", true,
     [](Image& image, Random& chance) { spray(image.database, chance, image.database.size(), 200); }},
    {"a stretch overwritten", true,
     [](Image& image, Random& chance) {
       overwrite(image.database, chance, chance() % image.database.size(), chance() % pageSize);
     }},
    {"pages zeroed", false,
     [](Image& image, Random& chance) {
       for (auto left = 1 + chance() % 3; left > 0; --left)
         image.database.replace(anyPage(image.database, chance), pageSize, pageSize, '\0');
     }},
    {"pages swapped", false,
     [](Image& image, Random& chance) {
       const auto start = image.database.begin();
       const auto one = static_cast<std::ptrdiff_t>(anyPage(image.database, chance));
       const auto other = static_cast<std::ptrdiff_t>(anyPage(image.database, chance));
       if (one != other) std::swap_ranges(start + one, start + one + pageSize, start + other);
     }},
    {"truncated", false,
     [](Image& image, Random& chance) { image.database.resize(chance() % image.database.size()); }},
    {"truncated at a page", false,
     [](Image& image, Random& chance) { image.database.resize(anyPage(image.database, chance)); }},
    {"header damaged", false,
     [](Image& image, Random& chance) { spray(image.database, chance, headerSize, 8); }},
    {"schema damaged", true,
     [](Image& image, Random& chance) { spray(image.database, chance, 4 * pageSize, 20); }},
    {"WAL damaged", false,
     [](Image& image, Random& chance) { spray(image.wal, chance, image.wal.size(), 20); }},
    {"WAL truncated", false,
     [](Image& image, Random& chance) { image.wal.resize(chance() % image.wal.size()); }},
    {"WAL missing", false, [](Image& image, Random&) { image.wal.clear(); }},
    {"WAL of noise", false,
     [](Image& image, Random& chance) { overwrite(image.wal, chance, 0, image.wal.size()); }},
};

// ---- Work in processes that stay up ----

struct Outcome {
  std::string what;  // A figure is kept for each.
  std::vector<std::string> told;
};
using Step = std::function<Outcome(std::int64_t step, const std::string& path)>;

class Tally {
 public:
  void add(const Note& note) {
    longest_ = std::max(longest_, note.numbers[1]);
    ++outcomes_[note.text];
  }
  void addSentence(std::string sentence) {
    for (char& letter : sentence)
      if (std::isdigit(static_cast<unsigned char>(letter)) != 0) letter = '#';
    ++sentences_[sentence];
  }
  void print(const std::string& what) const {
    std::ostringstream line;
    int all = 0;
    for (const auto& [outcome, count] : outcomes_) all += count;
    line << all << ' ' << what << ':';
    for (const auto& [outcome, count] : outcomes_) line << ' ' << count << ' ' << outcome << ',';
    line << " the slowest in " << longest_ << " ms";
    report(line.str());
    for (const auto& [sentence, count] : sentences_)
      report("  " + std::to_string(count) + " times: " + sentence);
  }

 private:
  std::map<std::string, int> outcomes_;
  std::map<std::string, int> sentences_;
  std::int64_t longest_ = 0;
};

void limitTime() {
  constexpr itimerval none{};
  itimerval processor = none;
  processor.it_value.tv_sec = mostSeconds;
  setitimer(ITIMER_PROF, &processor, nullptr);
  alarm(mostSecondsOnAClock);
}

constexpr int pollMilliseconds = 20;
constexpr char started = 's';
constexpr char sentence = 't';
constexpr char unclear = 'u';
constexpr char ended = 'e';

void takeSteps(const std::vector<std::int64_t>& steps, std::size_t own, const std::string& path,
               const Step& step, const Worker::Tell& tell) {
  for (std::size_t i = own; i < steps.size(); i += workers) {
    tell(started, {steps[i], 0, 0, 0}, "");
    limitTime();
    const auto start = std::chrono::steady_clock::now();
    const Outcome outcome = step(steps[i], path);
    const auto taken = std::chrono::steady_clock::now() - start;
    for (const std::string& told : outcome.told) {
      tell(isClear(told) ? sentence : unclear, {steps[i], 0, 0, 0}, told);
    }
    tell(ended, {steps[i], std::chrono::duration_cast<std::chrono::milliseconds>(taken).count(), 0, 0},
         outcome.what);
  }
}

struct Hand {
  explicit Hand(const std::function<void(const Worker::Tell&)>& work) : worker(work) {}

  Worker worker;
  std::int64_t step = -1;
  bool isEnded = false;
};

void superviseSteps(const Plan& plan, std::vector<std::int64_t> steps, const std::string& what,
                    const Step& step) {
  if (plan.only) steps = {*plan.only};
  std::deque<Hand> running;
  for (std::size_t own = 0; own < workers; ++own) {
    const std::string path = plan.folder + "/work" + std::to_string(own) + ".db";
    running.emplace_back(std::function<void(const Worker::Tell&)>(
        [&, own](const Worker::Tell& tell) { takeSteps(steps, own, path, step, tell); }));
  }
  Tally tally;
  std::map<std::string, std::int64_t> faults;
  const auto isRunning = [](const auto& hand) { return !hand.worker.isOver(); };
  while (std::any_of(running.begin(), running.end(), isRunning)) {
    for (Hand& hand : running) {
      const auto fail = [&](const std::string& why) {
        throw Broken("step " + std::to_string(hand.step) + ": " + why);
      };
      while (const std::optional<Note> note = hand.worker.note(pollMilliseconds)) {
        if (note->kind == '!') fail(note->text);
        if (note->kind == started) hand.step = note->numbers[0];
        if (note->kind == sentence || note->kind == unclear) tally.addSentence(note->text);
        if (note->kind == unclear) faults.emplace(note->text, hand.step);
        if (note->kind == ended) tally.add(*note);
      }
      if (!hand.worker.isOver() || hand.isEnded) continue;
      hand.isEnded = true;
      const int signal = hand.worker.ended();
      if (signal == SIGPROF || signal == SIGALRM) fail("takes too long");
      if (signal != 0) fail("ended by signal " + std::to_string(signal));
    }
  }
  tally.print(what);
  for (const auto& [told, at] : faults) report("  unclear, step " + std::to_string(at) + ": " + told);
  for (const auto& [told, at] : faults)
    throw Broken("step " + std::to_string(at) + ": not a clear sentence: " + told);
}

// ---- The attacks ----

constexpr Deed stored[] = {{Kind::Enter, 101, 11},   {Kind::Enter, 102, 12},  {Kind::Enter, 103, 13},
                           {Kind::Rewrite, 102, 22}, {Kind::Cancel, 103, 13}, {Kind::Enter, 103, 33}};
constexpr std::size_t inDatabase = 3;  // The others are in the WAL alone.

// A database whose WAL holds what was stored last, and the months that it may show when the WAL is lost from
// somewhere.
Image makeImage(const Plan& plan, std::vector<Holdings>& states) {
  const std::string path = freshDatabase(plan, "copies.db");
  {
    MarkedMonth month(path);
    for (std::size_t i = 0; i < inDatabase; ++i) month.perform(stored[i]);
    states.push_back(month.holdings());
  }
  Worker killed([&](const Worker::Tell&) {
    MarkedMonth month(path);
    for (std::size_t i = inDatabase; i < std::size(stored); ++i) month.perform(stored[i]);
    raise(SIGKILL);
  });
  killed.ended();
  for (std::size_t i = inDatabase; i < std::size(stored); ++i) {
    states.push_back(states.back());
    states.back()[stored[i].employee] = states.back()[stored[i].employee].after(stored[i]);
  }
  return {contents(path), contents(path + "-wal")};
}

// All of the full run, and otherwise a part of them, a so many times smaller one where they are cheap and
// many.
std::vector<std::int64_t> sample(std::int64_t count, const Plan& plan, unsigned timesSmaller) {
  Random chance(plan.seed);
  std::vector<std::int64_t> steps;
  for (std::int64_t step = 0; step < count; ++step)
    if (plan.percent == 100 || chance() % (100UL * timesSmaller) < static_cast<unsigned>(plan.percent))
      steps.push_back(step);
  return steps;
}

std::string judge(const std::string& path, const Damage& damage, const std::vector<Holdings>& states,
                  std::vector<std::string>& told) {
  if (!told.empty()) return "told in sentences";
  try {
    const Holdings held = MarkedMonth(path).holdings();
    if (std::find(states.begin(), states.end(), held) != states.end()) return "worked on";
    if (!damage.overwritesValues) throw Broken("the entries are others than were stored");
  } catch (const Broken&) {
    if (!damage.overwritesValues) throw;
  } catch (const std::exception& error) {
    told.emplace_back(error.what());
    return "told in sentences";
  }
  return "with other values";
}

// The pages of the catalog.
std::vector<std::size_t> catalogPages(const std::string& path) {
  sqlite3* database = nullptr;
  std::vector<std::size_t> pages;
  const auto add = [](void* found, int, char** values, char**) {
    static_cast<std::vector<std::size_t>*>(found)->push_back(std::stoul(values[0]) - 1);
    return 0;
  };
  sqlite3_open(path.c_str(), &database);
  sqlite3_exec(database, "SELECT pageno FROM dbstat WHERE name IN ('catalog_objects', 'catalog_columns')",
               add, &pages, nullptr);
  sqlite3_close(database);
  if (pages.empty()) throw Broken("the pages of the catalog cannot be found");
  return pages;
}

}  // namespace

void damageCopies(const Plan& plan) {
  std::vector<Holdings> states;
  const Image whole = makeImage(plan, states);
  superviseSteps(plan, sample(copies, plan, 1), "damaged copies",
                 [&](std::int64_t step, const std::string& path) {
                   Random chance(plan.seed + static_cast<std::uint32_t>(step) * 7919);
                   Image image = whole;
                   const Damage& damage = damages[static_cast<std::size_t>(step) % std::size(damages)];
                   damage.inflict(image, chance);
                   write(image, path + "-damaged");
                   write(image, path);
                   Outcome outcome;
                   outcome.told = workInForms(path);
                   outcome.what = std::string(damage.name) + ' ' + judge(path, damage, states, outcome.told);
                   return outcome;
                 });
}

void damageCatalog(const Plan& plan) {
  constexpr std::int64_t valuesOfAByte = 3;
  constexpr std::int64_t formsOfEvery = 64;
  const std::string base = freshDatabase(plan, "catalog.db");
  {
    MarkedMonth month(base);
    for (const Deed& deed : stored) month.perform(deed);
  }
  const Image whole{contents(base), {}};
  const std::vector<std::size_t> pages = catalogPages(base);
  const auto count = static_cast<std::int64_t>(pages.size() * pageSize) * valuesOfAByte;
  superviseSteps(plan, sample(count, plan, 20), "bytes of the catalog",
                 [&](std::int64_t step, const std::string& path) {
                   Image image = whole;
                   const auto at = static_cast<std::size_t>(step / valuesOfAByte);
                   char& byte = image.database[pages[at / pageSize] * pageSize + at % pageSize];
                   const char values[valuesOfAByte] = {'\0', static_cast<char>(byte ^ 1),
                                                       static_cast<char>(byte ^ 0xA0)};
                   if (byte == values[step % valuesOfAByte]) return Outcome{"as before", {}};
                   byte = values[step % valuesOfAByte];
                   write(image, path);
                   const std::vector<std::string> told =
                       step % formsOfEvery == 0 ? workInForms(path) : workOnEntries(path);
                   return Outcome{told.empty() ? "worked on" : "told in sentences", told};
                 });
}

}  // namespace payslate::attack
