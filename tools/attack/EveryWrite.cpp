// Ending at every write and every sync of one deed.
#include <csignal>
#include <filesystem>
#include <random>
#include <sstream>

#include "tools/attack/Attacks.h"
#include "tools/attack/CutFiles.h"
#include "tools/attack/MarkedMonth.h"
#include "tools/attack/Processes.h"

namespace payslate::attack {

namespace {

constexpr int powerLosses = 3;  // At every point.
constexpr Deed before{Kind::Enter, 101, 4711};
constexpr Deed behind{Kind::Enter, 105, 555};
constexpr Deed deeds[] = {{Kind::Enter, 102, 815}, {Kind::Rewrite, 101, 1002}, {Kind::Cancel, 101, 4711}};

// All that a clerk's program does for one deed, from opening to closing.
void perform(const std::string& path, const Deed& deed, const Worker::Tell& tell) {
  MarkedMonth month(path);
  month.perform(deed);
  tell('d', {}, "");
}

void fresh(const std::string& base, const std::string& path) {
  for (const char* suffix : {"-wal", "-shm"}) std::filesystem::remove(path + suffix);
  std::filesystem::copy_file(base, path, std::filesystem::copy_options::overwrite_existing);
}

// True when the deed was found stored.
bool cutOnce(const std::string& path, const Deed& deed, const Cut& cut) {
  Worker worker([&](const Worker::Tell& tell) {
    cutAt(cut);
    perform(path, deed, tell);
  });
  bool told = false;
  while (const std::optional<Note> note = worker.note(-1)) {
    if (note->kind == '!') throw Broken(note->text);
    told = true;
  }
  if (worker.ended() != SIGKILL) throw Broken("the process went on");
  MarkedMonth month(path);
  const Holdings held = month.holdings();
  month.requireJournal();
  const Holdings old{{before.employee, Holding().after(before)}};
  Holdings stored = old;
  stored[deed.employee] = stored[deed.employee].after(deed);
  if (held != stored && (told || held != old))
    throw Broken(told ? "what was stored is lost" : "the database holds neither the old nor the new");
  month.perform(behind);
  stored = held;
  stored[behind.employee] = Holding().after(behind);
  if (month.holdings() != stored) throw Broken("the next process does not work on");
  return held != old;
}

}  // namespace

void cutAtEveryWrite(const Plan& plan) {
  const std::string base = freshDatabase(plan, "whole.db");
  const std::string path = plan.folder + "/cut.db";
  MarkedMonth(base).perform(before);
  countFiles();
  std::int64_t step = 0;
  std::mt19937 chance(plan.seed);
  for (const Deed& deed : deeds) {
    fresh(base, path);
    cutAt({});
    perform(path, deed, [](char, const auto&, const std::string&) {});
    const std::int64_t points = countedEvents();
    int kills = 0;
    int losses = 0;
    int stored = 0;
    for (std::int64_t point = 1; point <= points; ++point) {
      for (int variant = 0; variant <= powerLosses; ++variant) {
        ++step;
        const auto seed = static_cast<std::uint32_t>(chance());
        if (plan.only ? step != *plan.only : static_cast<int>(seed % 100) >= plan.percent) continue;
        fresh(base, path);
        try {
          if (cutOnce(path, deed, {point, variant > 0, seed})) ++stored;
        } catch (const std::exception& error) {
          throw Broken("step " + std::to_string(step) + ", write " + std::to_string(point) + " of a " +
                       kindNames[static_cast<int>(deed.kind)] + (variant > 0 ? ", power lost" : "") + ": " +
                       error.what());
        }
        ++(variant > 0 ? losses : kills);
      }
    }
    std::ostringstream line;
    line << "a " << kindNames[static_cast<int>(deed.kind)] << " of " << points
         << " writes and syncs: " << kills << " kills and " << losses
         << " losses of power at them, all whole, " << stored << " with the deed";
    report(line.str());
  }
}

}  // namespace payslate::attack
