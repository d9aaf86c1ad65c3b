// Entering a month for everybody, by the entry form's own rules.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "component/BasPaySlate.h"
#include "component/FormHelpers.h"
#include "entry/frmpayslate.h"
#include "months/MonthDesktop.h"
#include "months/MonthReport.h"
#include "persistence/EntryStore.h"

namespace payslate {

/// Chooses one employee after the other on an entry form that nobody sees, and stores what OK would store, up
/// to 50 of them in one transaction. Where such a transaction fails each is stored alone, as a clerk does.
class MonthRun {
 public:
  /// The session says company, user, month and connection; its links are loaded here. It must outlive the
  /// run, and is changed by it.
  MonthRun(BasPaySlate& bas, MonthOptions options);

  /// MonthRefused for what stands in everybody's way; ado::Error when the employees cannot be read.
  MonthReport enter(const MonthProgress& progress);

 private:
  /// A month that waits to be stored.
  struct Waiting {
    std::size_t line;
    NewEntry month;
  };

  void refuseForAll();
  void listEmployees();
  void addMissing();
  [[nodiscard]] std::optional<std::set<std::int32_t>> inDepartments();
  void refuseWithoutNumbers();
  void chooseEmployee(std::size_t index);
  [[nodiscard]] bool isLoaded(MonthLine& line);
  void settle(std::size_t index, OfferedMonth month);
  void storeWaiting();
  void storeAlone(const Waiting& waiting);
  /// What an error means for the employee. One that lost the connection ends the run.
  void fail(MonthLine& line, const std::exception& error);

  BasPaySlate& bas_;
  MonthOptions options_;
  MonthDesktop desktop_;
  FormHelpers helpers_;
  std::shared_ptr<frmpayslate> form_;
  MonthReport report_;
  std::vector<int> comboIndex_;  ///< Of each line; -1 for somebody who is not offered.
  std::vector<Waiting> waiting_;
  bool connectionLost_ = false;
};

}  // namespace payslate
