// Recording rounds of work, replaying them on the floor, and what the middle one took.
#include "bench/Times.h"

#include <algorithm>
#include <array>
#include <functional>
#include <iomanip>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>

#include "bench/Actions.h"
#include "bench/Floor.h"
#include "bench/PayrollData.h"

namespace payslate::bench {

namespace {

constexpr std::int32_t employees =
    5075;  // With 200,000 headers or more, 20 months of them are 100,000 entries.
constexpr int daysOfLongList = 620;
constexpr int repetitions = 3;  // Of what is measured once for all employees.
constexpr std::size_t employeesOfRound = 25;

constexpr const char* ownNumbers = ", 32,000 own numbers";  // Of interest for saving alone.

/// What is measured, in the table's order, and how it differs from the plain action.
using Row = std::pair<Action, std::string>;

struct Samples {
  std::vector<Duration> component;
  std::vector<Duration> floor;
};

double median(const std::vector<Duration>& durations, Milliseconds Duration::*part) {
  std::vector<double> values;
  values.reserve(durations.size());
  for (const Duration& duration : durations) values.push_back((duration.*part).count());
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// One payroll: the component works a round, which is then replayed from the same state.
class Rounds {
 public:
  Rounds(const std::string& path, const PayrollSize& size, Recorder& recorder)
      : recorder_(recorder), desk_("recorded:" + path, size), floor_(path) {}

  Desk& desk() { return desk_; }
  [[nodiscard]] const std::map<Row, Samples>& samples() const { return samples_; }

  /// `note` goes behind the actions' names; a share is what one of `shares` took of an action.
  void round(const std::string& note, std::size_t shares, const std::function<void(const Meter&)>& work) {
    std::vector<std::pair<Samples*, Recording>> taken;
    work([&](Action action, const std::function<void()>& act) {
      recorder_ = {.on = true, .operations = {}, .commits = {}};
      const auto start = Clock::now();
      act();
      const Milliseconds whole = Clock::now() - start;
      recorder_.on = false;
      Samples& samples = samples_[{action, note}];
      samples.component.push_back(shared({whole - recorder_.commits, recorder_.commits}, shares));
      taken.emplace_back(&samples, std::move(recorder_.operations));
    });
    const std::size_t stored = desk_.tidy();
    for (const auto& [samples, recording] : taken)
      samples->floor.push_back(shared(floor_.replay(recording), shares));
    if (desk_.tidy() != stored)
      throw std::runtime_error("The floor did not store what the component stored.");
  }

 private:
  static Duration shared(const Duration& whole, std::size_t shares) {
    const auto parts = static_cast<double>(shares);
    return {whole.work / parts, whole.commits / parts};
  }

  Recorder& recorder_;
  Desk desk_;
  Floor floor_;
  std::map<Row, Samples> samples_;
};

std::map<Row, Samples> measured(const std::string& path, const PayrollSize& size, Recorder& recorder) {
  Rounds rounds(path, size, recorder);
  Desk& desk = rounds.desk();
  const std::vector<std::int32_t> everybody = chosen(size);
  const auto inRounds = [&](const std::string& note, std::size_t count) {
    for (std::size_t from = 0; from < count; from += employeesOfRound) {
      const auto first = everybody.begin() + static_cast<std::ptrdiff_t>(from);
      rounds.round(note, 1, [&](const Meter& meter) {
        desk.enter({first, first + static_cast<std::ptrdiff_t>(employeesOfRound)}, meter);
      });
    }
  };
  inRounds("", everybody.size());
  std::vector<std::int32_t> entries;
  for (std::size_t i = 0; i < everybody.size(); ++i) entries.push_back(lastEntry(size, i));
  rounds.round("", 1, [&](const Meter& meter) { desk.openStored(entries, meter); });
  for (int i = 0; i < repetitions; ++i)
    rounds.round(", an employee", everybody.size(),
                 [&](const Meter& meter) { desk.enterMonth(everybody, meter); });
  for (int i = 0; i < repetitions; ++i) rounds.round("", 1, [&](const Meter& meter) { desk.review(meter); });
  if (hasFullPrefix(size)) {
    desk.usePrefix(fullPrefix);
    inRounds(ownNumbers, 2 * employeesOfRound);
    desk.usePrefix(presentPrefix);
    desk.listDaysBack(daysOfLongList);
    std::size_t listed = 0;
    desk.list([&](Action, const std::function<void()>& act) { act(); });  // The first reads the file.
    for (int i = 0; i < repetitions; ++i)
      rounds.round(" of 100,000", 1, [&](const Meter& meter) { listed = desk.list(meter); });
    if (listed != 100'000) throw std::runtime_error("The list has " + std::to_string(listed) + " entries.");
  }
  return rounds.samples();
}

std::string number(double value) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(value < 1 ? 3 : value < 100 ? 2 : 0) << value;
  return text.str();
}

/// "1,000,000"
std::string grouped(std::int32_t value) {
  constexpr std::size_t digits = 3;
  std::string text = std::to_string(value);
  for (std::size_t at = text.size(); at > digits; at -= digits) text.insert(at - digits, ",");
  return text;
}

void publishRow(const Row& row, const std::map<std::int32_t, Samples>& sizes, std::ostream& out) {
  const Samples& fewest = sizes.begin()->second;
  const auto growth = [&](std::vector<Duration> Samples::*side, const Samples& now) {
    return &now == &fewest
               ? ""
               : number(median(now.*side, &Duration::work) / median(fewest.*side, &Duration::work));
  };
  for (const auto& [headers, samples] : sizes) {
    const double time = median(samples.component, &Duration::work);
    const double floor = median(samples.floor, &Duration::work);
    const double commit = median(samples.component, &Duration::commits);
    const double commitOfFloor = median(samples.floor, &Duration::commits);
    const std::string cells[] = {nameOf(row.first) + row.second,
                                 grouped(headers),
                                 number(time),
                                 number(floor),
                                 number(time / floor),
                                 growth(&Samples::component, samples),
                                 growth(&Samples::floor, samples),
                                 commit > 0 ? number(commit) : "",
                                 commit > 0 ? number(commitOfFloor) : ""};
    for (const std::string& cell : cells) out << "| " << cell << ' ';
    out << "|\n";
  }
}

}  // namespace

void publishTimes(const std::vector<std::int32_t>& headers, const std::string& folder, Recorder& recorder,
                  std::ostream& out) {
  std::map<Row, std::map<std::int32_t, Samples>> table;
  for (const std::int32_t count : headers) {
    const PayrollSize size{count, employees};
    const std::string path = folder + "/payroll-" + std::to_string(count) + ".db";
    std::cerr << "Payroll of " << grouped(count) << " headers …\n";
    makePayroll(path, size);
    for (auto& [row, samples] : measured(path, size, recorder)) table[row][count] = std::move(samples);
  }
  out << "| action | headers | ms | floor, ms | ms/floor | growth | growth of floor | commit, ms | its floor |\n"
         "|---|--:|--:|--:|--:|--:|--:|--:|--:|\n";
  for (const auto& [row, sizes] : table)
    if (row.second != ownNumbers || row.first == Action::Save) publishRow(row, sizes, out);
}

}  // namespace payslate::bench
