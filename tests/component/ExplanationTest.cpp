// Every amount of the demo month, recomputed from what its explanation says and from nothing else.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>

#include "entry/frmpayslate.h"
#include "tests/component/DemoPayroll.h"
#include "tests/component/EntryRows.h"

namespace payslate {
namespace {

using basic::Val;

/// Agrees to what is asked, so that a month with findings is stored too.
class AgreeingClerk : public ui::Clerk {
 public:
  void attend(ui::Form& form) override { form.abandon(); }
  ui::Answer answer(const ui::Message& message) override {
    return message.asksYesNo() ? ui::Answer::Yes : ui::Answer::Ok;
  }
  ui::MenuItem* pick(ui::Form&, const ui::PopupMenu&) override { return nullptr; }
};

double behind(const std::string& text, const std::string& word) {
  const std::size_t at = text.find(word);
  EXPECT_NE(at, std::string::npos) << word << " in " << text;
  return at == std::string::npos ? 0 : Val(text.substr(at + word.size()));
}

class Reader {
 public:
  Reader(const Explanation& explanation, const DemoPayroll& payroll)
      : explanation_(explanation), payroll_(payroll) {}

  // What the lines come to, and by which of them.
  [[nodiscard]] std::pair<std::string, double> amount() const {
    if (explanation_.part == "Totals")
      return {"Total", sumOf("", [](const std::string& text) {
                return (text[0] == '-' ? -1 : 1) * Val(text.substr(2));
              })};
    if (has("Cut")) return {"Cut", line("Basic pay in the employee master") - cut()};
    if (has("Sent")) return {"Sent", formula()};
    if (has("Rate")) return {"Rate", hours()};
    if (has("Standing pay")) return {"Standing pay", line("Standing pay")};
    for (const char* account : {"Loan account", "Savings account"})
      if (has(account)) return {account, std::min(line("Balance"), line("Instalment"))};
    if (has("Recoveries in all"))
      return {"Recoveries", sumOf("Recovery ", [](const std::string& text) { return behind(text, ", "); })};
    if (has("Lowered")) {
      const bool lowered = text("Lowered") != "not at all";
      return {"Lowered", line("Actual amount") - (lowered ? behind(text("Lowered"), "by ") : 0)};
    }
    return {"Balance", sumOf("EN", [](const std::string& text) {
              return text.starts_with("kept") ? behind(text, "back ") : -behind(text, "out ");
            })};
  }

  // Days of the sheets that count as `what`, whole or half.
  [[nodiscard]] double days(const std::string& what) const {
    double sum = 0;
    for (const ExplanationLine& line : explanation_.lines) {
      if (line.label.size() < 10 || line.label[2] != '/') continue;
      const std::size_t at = line.text.find(what);
      if (at == std::string::npos) continue;
      const auto date = [&](std::size_t from) {
        return basic::parseDate(line.label.substr(from, 10), "dd/mm/yyyy");
      };
      const auto span = static_cast<double>(basic::daysBetween(date(0), date(line.label.size() - 10)) + 1);
      sum += span * (at >= 5 && line.text.substr(at - 5, 5) == "half " ? 0.5 : 1);
    }
    return sum;
  }

  [[nodiscard]] bool has(const std::string& label) const {
    return std::any_of(explanation_.lines.begin(), explanation_.lines.end(),
                       [&](const ExplanationLine& one) { return one.label == label; });
  }
  [[nodiscard]] std::string text(const std::string& label) const {
    for (const ExplanationLine& one : explanation_.lines)
      if (one.label == label) return one.text;
    ADD_FAILURE() << "no " << label << " in\n" << textOf(explanation_);
    return {};
  }
  [[nodiscard]] double line(const std::string& label) const { return Val(text(label)); }

 private:
  template <class Number>
  [[nodiscard]] double sumOf(const std::string& prefix, Number number) const {
    double sum = 0;
    for (const ExplanationLine& one : explanation_.lines)
      if (one.label.starts_with(prefix) && one.label != "Stored") sum += number(one.text);
    return sum;
  }

  [[nodiscard]] double cut() const {
    const std::string& how = text("Cut");
    if (how.starts_with("none")) return 0;
    EXPECT_EQ(behind(how, "* "), line("Absent days") + line("Days before joining"));
    return Val(how) / behind(how, "/ ") * behind(how, "* ");
  }

  // The formula's text with the values put in its codes' places is what was sent.
  [[nodiscard]] double formula() const {
    std::map<std::string, std::string> values;
    for (const ExplanationLine& one : explanation_.lines) {
      const std::size_t comma = one.label.find(", ");
      if (comma != std::string::npos) values[one.label.substr(0, comma)] = one.text;
      const std::string counted = " counted as ";
      const std::size_t at = one.text.find(counted);
      if (at != std::string::npos) values[one.text.substr(0, at)] = one.text.substr(at + counted.size());
    }
    const std::string kept = basic::upper(text("Formula"));
    std::istringstream words(kept.substr(kept.find(": ") + 2));
    std::string sent;
    for (std::string word; words >> word;) {
      const auto value = values.find(word);
      sent += value != values.end()    ? value->second
              : basic::IsNumeric(word) ? basic::Format(Val(word), "0.00")
                                       : word;
    }
    EXPECT_EQ(sent, text("Sent"));
    return payroll_.value("select " + sent);
  }

  [[nodiscard]] double hours() const {
    const double booked = sumOf("Hours", [](const std::string& text) {
      return text.find(" on ") == std::string::npos ? 0 : Val(text);
    });
    const std::string& rate = text("Rate");
    if (rate.find("basic pay") == std::string::npos) return booked * Val(rate);
    return booked * behind(rate, "basic pay ") / (behind(rate, "(") * behind(rate, "hours * "));
  }

  const Explanation& explanation_;
  const DemoPayroll& payroll_;
};

class Explanations : public ::testing::TestWithParam<int> {
 protected:
  Explanations() {
    desktop.setClerk(&clerk);
    bas.desktop(desktop);
    bas.adocon(payroll.connection);
    bas.intCompanyID = static_cast<std::int16_t>(GetParam());
    bas.intUserID = 1;
    bas.intInterfaceID = 40001;
    bas.intfinancialid = 2026;
    bas.ProcessDate = basic::Date::fromCalendar(2026, 4, GetParam() == 1 ? 30 : 25);
    bas.TableLinks.load(*payroll.connection);
  }

  std::shared_ptr<frmpayslate> newEntry() {
    bas.strMode = EntryMode::New;
    auto form = std::make_shared<frmpayslate>(bas);
    form->load();
    return form;
  }

  // Every row of the lists and the basic pay; a stored row's rule gives today what was stored.
  void checkAmounts(frmpayslate& form, std::set<std::string>& rules) {
    std::map<std::string, int> figures;
    for (const Explanation& one : form.explanations()) {
      SCOPED_TRACE(textOf(one));
      ++figures[one.part];
      if (one.part == "Days") continue;
      const Reader reader(one, payroll);
      const auto [rule, amount] = reader.amount();
      rules.insert(rule);
      EXPECT_EQ(cents(basic::Format(amount, "0.00")), cents(one.amount));
      if (reader.has("Today the rule gives")) {
        EXPECT_EQ(cents(reader.text("Today the rule gives")), cents(reader.text("Stored")));
      }
    }
    EXPECT_EQ(figures["Basic pay"], 1);
    EXPECT_EQ(figures["Allowances"], form.lvwAllow.rowCount());
    EXPECT_EQ(figures["Deductions"], form.lvwDeduct.rowCount());
    EXPECT_EQ(figures["Facilities"], form.lvwfacility.rowCount());
    EXPECT_EQ(figures["Totals"], static_cast<int>(form.netPay().size()));
  }

  void checkDays(frmpayslate& form) {
    for (const auto& [box, what] : {std::pair<ui::TextBox*, const char*>{&form.txtNoPresent, "present"},
                                    {&form.txtNoLeave, "leave"},
                                    {&form.txtNoAbsent, "absent"}}) {
      const auto explanation = form.explanationOf(*box);
      ASSERT_TRUE(explanation);
      EXPECT_EQ(Reader(*explanation, payroll).days(what), Val(box->Text())) << textOf(*explanation);
    }
    const auto working = form.explanationOf(form.txtworkingdays);
    ASSERT_TRUE(working);
    const Reader reader(*working, payroll);
    EXPECT_EQ(reader.line("Total days") - reader.line("Before joining") - reader.line("Leave"),
              Val(form.txtworkingdays.Text()));
  }

  DemoPayroll payroll;
  AgreeingClerk clerk;
  scripted::ScriptedDesktop desktop;
  BasPaySlate bas;
};

TEST_P(Explanations, TellEnoughToRecomputeEveryAmount) {
  // Hours of a day that are not whole, and a constant that loses digits.
  payroll.connection->Execute("update pemployee set hrsofWork = 7.5 where eEmpID in (101, 105)");
  payroll.connection->Execute("update pformula set fFormulaName = 'bp * 0.0475' where fFormulaID = 2");
  std::set<std::string> rules;
  int stored = 0;
  const int offered = newEntry()->cboEmpname.ListCount();
  int left = 0;  // Of those that cannot be stored.
  for (int count = 0; count < offered; ++count) {
    auto form = newEntry();
    form->cboEmpname.setListIndex(left);
    SCOPED_TRACE(form->cboEmpname.Text());
    if (form->monthIsWhole()) {
      form->takeRecoveries();
      checkAmounts(*form, rules);
      checkDays(*form);
      form->cmdOk.Click.raise();
    }
    if (!form->monthIsWhole() || form->isLoaded()) {
      ++left;
      continue;
    }
    ++stored;
    const auto id = static_cast<std::int32_t>(payroll.value("select max(emhID) from pempmonthlyentryheader"));
    form = std::make_shared<frmpayslate>(bas);
    form->openStored({id, bas.ProcessDate, false});
    checkAmounts(*form, rules);
    checkDays(*form);
  }
  EXPECT_GT(stored, GetParam() == 1 ? 30 : 7);
  const std::set<std::string> all{
      "Cut",        "Sent",    "Rate",    "Standing pay", "Loan account", "Savings account",
      "Recoveries", "Lowered", "Balance", "Total"};
  for (const std::string& rule : all)
    EXPECT_TRUE(rules.contains(rule) || (GetParam() == 2 && rule == "Balance")) << rule;
}

TEST_P(Explanations, ThatLoadingKnewAskNothing) {
  const auto form = newEntry();
  form->cboEmpname.setListIndex(0);
  ASSERT_TRUE(form->monthIsWhole());
  int sent = 0;
  payroll.connection->StatementSent = [&sent](std::string_view) { ++sent; };
  const std::vector<Explanation> known = form->knownExplanations();
  EXPECT_EQ(sent, 0);
  payroll.connection->StatementSent = nullptr;
  for (const Explanation& one : known) EXPECT_FALSE(one.lines.empty()) << one.title;
  EXPECT_EQ(known.size(), form->explanations().size());
}

INSTANTIATE_TEST_SUITE_P(OfBothCompanies, Explanations, ::testing::Values(1, 2));

}  // namespace
}  // namespace payslate
