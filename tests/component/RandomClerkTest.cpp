// A clerk who does at random what the entry form lets him do, and a plain model of what must come of it.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/basic/Unicode.h"
#include "tests/component/EntryRows.h"

namespace payslate {
namespace {

constexpr unsigned months = 250;  // each with its own seed, its number
constexpr int stepsOfAMonth = 30;

const std::vector<Stored> nothingStored(5);
const std::set<std::string> refusals{"select the allowance type",
                                     "Allowance already exists",
                                     "The amount cannot be greater than 500",
                                     "select the deduction type",
                                     "Deduction already exists",
                                     "Enter amount",
                                     "Invalid Amount",
                                     "Can not have Negative pay"};

class RandomClerk : public ui::Clerk {
 public:
  explicit RandomClerk(const Payroll& payroll) : payroll_(payroll) {}

  void attend(ui::Form& form) override {
    if (auto* entry = dynamic_cast<frmpayslate*>(&form)) return enterMonth(*entry);
    if (form.Name() != "FrmMaster") return fillPopup(form);
    for (seed_ = 1; seed_ <= months && !failed_; ++seed_) {
      chance_.seed(seed_);
      story_.clear();
      press(form, "cmdnew");
      if (payroll_.newEntry() != nothingStored) press(form, "CmdEdit");
      payroll_.forgetNewEntry();
    }
    press(form, "CmdClose");
  }

  ui::Answer answer(const ui::Message& message) override {
    tell("message " + message.text);
    seen.insert(message.text);
    if (!message.asksYesNo()) {
      refused_ = true;
      require(refusals.contains(message.text), "an unexpected message");
      return ui::Answer::Ok;
    }
    const bool yes = !leaving_ && chance(2);
    if (message.text == "What was changed for this employee is not stored. Go on without it?") {
      wentOn_ = yes;
      return yes ? ui::Answer::Yes : ui::Answer::No;
    }
    if (message.style == ui::MessageStyle::AskQuestionNo) {
      takeDown(message.text);
      declined_ = !yes;
      return yes ? ui::Answer::Yes : ui::Answer::No;
    }
    const bool closing = message.text == "Save Changes?";
    if (closing && yes) saving_ = true;
    if (!closing) askedToDelete(message.text, yes);
    return yes ? ui::Answer::Yes : ui::Answer::No;
  }

  ui::MenuItem* pick(ui::Form& form, const ui::PopupMenu& menu) override {
    require(offers(menu) == allowed(dynamic_cast<ui::ListView&>(*form.ActiveControl())), "a wrong menu");
    std::vector<ui::MenuItem*> offered{nullptr};
    for (ui::MenuItem* item : menu.items())
      if (item->canBePicked()) offered.push_back(item);
    ui::MenuItem* picked = offered[chance(2) ? 1 : below(offered.size())];
    tell(picked == nullptr ? "no command" : picked->Name());
    return picked;
  }

  std::set<std::string> seen;          // messages
  unsigned stored = 0;                 // months
  std::array<unsigned, 2> lookedAt{};  // again, and stored all the same

 private:
  std::size_t below(std::size_t limit) { return chance_() % limit; }
  bool chance(std::size_t oneIn) { return below(oneIn) == 0; }
  void tell(const std::string& what) { story_ += "\n  " + what; }
  void require(bool holds, const std::string& otherwise) {
    if (!holds && !failed_) ADD_FAILURE() << otherwise << "\nseed " << seed_ << story_;
    failed_ = failed_ || !holds;
  }

  ui::ListView& list(Kind kind) const {
    if (kind == Facilities) return entry_->lvwfacility;
    return kind == Allowances ? entry_->lvwAllow : entry_->lvwDeduct;
  }
  Rows shown(Kind kind) const { return shownIn(list(kind), columnsOf[kind]); }

  // ---- What must hold ----

  static std::set<std::string> offers(const ui::PopupMenu& menu) {
    std::set<std::string> names;
    for (const ui::MenuItem* item : menu.items())
      if (item->canBePicked()) names.insert(item->Name());
    return names;
  }

  std::set<std::string> allowed(const ui::ListView& list) const {
    const Kind kind = &list == &entry_->lvwAllow    ? Allowances
                      : &list == &entry_->lvwDeduct ? Deductions
                                                    : Facilities;
    std::set<std::string> names{"mnuCancel"};
    if (kind != Facilities) names.insert("mnuAdd");
    if (list.SelectedItem() < 0) return names;
    names.insert("mnuEdit");
    const Row row = shown(kind)[static_cast<std::size_t>(list.SelectedItem())];
    if (kind == Facilities || row.isAny("NB")) names.insert("mnuDelete");
    return names;
  }

  void askedToDelete(const std::string& question, bool yes) {
    for (const Kind kind : allLists) {
      if (list(kind).SelectedItem() < 0) continue;
      const auto row = known_[kind].begin() + list(kind).SelectedItem();
      if (question != "Are you sure you want to delete \r" + row->description + "?") continue;
      require(kind == Facilities || row->isAny("NB"), "a row that stays was offered for deletion");
      if (yes) known_[kind].erase(row);
      deleted_ = yes;
      return;
    }
    require(false, "a question about no selected row");
  }

  // The lines of the question before a save. Refresh's own are judged here, by the rows that they are about.
  void takeDown(const std::string& question) {
    for (std::size_t at = question.find('\r') + 1, end = 0;
         (end = question.find('\r', at)) != std::string::npos; at = end + 1) {
      const std::string line = question.substr(at, end - at);
      const std::size_t refresh = line.find(": Refresh replaced ");
      if (refresh == std::string::npos) {
        asked_.insert(line);
        continue;
      }
      const auto about = [&](const Row& row) {
        return row.isAny("LSF") && row.description == line.substr(0, refresh) &&
               row.amount == cents(line.substr(line.rfind(' ') + 1));
      };
      const Rows& rows = known_[Deductions];
      require(refreshed_ && std::any_of(rows.begin(), rows.end(), about), "a line about no row: " + line);
    }
  }

  std::set<std::string> expectedLines() const {
    std::map<std::pair<std::string, std::string>, std::array<Cents, 2>> recoveries;  // by type and currency
    for (const Row& row : known_[Deductions])
      if (row.isAny("F")) recoveries[{row.id, row.symbol}][0] += row.amount;
    for (const Row& row : known_[Facilities])
      if (row.ticked) recoveries[{row.other, row.symbol}][1] += row.amount;
    std::set<std::string> lines;
    for (const auto& [key, sums] : recoveries)
      if (sums[0] != sums[1])
        lines.insert(payroll_.component(Deductions, key.first).first + ": " + written(sums[0]) + " " +
                     key.second + " is deducted, but the ticked recoveries come to " + written(sums[1]) +
                     " " + key.second);
    for (const Row& row : known_[Deductions]) {
      if (!row.isAny("LS")) continue;
      const Cents balance = payroll_.balance(row);
      if (row.amount > balance)
        lines.insert(row.description + ": " + written(row.amount) + " is more than the balance, " +
                     written(balance));
    }
    return lines;
  }

  // A deduction type's row of type "F" is the sum of its ticked settlements.
  void settle(const Row& facility) {
    Cents sum = 0;
    for (const Row& row : known_[Facilities])
      if (row.ticked && row.other == facility.other) sum += row.amount;
    Rows& deductions = known_[Deductions];
    const auto found = std::find_if(deductions.begin(), deductions.end(), [&facility](const Row& row) {
      return row.isAny("F") && row.id == facility.other;
    });
    if (found != deductions.end() && sum > 0) {
      found->amount = sum;
    } else if (found != deductions.end()) {
      deductions.erase(found);
    } else if (sum > 0) {
      const std::string description = payroll_.component(Deductions, facility.other).first;
      deductions.push_back({description, facility.other, "F", facility.symbol, "", sum});
    }
  }

  void check() {
    for (const Kind kind : allLists)
      require(shown(kind) == known_[kind], list(kind).Name() + " is not what was done to it");
    const Totals stated = statedBy(*entry_);
    require(stated == totals_, "stated is " + ::testing::PrintToString(stated) + " instead of " +
                                   ::testing::PrintToString(totals_));
    for (const Kind kind : payLists) {
      require(standing(known_[kind]) == standing_[kind], "a standing row changed more than its amount");
      std::set<std::pair<std::string, std::string>> components;
      for (const Row& row : known_[kind]) {
        checkRow(kind, row);
        // The employee has one savings scheme twice.
        if (!row.isAny("BS"))
          require(components.emplace(row.id, row.description).second, "a component twice");
      }
    }
  }

  void checkRow(Kind kind, const Row& row) {
    // By formula: a ninth and a 16000th of 30000, four Sundays.
    static const std::map<std::string, Cents> prices{{"2", 333333}, {"8", 188}, {"6", 60000}};
    const std::pair named{row.description, row.symbol};
    if (row.isAny("N")) require(named == payroll_.component(kind, row.id), "a wrong description or currency");
    if (kind == Allowances && row.isAny("YN") && prices.contains(row.id))
      require(row.amount == prices.at(row.id), "an amount by formula was replaced");
    if (kind == Allowances && row.isAny("B"))
      require(row.amount <= cents(row.id), "more was paid out than the balance");
    if (kind == Deductions && row.isAny("B"))
      require(named == std::pair<std::string, std::string>("Salary Carry Forward", "Rs"),
              "salary is not carried forward as such");
  }

  // ---- The entry form ----

  void enterMonth(frmpayslate& entry) {
    entry_ = &entry;
    leaving_ = declined_ = false;
    asked_.clear();
    for (int index = 0; index < entry.cboEmpname.ListCount(); ++index)
      if (entry.cboEmpname.ItemData(index) == employee) entry.input().choose(entry.cboEmpname, index);
    learnMonth();
    for (int step = 0; step < stepsOfAMonth && !failed_; ++step) {
      takeStep();
      check();
    }
    leave();
  }

  void learnMonth() {
    refreshed_ = false;
    std::string types;
    for (const Kind kind : allLists) known_[kind] = shown(kind);
    for (const Kind kind : payLists) {
      standing_[kind] = standing(known_[kind]);
      for (const Row& row : known_[kind]) types += row.type;
    }
    const bool fresh = entry_->cboEmpname.Enabled();
    require(!fresh || (types == "YYNBDDLLSSO" && known_[Facilities].size() == 3), "not the employee's rows");
    totals_ = totalsOf(*entry_);
    loaded_ = known_;
    loadedPay_ = cents(entry_->txtBasicPay.Text());
  }

  // To the next employee and back: what was changed is gone on Yes alone, and asked for whenever there is
  // something.
  void moveAway() {
    ui::ComboBox& employees = entry_->cboEmpname;
    if (!employees.Enabled()) return;  // An opened entry would be left for good.
    const int own = employees.ListIndex();
    const bool changed = known_ != loaded_ || cents(entry_->txtBasicPay.Text()) != loadedPay_;
    wentOn_.reset();
    tell("page down");
    entry_->input().key({ui::KeyCode::PageDown});
    require(wentOn_.has_value() || !changed, "changes were dropped without a question");
    const bool stays = wentOn_ && !*wentOn_;
    require((employees.ListIndex() == own) == stays, "the clerk is not where he answered to be");
    if (stays) return;
    entry_->input().choose(employees, own);
    const std::array<Rows, 3> before = loaded_;
    learnMonth();
    require(loaded_ == before, "a month comes back changed");
  }

  void takeStep() {
    switch (below(13)) {
      case 0:
        return refreshFormulas();
      case 1:
        return retypeBasicPay();
      case 2:
        return entry_->input().turnPage(entry_->tabpayslate, currencyPage);
      case 3:
        return moveAway();
      default:
        return workOnList(allLists[below(allLists.size())]);
    }
  }

  void refreshFormulas() {
    press(*entry_, "cmdRefresh");
    refreshed_ = true;
    for (const Kind kind : payLists) {
      const Rows now = shown(kind);
      for (std::size_t row = 0; row < std::min(now.size(), known_[kind].size()); ++row)
        if (!now[row].isAny("FB")) known_[kind][row].amount = now[row].amount;
    }
  }

  void retypeBasicPay() {
    const Cents typed = cents(entry_->txtBasicPay.Tag()) - 99 + static_cast<Cents>(below(200));
    const std::string text = written(typed);
    typeInto(entry_->txtBasicPay, text);
    entry_->input().key({ui::KeyCode::Tab});
    require(entry_->txtBasicPay.Text() == text, "a basic pay within one unit was not taken");
    totals_ = totalsOf(*entry_);
  }

  void workOnList(Kind kind) {
    static constexpr std::array actions{"click",       "double click", "press Enter on", "press Delete on",
                                        "right click", "right click",  "right click",    "right click"};
    ui::Input& input = entry_->input();
    ui::ListView& rows = list(kind);
    const int last = rows.rowCount() - 1;
    const int row = chance(2) ? last : static_cast<int>(below(known_[kind].size() + 1)) - 1;
    const bool ticks = kind == Facilities && row >= 0 && chance(2);
    const std::string action = ticks ? "tick" : actions[below(actions.size())];
    tell(action + " " + rows.Name() + " " + std::to_string(row));
    input.turnPage(entry_->tabpayslate, columnsOf[kind].page);
    input.focus(rows);
    if (action == "click") input.clickRow(rows, row);
    if (action == "double click") input.doubleClickRow(rows, row);
    if (action == "right click") input.clickRow(rows, row, ui::MouseButton::Right);
    if (action == "press Enter on") input.key({ui::KeyCode::Return, ui::Shift::None, ui::KeyAscii::Return});
    if (action == "press Delete on") input.key({ui::KeyCode::Delete});
    if (std::exchange(deleted_, false)) totals_ = totalsOf(*entry_);
    if (!ticks) return;
    Row& ticked = known_[kind][static_cast<std::size_t>(row)];
    ticked.ticked = !ticked.ticked;
    settle(ticked);
    input.checkRow(rows, row);
    totals_ = totalsOf(*entry_);
  }

  void press(ui::Form& form, const std::string& button) {
    tell("press " + button);
    form.input().click(*form.control(button));
  }

  void typeInto(ui::TextBox& box, const std::string& text) {
    tell("type \"" + text + "\" into " + box.Name());
    ui::Input& input = box.form().input();
    if (!input.focus(box)) return;
    input.key({'A', ui::Shift::Ctrl});
    input.key({ui::KeyCode::Delete});
    input.type(basic::characters(text));
  }

  // ---- The popups ----

  void fillPopup(ui::Form& form) {
    tell(form.Name());
    const bool allowance = form.Name() == "frmAllowPopup";
    const Kind kind = allowance ? Allowances : form.Name() == "frmDeductPopup" ? Deductions : Facilities;
    for (std::size_t turns = 1 + below(9); turns > 0 && form.isLoaded() && !failed_; --turns)
      workOnPopup(form, kind);
    if (form.isLoaded() && chance(2)) press(form, "cmdClose");
    form.input().key({ui::KeyCode::Escape, ui::Shift::None, ui::KeyAscii::Escape});
    require(!form.isLoaded(), "the popup stayed");
    totals_ = totalsOf(*entry_);
  }

  void workOnPopup(ui::Form& form, Kind kind) {
    static constexpr std::array moves{"cmdFirst", "cmdPrevious", "cmdNext", "cmdLast"};
    switch (below(8)) {
      case 0:
        return press(form, moves[below(moves.size())]);
      case 1:
        if (kind == Deductions) press(form, chance(2) ? "optDeduction" : "optSalCarryFwd");
        return typeAmount(form);
      case 2:
      case 3:
        return pressOk(form, kind);
      default:
        if (kind != Facilities) chooseType(form, kind == Allowances ? "cboAllow" : "cboDeduct");
        if (!chance(4)) typeAmount(form);
    }
  }

  void typeAmount(ui::Form& form) {
    static constexpr std::array amounts{"",    "0",      ".",      "0.05",    "1",          "100.009",
                                        "500", "500.01", "640.50", "1200.01", "99999999999"};
    typeInto(dynamic_cast<ui::TextBox&>(*form.control("txtAmount")), amounts[below(amounts.size())]);
  }

  void chooseType(ui::Form& form, const char* combo) {
    auto& types = dynamic_cast<ui::ComboBox&>(*form.control(combo));
    const int index = static_cast<int>(below(types.items().size()));
    tell("choose " + types.List(index));
    form.input().choose(types, index);
  }

  // What is refused changes nothing; what is accepted writes one row, with the amount in the box.
  void pressOk(ui::Form& form, Kind kind) {
    const std::string typed = *form.control("txtAmount")->propertyText("Text");
    const int selected = list(kind).SelectedItem();
    refused_ = false;
    press(form, "cmdOk");
    require(form.isLoaded() == (refused_ || kind == Facilities), "OK closes a popup whose row it takes");
    if (kind == Facilities) {
      const Cents actual = cents(list(kind).cellText(selected, FacilityColumn::ActualAmount));
      require(refused_ == (typed.empty() || cents(typed) > actual), "a settlement was judged wrongly");
    }
    if (refused_ || failed_) return;
    const Rows now = shown(kind);
    const bool added = now.size() > known_[kind].size();
    const Row& written = added ? now.back() : now.at(static_cast<std::size_t>(selected));
    if (added) known_[kind].push_back({"", "", written.isAny("B") ? "B" : "N", "", ""});
    Row& row = added ? known_[kind].back() : known_[kind].at(static_cast<std::size_t>(selected));
    if (added || row.isAny("N")) row = {written.description, written.id, row.type, written.symbol, ""};
    row.amount = cents(typed);
    if (kind == Facilities) settle(row);
  }

  // ---- OK, or away ----

  void leave() {
    const std::vector<Stored> before = payroll_.newEntry();
    const Totals now = totalsOf(*entry_);
    saving_ = chance(2);
    tell(saving_ ? "save" : "close");
    if (saving_) entry_->input().click(entry_->cmdOk);
    if (!saving_) entry_->input().close();
    if (saving_) totals_ = now;
    const auto owes = [](const auto& total) { return total.second < 0; };
    const bool negative = std::any_of(totals_.begin(), totals_.end(), owes);
    require(entry_->isLoaded() == (saving_ && (negative || declined_)),
            "the form stays when its month is refused or looked at again, only then");
    const bool stores = saving_ && !negative && !declined_;
    const auto expected = saving_ && !negative ? expectedLines() : std::set<std::string>();
    require(asked_ == expected, "asked instead of " + ::testing::PrintToString(expected));
    if (!asked_.empty()) ++lookedAt[declined_ ? 0 : 1];
    require(payroll_.newEntry() == (stores ? storedForm(cents(entry_->txtBasicPay.Text()), known_) : before),
            "not what the lists held is stored");
    if (stores) ++stored;
    if (entry_->isLoaded()) check();
    leaving_ = true;
    entry_->input().close();
  }

  const Payroll& payroll_;
  std::mt19937 chance_;
  unsigned seed_ = 0;
  std::string story_;
  bool failed_ = false;

  frmpayslate* entry_ = nullptr;
  std::array<Rows, 3> known_;     // the lists as they must be
  std::array<Rows, 2> standing_;  // as they were loaded
  std::array<Rows, 3> loaded_;
  Cents loadedPay_ = 0;
  std::optional<bool> wentOn_;  // without what was changed, when asked
  Totals totals_;               // as they must be stated
  bool refused_ = false;
  bool deleted_ = false;
  bool saving_ = false;
  bool leaving_ = false;
  bool refreshed_ = false;
  bool declined_ = false;
  std::set<std::string> asked_;  // before the save
};

TEST(RandomClerk, WhateverHeDoesListsTotalsAndStoredRowsAgree) {
  const Payroll payroll;
  RandomClerk clerk(payroll);
  payroll.show(clerk);
  // He came everywhere.
  for (const std::string& refusal : refusals) EXPECT_TRUE(clerk.seen.contains(refusal)) << refusal;
  EXPECT_GT(clerk.stored, months / 5);
  for (const unsigned answered : clerk.lookedAt) EXPECT_GT(answered, months / 20);
}

}  // namespace
}  // namespace payslate
