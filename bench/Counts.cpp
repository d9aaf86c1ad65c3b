// Counting by SQLite's own counters, and holding the counts against others.
#include "bench/Counts.h"

#include <sqlite3.h>

#include <cstdint>
#include <map>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "bench/Actions.h"
#include "bench/PayrollData.h"
#include "platform/ado/Connection.h"
#include "platform/basic/Numbers.h"

namespace payslate::bench {

namespace {

constexpr std::int32_t employees = 575;
constexpr std::int32_t fewHeaders = 1'000;
constexpr std::int32_t manyHeaders = 10'000;
constexpr double slack = 1.02;

constexpr const char* preamble =
    "# What the component's actions ask of the embedded engine, as payslate-bench --counts counts it. The test\n"
    "# bench.counts fails when statements differ, or when prepares or steps are more by over 2 %. Where a change is\n"
    "# wanted, write this file anew, from the root:\n"
    "#   build/dev/bench/payslate-bench --counts > bench/counts.txt\n"
    "# By how much steps may grow from 1,000 to 10,000 headers is said in bench/Counts.cpp. Prepares are of statements\n"
    "# that ran, steps of SQLite's virtual machine, and both of this version:\n";

/// How many times the steps of 1,000 headers those of 10,000 may be. The list shows more entries where there
/// are more, and the month that is reviewed has entries of 100 employees and of 575.
constexpr std::pair<Action, double> mostGrowth[] = {
    {Action::List, 5},          {Action::NewEntry, 1.05}, {Action::Choose, 1.05}, {Action::Save, 1.05},
    {Action::OpenStored, 1.05}, {Action::MonthRun, 1.05}, {Action::Review, 4},
};

struct Count {
  std::int64_t statements = 0;
  std::int64_t prepares = 0;
  std::int64_t steps = 0;
};

Count& counted() {
  static Count count;  // SQLite's hook for new handles is handed nothing of the program's.
  return count;
}

int whenEnded(unsigned, void*, void* ended, void*) {
  auto* statement = static_cast<sqlite3_stmt*>(ended);
  counted().steps += sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_VM_STEP, 1);
  if (sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_RUN, 0) == 1) ++counted().prepares;
  return 0;
}

/// Every handle that is opened meanwhile is counted.
class Counting {
 public:
  Counting() { sqlite3_auto_extension(function()); }
  ~Counting() { sqlite3_cancel_auto_extension(function()); }
  Counting(const Counting&) = delete;
  Counting& operator=(const Counting&) = delete;

 private:
  static int whenOpened(sqlite3* handle, char**, const void*) {
    return sqlite3_trace_v2(handle, SQLITE_TRACE_PROFILE, whenEnded, nullptr);
  }
  // Declared without its arguments.
  static void (*function())() { return reinterpret_cast<void (*)()>(whenOpened); }
};

using Key = std::pair<std::string, std::int32_t>;  // action, headers

/// Of each action the last, when what can be kept is kept.
std::map<Key, Count> countsOf(const std::string& folder, const PayrollSize& size) {
  const std::string path = folder + "/counts-" + std::to_string(size.headers) + ".db";
  makePayroll(path, size);
  const Counting counting;
  Desk desk(path, size);
  desk.connection().StatementSent = [](std::string_view) { ++counted().statements; };
  std::map<Key, Count> counts;
  const Meter meter = [&](Action action, const std::function<void()>& act) {
    counted() = {};
    act();
    counts[{nameOf(action), size.headers}] = counted();
  };
  constexpr std::ptrdiff_t warming = 4;
  constexpr std::ptrdiff_t ofMonth = 12;
  const std::vector<std::int32_t> everybody = chosen(size);
  desk.listDaysBack(60);
  for (int i = 0; i < 2; ++i) desk.list(meter);
  desk.enter({everybody.begin(), everybody.begin() + warming}, meter);
  desk.openStored({lastEntry(size, 0), lastEntry(size, 1), lastEntry(size, 2)}, meter);
  desk.enterMonth({everybody.begin() + warming, everybody.begin() + ofMonth}, meter);
  desk.review(meter);
  return counts;
}

struct Kept {
  std::string version;
  std::map<Key, Count> counts;
};

Kept read(std::string_view text) {
  Kept kept;
  std::istringstream lines{std::string(text)};
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line.starts_with('#')) continue;
    std::istringstream words(line);
    Key key;
    Count count;
    words >> key.first;
    if (key.first == "sqlite") {
      words >> kept.version;
    } else if (words >> key.second >> count.statements >> count.prepares >> count.steps) {
      kept.counts[key] = count;
    } else {
      throw std::runtime_error("Not a count: " + line);
    }
  }
  return kept;
}

std::string compared(const Kept& kept, const Key& key, const Count& now) {
  const auto before = kept.counts.find(key);
  const std::string where = key.first + ", " + std::to_string(key.second) + " headers: ";
  if (before == kept.counts.end()) return where + "nothing was kept\n";
  const auto sentence = [&](const char* what, std::int64_t was, std::int64_t is) {
    return where + what + " are " + std::to_string(is) + " and were " + std::to_string(was) + "\n";
  };
  const Count& was = before->second;
  std::string faults;
  if (now.statements != was.statements) faults += sentence("statements", was.statements, now.statements);
  if (kept.version != sqlite3_libversion()) return faults;
  const auto isMore = [](std::int64_t is, std::int64_t limit) {
    return static_cast<double>(is) > static_cast<double>(limit) * slack;
  };
  if (isMore(now.prepares, was.prepares)) faults += sentence("prepares", was.prepares, now.prepares);
  if (isMore(now.steps, was.steps)) faults += sentence("steps", was.steps, now.steps);
  return faults;
}

}  // namespace

std::string countedActions(const std::string& folder) {
  std::map<Key, Count> counts = countsOf(folder, {fewHeaders, employees});
  counts.merge(countsOf(folder, {manyHeaders, employees}));
  std::ostringstream text;
  text << preamble << "sqlite " << sqlite3_libversion() << "\n\n# action headers statements prepares steps\n";
  for (const auto& [key, count] : counts)
    text << key.first << ' ' << key.second << ' ' << count.statements << ' ' << count.prepares << ' '
         << count.steps << '\n';
  return text.str();
}

std::string worseThan(std::string_view kept, std::string_view counted) {
  const Kept before = read(kept);
  const Kept now = read(counted);
  std::string faults;
  for (const auto& [key, count] : now.counts) faults += compared(before, key, count);
  for (const auto& [action, most] : mostGrowth) {
    const double growth = static_cast<double>(now.counts.at({nameOf(action), manyHeaders}).steps) /
                          static_cast<double>(now.counts.at({nameOf(action), fewHeaders}).steps);
    if (growth > most)
      faults += nameOf(action) + ": ten times the headers make " + basic::Format(growth, "0.00") +
                " times the steps, which may be " + basic::Format(most, "0.00") + "\n";
  }
  if (before.counts.size() != now.counts.size()) faults += "Other actions were counted than were kept.\n";
  return faults;
}

}  // namespace payslate::bench
