// A clerk's actions on a payroll, one measured step each.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench/PayrollData.h"
#include "component/BasPaySlate.h"
#include "payslate/clspayslate.h"
#include "platform/scripted/ScriptedDesktop.h"
#include "platform/ui/Clerk.h"

namespace payslate::bench {

enum class Action { List, NewEntry, Choose, Save, OpenStored, MonthRun, Review };
std::string nameOf(Action action);

/// Calls what it is given, once, and takes down what that cost.
using Meter = std::function<void(Action, const std::function<void()>& act)>;

/// Works on one payroll. std::runtime_error where a form says anything: then it did not do what is measured.
class Desk {
 public:
  /// `connection` as ado::Connection opens it. What an interrupted run has left there is removed.
  Desk(const std::string& connection, const PayrollSize& size);
  ~Desk();
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  [[nodiscard]] ado::Connection& connection() const { return *connection_; }
  void usePrefix(const std::string& prefix) const;
  void listDaysBack(int days) const;

  /// Loads the list; how many entries it shows.
  std::size_t list(const Meter& meter);
  /// For each employee a new entry is opened, the employee chosen, the month saved.
  void enter(const std::vector<std::int32_t>& employees, const Meter& meter);
  void openStored(const std::vector<std::int32_t>& entries, const Meter& meter);
  void enterMonth(const std::vector<std::int32_t>& employees, const Meter& meter);
  /// Looks at March 2026, of which there are entries, beside February; how many employees it is about.
  std::size_t review(const Meter& meter);
  /// Removes every entry that is not the payroll's own; how many there were.
  std::size_t tidy() const;

 private:
  class QuietClerk : public ui::Clerk {
   public:
    std::string said;
    void attend(ui::Form& form) override;
    ui::Answer answer(const ui::Message& message) override;
    ui::MenuItem* pick(ui::Form&, const ui::PopupMenu&) override { return nullptr; }
  };
  [[nodiscard]] clspayslate component(basic::Date processDate);
  void beginSession();
  void requireQuiet(Action action) const;

  PayrollSize size_;
  std::shared_ptr<ado::Connection> connection_ = std::make_shared<ado::Connection>();
  QuietClerk clerk_;
  scripted::ScriptedDesktop desktop_;
  BasPaySlate bas_;
};

}  // namespace payslate::bench
