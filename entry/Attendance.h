// Pay period, department and calendar, and the day counts from the attendance sheets.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/basic/Date.h"

namespace payslate {

class BasPaySlate;
struct EntryState;

namespace common {
class CommonDB;
}
namespace ui {
class CommandButton;
class DatePicker;
class TextBox;
}  // namespace ui

/// `start` in the year that brings it nearest to `entryDate`: the pay months are those of one year, and an
/// entry may be of another. One rule for new entries and stored ones, or opening one would move it.
basic::Date nearestYear(basic::Date start, basic::Date entryDate);

struct AttendanceControls {
  const ui::DatePicker& dtpattdate;
  ui::TextBox& txtTotalDays;
  ui::TextBox& txtworkingdays;
  ui::TextBox& txtNoPresent;
  ui::TextBox& txtNoLeave;
  ui::TextBox& txtNoAbsent;
  ui::CommandButton& cmdOk;
};

class Attendance {
 public:
  Attendance(BasPaySlate& bas, EntryState& state, const AttendanceControls& controls)
      : bas_(bas), state_(state), controls_(controls) {}

  /// Works out the pay period of the date in the picker, and its days.
  void computePeriod(common::CommonDB& database);
  /// Is there one? Without a start of the pay month nothing can be stored.
  [[nodiscard]] bool hasPeriod() const;

  /// Department and date of join of an employee.
  void GetDeptID(std::int32_t employeeId);

  /// True when the holiday calendar of a year of the period is missing; the message has then been shown and
  /// OK is disabled.
  bool FnCheckCalendarSettingsNotEntered();

  /// Checks that the employee's sheets cover every employed day and counts the days. False after the message
  /// that says what is missing; counts are then as they were.
  bool fnLoadAttendance(std::int32_t employeeId);

  /// The day counts of a stored entry: whole days alone, half days that count when a month is entered do not.
  void fnLoadAttendanceCounts(std::int32_t employeeId);

  void setWorkingDays();
  void setPresentDays();

  /// Days of the period before the employee joined; 0 for one who joined earlier.
  [[nodiscard]] long daysBeforeJoining() const;

 private:
  struct DayCount;
  void refuse(const std::string& reason);
  [[nodiscard]] bool joinedInside() const;
  [[nodiscard]] double covered(std::int32_t employeeId, basic::Date first, bool& anySheet);
  /// Nothing when the statement gives no row.
  [[nodiscard]] std::optional<double> count(const DayCount& what, std::int32_t employeeId);
  void readDateOfJoin(std::int32_t employeeId);
  void countDays(std::int32_t employeeId);
  [[nodiscard]] bool calendarExists(int year);

  BasPaySlate& bas_;
  EntryState& state_;
  AttendanceControls controls_;
};

}  // namespace payslate
