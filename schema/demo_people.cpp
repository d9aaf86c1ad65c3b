// Who works in the demo companies, and what is theirs every month.
#include "platform/basic/Date.h"
#include "schema/demo.h"
#include "schema/script.h"

namespace payslate::schema {

using basic::Value;

// 138 has left, 139 joined in April, 140 joins in May, 141 has no sheets, 142 and 143 have sheets that do not
// add up; 113's hours are too few for a rate. Company 2: 203 has no rates, 204 none for deductions, 210's
// department has no calendar, 211 has no department.
const std::vector<Person>& people() {
  static const std::vector<Person> all{
      {1, 101, "Asha Verling", 10, 1, 30000, "2010/01/01"},
      {1, 102, "Bram Maruvi", 20, 1, 19370, "2011/02/04", Sheets::Withdrawn},
      {1, 103, "Chidi Iversol", 10, 1, 20740, "2012/03/07"},
      {1, 104, "Dana Tamsel", 20, 1, 22110, "2013/04/10"},
      {1, 105, "Elif Dentrec", 30, 1, 23480, "2014/05/13"},
      {1, 106, "Farid Farrow", 10, 1, 24850, "2015/06/16"},
      {1, 107, "Greta Kestrel", 20, 1, 26220, "2016/07/19"},
      {1, 108, "Hanno Sundgaard", 10, 1, 27590, "2017/08/22"},
      {1, 109, "Ines Osthoek", 20, 1, 28960, "2018/09/25", Sheets::Split},
      {1, 110, "Jorun Holloway", 30, 2, 1450.50, "2019/10/28"},
      {1, 111, "Kamal Quade", 10, 3, 1980, "2020/11/03"},
      {1, 112, "Lena Brandow", 20, 1, 33070, "2021/12/06", Sheets::Monthly, true, 7.5},
      {1, 113, "Milo Pellarin", 10, 1, 34440, "2022/01/09", Sheets::Monthly, true, 0.5},
      {1, 114, "Nadia Verling", 20, 1, 35810, "2023/02/12"},
      {1, 115, "Otis Maruvi", 30, 1, 37180, "2010/03/15"},
      {1, 116, "Priya Iversol", 10, 1, 38550, "2011/04/18"},
      {1, 117, "Quinn Tamsel", 20, 1, 39920, "2012/05/21"},
      {1, 118, "Rosa Dentrec", 10, 1, 18290, "2013/06/24"},
      {1, 119, "Samir Farrow", 20, 1, 19660, "2014/07/27", Sheets::Split},
      {1, 120, "Tilda Kestrel", 30, 1, 21030, "2015/08/02"},
      {1, 121, "Umar Sundgaard", 10, 2, 2100, "2016/09/05"},
      {1, 122, "Vera Osthoek", 20, 1, 23770, "2017/10/08"},
      {1, 123, "Wanda Holloway", 10, 1, 25140, "2018/11/11"},
      {1, 124, "Xenia Quade", 20, 1, 26510, "2019/12/14"},
      {1, 125, "Yusuf Brandow", 30, 1, 27880, "2020/01/17"},
      {1, 126, "Zora Pellarin", 10, 1, 29250, "2021/02/20"},
      {1, 127, "Anders Verling", 20, 1, 30620, "2022/03/23"},
      {1, 128, "Bela Maruvi", 10, 1, 31990, "2023/04/26"},
      {1, 129, "Celine Iversol", 20, 1, 33360, "2010/05/01", Sheets::Split},
      {1, 130, "Dorian Tamsel", 30, 1, 34730, "2011/06/04"},
      {1, 131, "Esra Dentrec", 10, 1, 36100, "2012/07/07"},
      {1, 132, "Fanny Farrow", 20, 1, 37470, "2013/08/10"},
      {1, 133, "Gustav Kestrel", 10, 1, 38840, "2014/09/13"},
      {1, 134, "Hilde Sundgaard", 20, 1, 40210, "2015/10/16"},
      {1, 135, "Ivo Osthoek", 30, 1, 18580, "2016/11/19"},
      {1, 136, "Janka Holloway", 10, 1, 19950, "2017/12/22"},
      {1, 137, "Karim Quade", 20, 1, 21320, "2018/01/25"},
      {1, 138, "Ludo Brandow", 10, 1, 22690, "2019/02/28", Sheets::Monthly, false},
      {1, 139, "Marit Pellarin", 20, 1, 24060, "2026/04/11"},
      {1, 140, "Nils Verling", 30, 1, 25430, "2026/05/04", Sheets::None},
      {1, 141, "Oona Maruvi", 10, 1, 26800, "2022/05/09", Sheets::None},
      {1, 142, "Paavo Iversol", 20, 1, 28170, "2023/06/12", Sheets::Gap},
      {1, 143, "Runa Tamsel", 10, 1, 29540, "2010/07/15", Sheets::Overlapping},
      {1, 70144, "Stig Dentrec", 20, 1, 30910, "2011/08/18"},
      {2, 201, "Aino Brandow", 10, 1, 2400, "2012/01/02", Sheets::Monthly, true, 8, 12.5, 10.0},
      {2, 202, "Borja Iversol", 20, 1, 2585, "2013/02/04", Sheets::Monthly, true, 8, 14.0, 9.75},
      {2, 203, "Clea Kestrel", 10, 1, 2770, "2014/03/06", Sheets::Monthly, true, 8},
      {2, 204, "Darko Quade", 20, 1, 2955, "2015/04/08", Sheets::Monthly, true, 8, 11.0, 0.0},
      {2, 205, "Emre Maruvi", 10, 1, 3140, "2016/05/10", Sheets::Split, true, 8, 12.5, 10.0},
      {2, 206, "Fleur Farrow", 20, 1, 3325, "2017/06/12", Sheets::Monthly, true, 8, 13.0, 10.0},
      {2, 207, "Gerd Holloway", 10, 1, 3510, "2018/07/14", Sheets::Monthly, true, 8, 12.5, 10.0},
      {2, 208, "Hana Verling", 20, 2, 3695, "2019/08/16", Sheets::Monthly, true, 8, 12.5, 10.0},
      {2, 209, "Ilse Dentrec", 10, 1, 3880, "2020/09/18", Sheets::Monthly, true, 8, 15.0, 12.0},
      {2, 210, "Joao Osthoek", 30, 1, 4065, "2021/10/20", Sheets::Monthly, true, 8, 12.5, 10.0},
      {2, 211, "Kiri Pellarin", 99, 1, 4250, "2022/11/22", Sheets::Monthly, true, 8, 12.5, 10.0},
      {2, 212, "Lars Tamsel", 20, 1, 4435, "2026/03/30", Sheets::Monthly, true, 8, 12.5, 10.0},
  };
  return all;
}

basic::Date dateOf(std::string_view text) {
  return basic::parseDate(text, "yyyy/mm/dd");
}

Value money(double amount) {
  return basic::Decimal::fromDouble(amount, 2);
}

PayMonth payMonth(int company, int month) {
  constexpr int firstDay = 26;  // of company 2
  basic::Date first = basic::Date::fromCalendar(demoYear, month, company == 1 ? 1 : firstDay);
  if (company != 1) first = first.plusMonths(-1);
  return {first, first.plusMonths(1).plusDays(-1)};
}

namespace {

/// An allowance or deduction that goes to every nth employee of a department.
struct Standing {
  int company;
  int item;
  double amount;  // 0 where a formula decides
  double share;   // of the basic pay, added
  int department;
  int every = 1;
};

constexpr int anyDepartment = 0;

constexpr Standing allowances[] = {
    {1, 1, 0, 0.1, 10},
    {1, 1, 0, 0.12, 20},
    {1, 2, 0, 0, 10, 2},
    {1, 4, 40, 0, anyDepartment, 5},
    {1, 5, 77, 0, anyDepartment, 11},
    {1, 6, 0, 0, 20},
    {1, 7, 25.5, 0, anyDepartment, 7},
    {1, 8, 0, 0, 10},
    {1, 9, 0, 0, 20, 3},
    {2, 1, 150, 0, anyDepartment},
};

constexpr Standing deductions[] = {
    {1, 1, 0, 0, anyDepartment},
    {1, 2, 300.25, 0, 10},
    {1, 2, 280, 0, 20},
    {1, 6, 15, 0, anyDepartment, 9},
    {1, 7, 2.5, 0, anyDepartment, 4},
    {2, 1, 0, 0, 10},
    {2, 2, 0, 0, anyDepartment},
};

template <std::size_t N>
void addStanding(TableWriter& table, const Person& person, const Standing (&rules)[N]) {
  for (const Standing& rule : rules) {
    const bool applies = rule.company == person.company && person.id % rule.every == 0 &&
                         (rule.department == anyDepartment || rule.department == person.department);
    if (applies)
      table.add({person.company, person.id, rule.item, money(rule.amount + rule.share * person.basic)});
  }
}

}  // namespace

void fillPeople(ado::Connection& connection) {
  constexpr int grades = 4;
  constexpr int designations = 6;
  TableWriter employees(
      connection, "pemployee",
      {"eCompanyID", "eEmpID", "eName", "eActive", "eCurrencyID", "eGradeID", "eDesigID", "eBasic", "eDeptID",
       "eDateofJoin", "hrsofWork", "AllowancePerHourRate", "DeductionPerHourRate"});
  TableWriter standingAllowances(connection, "pempallowances",
                                 {"eacompanyid", "eaempid", "eaallowanceid", "eaamount"});
  TableWriter standingDeductions(connection, "pempdeductions",
                                 {"edcompanyid", "edempid", "eddeductionid", "edamount"});
  for (const Person& person : people()) {
    employees.add({person.company, person.id, person.name, person.active ? 1 : 0, person.currency,
                   1 + person.id % grades, 1 + person.id % designations, money(person.basic),
                   person.department, dateOf(person.joined), money(person.hours), person.allowanceRate,
                   person.deductionRate});
    addStanding(standingAllowances, person, allowances);
    addStanding(standingDeductions, person, deductions);
  }
}

}  // namespace payslate::schema
