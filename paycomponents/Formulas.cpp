// Replacing parameter codes and letting the server do the arithmetic.
#include "paycomponents/Formulas.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "component/BasPaySlate.h"
#include "component/EntryState.h"
#include "component/ListPage.h"
#include "component/Session.h"
#include "paycomponents/ListColumns.h"
#include "paycomponents/PayLookups.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Error.h"
#include "platform/basic/Numbers.h"
#include "platform/common/CommonDB.h"
#include "platform/ui/TextBox.h"

namespace payslate {

using basic::Val;

namespace {

constexpr const char* parameterPattern = "#0.00";
constexpr std::size_t daysOfWeek = 7;

std::string parameterStatement(const Session& session, std::int32_t employeeId) {
  return "spformulaparameter  " + session.companyText() + ", " + std::to_string(employeeId) + ", " +
         std::to_string(session.intfinancialid) + ",'" + slashDate(session.dtPeriodStart) + "'";
}

std::string expressionStatement(const Session& session, std::int32_t formulaId) {
  return "select fFormulaName from " + session.TableLinks["pformula"] +
         " where fcompanyid = " + session.companyText() + " and fformulaid = " + std::to_string(formulaId);
}

std::string failure(std::int32_t formulaId, const std::string& statement, const std::string& reason) {
  return "Formula " + std::to_string(formulaId) + " cannot be computed.\rSent: " + statement +
         "\rAnswer: " + reason;
}

double answerOf(ado::Connection& connection, std::int32_t formulaId, const std::string& statement) {
  try {
    ado::Recordset result = connection.Execute(statement);
    if (result.FieldCount() != 1)
      throw ado::Error("The answer has " + std::to_string(result.FieldCount()) +
                           " columns, and a formula has one: numbers are written without commas.",
                       "21000");
    return basic::CDbl(result.Fields(0).Value());
  } catch (ado::Error& error) {
    error.Description = failure(formulaId, statement, error.Description);
    throw;
  } catch (const basic::ValueError& error) {
    throw ado::Error(failure(formulaId, statement, error.what()), "22018");
  }
}

}  // namespace

/// The thirteen codes and their values.
struct Formulas::Parameters {
  std::array<std::pair<std::string_view, double>, 13> codes{{
      {"BP", 0},
      {"PD", 0},
      {"AD", 0},
      {"LD", 0},
      {"MD", 0},
      {"HD", 0},
      {"WD1", 0},
      {"WD2", 0},
      {"WD3", 0},
      {"WD4", 0},
      {"WD5", 0},
      {"WD6", 0},
      {"WD7", 0},
  }};

  void set(std::string_view code, double value) {
    for (auto& [name, held] : codes)
      if (name == code) held = value;
  }

  // One blank-separated token of an upper-case expression, as the server is to read it. A sign of the value's
  // own belongs to the value, whatever stands before it.
  [[nodiscard]] std::string replaced(const std::string& token, FormulaOrigin& origin) const {
    for (const auto& [name, value] : codes) {
      if (name != token) continue;
      const std::string text = basic::Format(value, parameterPattern);
      noteValue(origin, {std::string(name), value, text});
      return text.starts_with('-') ? "(" + text + ")" : text;
    }
    if (!basic::IsNumeric(token)) return token;
    std::string counted = basic::Format(Val(token), parameterPattern);
    if (Val(counted) != Val(token)) origin.lost.push_back({token, counted});
    return counted;
  }

  static void noteValue(FormulaOrigin& origin, FormulaValue used) {
    for (const FormulaValue& known : origin.values)
      if (known.code == used.code) return;
    origin.values.push_back(std::move(used));
  }
};

FormulaDays Formulas::days() const {
  return {Val(controls_.txtNoPresent.Text()) - state_.dblHolidays, Val(controls_.txtNoAbsent.Text()),
          Val(controls_.txtNoLeave.Text()), state_.dblHolidays};
}

Formulas::Parameters Formulas::parameters(const FormulaDays& days) const {
  Parameters parameters;
  parameters.set("PD", days.present);
  parameters.set("AD", days.absent);
  parameters.set("LD", days.leave);
  parameters.set("HD", days.holidays);

  if (!state_.employeeId) throw ado::Error("A formula needs an employee: select one first.", "02000");
  ado::Recordset row;
  row.Open(parameterStatement(session_, *state_.employeeId), *session_.adocon(), ado::CursorType::ForwardOnly,
           ado::LockType::ReadOnly);
  if (row.Eof()) return parameters;
  parameters.set("BP", basic::CDbl(row.Fields("basicpay").Value()));
  parameters.set("MD", basic::CDbl(row.Fields("monthdays").Value()));
  for (std::size_t day = 1; day <= daysOfWeek; ++day) {
    const std::string number = std::to_string(day);
    parameters.set("WD" + number, basic::CInt(row.Fields("wk" + number + "days").Value()));
  }
  return parameters;
}

std::string Formulas::expression(std::int32_t formulaId) const {
  ado::Recordset row;
  row.Open(expressionStatement(session_, formulaId), *session_.adocon(), ado::CursorType::ForwardOnly,
           ado::LockType::ReadOnly);
  const std::string text = row.Eof() ? std::string() : basic::Trim(row.Fields("fFormulaName").Text());
  if (text.empty())
    throw ado::Error("Formula " + std::to_string(formulaId) + " is not in the formula table or has no text.",
                     "02000");
  return text;
}

FormulaOrigin Formulas::computed(std::int32_t formulaId, const FormulaDays& days) const {
  FormulaOrigin origin;
  const Parameters values = parameters(days);
  origin.id = formulaId;
  origin.text = expression(formulaId);
  const std::string text = basic::upper(origin.text);
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t blank = std::min(text.find(' ', at), text.size());
    const std::string token = values.replaced(text.substr(at, blank - at), origin);
    if (origin.sent.ends_with('-') && token.starts_with('-'))
      origin.sent += ' ';  // Joined they begin a comment.
    origin.sent += token;
    at = blank + 1;
  }
  origin.answer = answerOf(*session_.adocon(), formulaId, "select " + origin.sent);
  return origin;
}

FormulaOrigin Formulas::amountOf(const std::string& component, std::int32_t formulaId) const {
  try {
    return computed(formulaId);
  } catch (ado::Error& error) {
    error.Description.insert(0, component + ": ");
    throw;
  } catch (const basic::ValueError& error) {
    throw ado::Error(component + ": Formula " + std::to_string(formulaId) + " cannot be computed.\r" +
                         "The formula parameters of the employee: " + error.what(),
                     "22018");
  }
}

void Formulas::refreshRow(ui::ListView& list, int row, int descriptionColumn, int amountColumn,
                          std::int32_t formulaId, RowOrigins& origins) const {
  if (formulaId <= 0) return;
  FormulaOrigin formula = amountOf(list.cellText(row, descriptionColumn), formulaId);
  const std::string before = list.cellText(row, amountColumn);
  list.setCell(row, amountColumn, basic::numberText(formula.answer));
  origins.refreshed(list, row, before, std::move(formula));
}

void Formulas::refresh(common::CommonDB& database, ui::ListView& lvwAllow, ui::ListView& lvwDeduct,
                       EntryState& state) const {
  const PayLookups allowances(session_, allowanceKind);
  for (int row = 0; row < lvwAllow.rowCount(); ++row) {
    if (lvwAllow.cellText(row, AllowColumn::Default) == AllowKind::CarriedForward) continue;
    const std::int32_t id = basic::numberOrZero(lvwAllow.cellText(row, AllowColumn::AllowID));
    refreshRow(lvwAllow, row, AllowColumn::AllowanceType, AllowColumn::Amount,
               allowances.formulaId(database, id), state.rowOrigins);
  }
  const PayLookups deductions(session_, deductionKind);
  const std::vector<ListRow> rows = plainRows(lvwDeduct);
  for (int row = 0; row < lvwDeduct.rowCount(); ++row) {
    if (lvwDeduct.cellText(row, DeductColumn::Type) == DeductKind::CarriedForward) continue;
    const std::int32_t id = basic::numberOrZero(lvwDeduct.cellText(row, DeductColumn::DeductID));
    const std::int32_t formulaId = deductions.formulaId(database, id);
    if (formulaId <= 0) continue;
    const double before = Val(lvwDeduct.cellText(row, DeductColumn::Amount));
    refreshRow(lvwDeduct, row, DeductColumn::DeductionType, DeductColumn::Amount, formulaId,
               state.rowOrigins);
    state.loaded.refreshed(deductionKey(rows, static_cast<std::size_t>(row)), before,
                           Val(lvwDeduct.cellText(row, DeductColumn::Amount)));
  }
}

}  // namespace payslate
