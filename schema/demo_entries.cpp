// What the demo companies' months hold: attendance sheets with their days and hours, and earlier entries.
#include <algorithm>
#include <array>
#include <string>

#include "platform/basic/Numbers.h"
#include "schema/demo.h"
#include "schema/script.h"

namespace payslate::schema {

using basic::Date;
using basic::Null;
using basic::Value;

namespace {

constexpr int firstMonth = 1;
constexpr int lastMonth = 4;

// ---- Attendance ----

struct Day {
  int employee;
  const char* date;
  const char* code;  // null: no row, which is leave
};

/// Days that must be as the leave register and the recurring pattern below do not make them.
constexpr Day singleDays[] = {
    {101, "2026/03/30", nullptr}, {101, "2026/03/31", nullptr}, {101, "2026/04/01", nullptr},
    {101, "2026/04/02", nullptr}, {101, "2026/04/07", "a"},     {101, "2026/04/08", "HA"},
    {101, "2026/04/09", "AL"},    {101, "2026/04/20", "HL"},    {201, "2026/04/24", nullptr},
    {201, "2026/04/25", nullptr}, {201, "2026/04/14", "a"},
};

constexpr std::array holidays{"2026/01/01", "2026/01/26", "2026/04/03"};

/// Everybody's odd days, spread over employees and dates.
constexpr std::array<const char*, 5> oddDays{"a", "HL", "HA", "AL", nullptr};

const char* codeOf(const Person& person, Date date) {
  constexpr int sunday = 1;
  constexpr int spread = 67;
  for (const Day& day : singleDays)
    if (day.employee == person.id && dateOf(day.date) == date) return day.code;
  const bool holiday =
      std::any_of(holidays.begin(), holidays.end(), [&](const char* text) { return dateOf(text) == date; });
  if (holiday || date.weekday() == sunday) return "h";
  const auto mixed =
      static_cast<std::size_t>((person.id * 7L + static_cast<long>(date.serial()) * 13) % spread);
  return mixed < oddDays.size() ? oddDays[mixed] : "p";
}

struct Hours {
  int employee;
  const char* date;
  double hours;
  int allowance;  // 0 when booked to the deduction
  int deduction;
  bool withdrawn = false;  // on the cancelled sheet
};

/// 101 also books outside April; 102 on a cancelled sheet; 106 on an allowance with a formula; 107 and 108 on
/// an inactive allowance and deduction; 113 and 203 have no rate.
constexpr Hours bookedHours[] = {
    {101, "2026/03/28", 4, 3, 0},   {101, "2026/04/11", 2, 3, 0},       {101, "2026/04/18", 3.5, 3, 0},
    {101, "2026/04/13", 1, 0, 4},   {102, "2026/04/14", 6, 3, 0, true}, {105, "2026/04/15", 2, 3, 0},
    {106, "2026/04/16", 3, 2, 0},   {107, "2026/04/16", 2, 5, 0},       {108, "2026/04/16", 2, 0, 6},
    {113, "2026/04/17", 4, 3, 0},   {201, "2026/04/08", 5, 2, 0},       {202, "2026/04/08", 2, 2, 0},
    {202, "2026/04/09", 1.5, 0, 3}, {203, "2026/04/09", 2, 2, 0},       {204, "2026/04/10", 3, 2, 0},
};

class AttendanceWriter {
 public:
  explicit AttendanceWriter(ado::Connection& connection)
      : sheets_(connection, "pEmployeeattendence",
                {"eaid", "eacompanyid", "eaEmpID", "eaStartDate", "eaEndDate", "eaCancelled"}),
        days_(connection, "pempattendancedetail", {"eadAttendanceID", "eadcompanyid", "eaddate", "eadtype"}),
        hours_(connection, "pEmpAttendanceAllowanceDeductions",
               {"eaadAttendanceID", "eaadCompanyID", "eaadDate", "eaadHours", "eaadAllowanceID",
                "eaadDeductionID"}) {}

  void addSheet(const Person& person, Date first, Date last, bool withdrawn = false) {
    first = std::max(first, dateOf(person.joined));
    if (first > last) return;
    ++id_;
    sheets_.add({id_, person.company, person.id, first, last, withdrawn ? 1 : 0});
    for (Date date = first; date <= last; date = date.plusDays(1))
      if (const char* code = codeOf(person, date)) days_.add({id_, person.company, date, code});
    for (const Hours& booked : bookedHours) {
      const Date date = dateOf(booked.date);
      if (booked.employee != person.id || booked.withdrawn != withdrawn || date < first || date > last)
        continue;
      hours_.add({id_, person.company, date, money(booked.hours), orNull(booked.allowance),
                  orNull(booked.deduction)});
    }
  }

 private:
  static Value orNull(int item) { return item == 0 ? Value(Null{}) : Value(item); }

  TableWriter sheets_;
  TableWriter days_;
  TableWriter hours_;
  int id_ = 0;
};

void addMonth(AttendanceWriter& writer, const Person& person, int month) {
  constexpr int halfMonth = 15;
  const PayMonth period = payMonth(person.company, month);
  const Date middle = period.first.plusDays(halfMonth - 1);
  const Sheets sheets =
      month == lastMonth || person.sheets == Sheets::Split ? person.sheets : Sheets::Monthly;
  if (sheets == Sheets::Gap || sheets == Sheets::Split) {
    writer.addSheet(person, period.first, middle);
    if (sheets == Sheets::Split) writer.addSheet(person, middle.plusDays(1), period.last);
    return;
  }
  writer.addSheet(person, period.first, period.last);
  if (sheets == Sheets::Overlapping) writer.addSheet(person, middle, middle.plusDays(1));
  if (sheets == Sheets::Withdrawn) writer.addSheet(person, period.first, period.last, true);
}

// ---- Earlier entries ----

enum class Mark { Live, Cancelled, Processed };

/// Months whose entry is not what the rule of markOf makes it. Several of one month stand in their order.
struct Exceptional {
  int employee;
  int month;
  Mark mark;
};

/// 103's March was cancelled, 104's cancelled and entered again; 117 to 119 have an April already.
constexpr Exceptional exceptional[] = {
    {103, 3, Mark::Cancelled}, {104, 3, Mark::Cancelled}, {104, 3, Mark::Live},
    {117, 4, Mark::Cancelled}, {118, 4, Mark::Live},      {119, 4, Mark::Live},
};

constexpr int lastWithEntries[] = {120, 206};  // by company, from its first employee on

/// The entries of an employee's month, oldest first.
std::vector<Mark> marksOf(const Person& person, int month) {
  std::vector<Mark> marks;
  for (const Exceptional& known : exceptional)
    if (known.employee == person.id && known.month == month) marks.push_back(known.mark);
  if (!marks.empty() || month == lastMonth) return marks;
  const bool processed = month < lastMonth - 1 || person.id % 2 == 0;
  return {processed ? Mark::Processed : Mark::Live};
}

struct Carried {
  int employee;
  int month;
  double amount;
  int mode;  // 1 withheld, -1 paid out
};

/// 101 is owed 500, 105 1500, 106 600, 107 nothing any more; 103's entry was cancelled.
constexpr Carried carried[] = {{101, 3, 500, 1},  {103, 3, 700, 1}, {105, 3, 1500, 1}, {106, 2, 1000, 1},
                               {106, 3, 400, -1}, {107, 1, 300, 1}, {107, 2, 300, -1}};

class EntryWriter {
 public:
  explicit EntryWriter(ado::Connection& connection)
      : headers_(connection, "pempmonthlyentryheader",
                 {"emhCompanyID", "emhID", "emhNo", "emhDate", "emhempID", "emhbasicpay", "emhpaidcash",
                  "emhstartdate", "emhenddate", "emhOrginalBasic", "emhCancelled", "emhCancelledRemarks",
                  "emhprocessed"}),
        allowances_(connection, "pemployeeallowancedetail",
                    {"eadcompanyid", "eadid", "eadallowanceid", "eadamount", "eaddefault"}),
        deductions_(connection, "pemployeeDeductiondetail",
                    {"eddcompanyid", "eddid", "eddDetailID", "edddeductionid", "eddloanid", "eddsavingsid",
                     "eddLoanIssueID", "eddOpenSavingsID", "eddType", "eddamount"}),
        facilities_(
            connection, "pempfacilitydeductiondetail",
            {"efdcompanyid", "efdid", "efddetailid", "efdtrackingid", "efddedamount", "efdfacilityamt"}),
        movements_(connection, "pEmployeeCurrentDetails",
                   {"ecdCompanyID", "ecdPaySlateID", "ecdDetailID", "ecdAmount", "ecdMode"}) {}

  void add(const Person& person, int month, Mark mark) {
    ++id_;
    addHeader(person, month, mark);
    addAllowances(person);
    addDeductions(person);
    if (person.id == recoveredFrom.employee && month == recoveredFrom.month) addRecovery(person);
    int detail = 0;
    for (const Carried& movement : carried)
      if (movement.employee == person.id && movement.month == month)
        movements_.add({person.company, id_, ++detail, movement.amount, movement.mode});
  }

 private:
  /// The facility cost of demo.sql that an entry has taken already.
  struct Recovery {
    int employee, month, deduction, tracking;
    double amount;
  };
  static constexpr Recovery recoveredFrom{106, 3, 3, 5, 640};

  void addHeader(const Person& person, int month, Mark mark) {
    constexpr int paidInCash = 1;
    constexpr int onHold = 2;
    constexpr int cashEvery = 10;
    constexpr int heldEmployee = 119;
    const PayMonth period = payMonth(person.company, month);
    const Date date = Date::fromCalendar(demoYear, month, basic::daysInMonth(demoYear, month));
    const std::string number = (person.company == 1 ? "EN" : "KT") +
                               std::to_string(++numbers_[static_cast<std::size_t>(person.company - 1)]);
    const int paid = person.id == heldEmployee ? onHold : person.id % cashEvery == 0 ? paidInCash : 0;
    const bool cancelled = mark == Mark::Cancelled;
    headers_.add({person.company, id_, number, date, person.id, basic::Format(person.basic, "0.00"), paid,
                  period.first, period.last, money(person.basic), cancelled ? 1 : 0,
                  cancelled ? Value("Ravi Telwin:wrong sheet") : Value(Null{}),
                  mark == Mark::Processed ? Value(1) : Value(Null{})});
  }

  void addAllowances(const Person& person) {
    constexpr double houseRent = 0.1;
    constexpr int overtimeEvery = 5;
    allowances_.add({person.company, id_, 1, money(person.basic * houseRent), 1});
    if (person.company == 1 && person.id % overtimeEvery == 0)
      allowances_.add({person.company, id_, 3, money(425.5), 0});
  }

  void addDeductions(const Person& person) {
    constexpr double fund = 0.12;
    constexpr int borrower = 101;  // loan issue 2 of type 2 and savings account 1 of scheme 1 are hers
    detail_ = 0;
    const int fundItem = person.company == 1 ? 1 : 2;
    deductions_.add({person.company, id_, ++detail_, fundItem, Null{}, Null{}, Null{}, Null{}, "D",
                     money(person.basic * fund)});
    if (person.id != borrower) return;
    deductions_.add({person.company, id_, ++detail_, Null{}, 2, Null{}, 2, Null{}, "L", money(3500.5)});
    deductions_.add({person.company, id_, ++detail_, Null{}, Null{}, 1, Null{}, 1, "S", money(250)});
  }

  void addRecovery(const Person& person) {
    const Value amount = money(recoveredFrom.amount);
    deductions_.add({person.company, id_, ++detail_, recoveredFrom.deduction, Null{}, Null{}, Null{}, Null{},
                     "F", amount});
    facilities_.add({person.company, id_, 1, recoveredFrom.tracking, amount, amount});
  }

  TableWriter headers_;
  TableWriter allowances_;
  TableWriter deductions_;
  TableWriter facilities_;
  TableWriter movements_;
  std::array<int, 2> numbers_{};  // by company
  int id_ = 0;
  int detail_ = 0;
};

}  // namespace

void fillAttendance(ado::Connection& connection) {
  AttendanceWriter writer(connection);
  for (const Person& person : people())
    for (int month = firstMonth; month <= lastMonth; ++month)
      if (person.sheets != Sheets::None) addMonth(writer, person, month);
}

void fillEntries(ado::Connection& connection) {
  EntryWriter writer(connection);
  for (int month = firstMonth; month <= lastMonth; ++month)
    for (const Person& person : people()) {
      if (person.id > lastWithEntries[person.company - 1]) continue;
      for (const Mark mark : marksOf(person, month)) writer.add(person, month, mark);
    }
}

}  // namespace payslate::schema
