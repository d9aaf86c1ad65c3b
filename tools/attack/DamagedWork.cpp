// The clerk and his sentences.
#include "tools/attack/DamagedWork.h"

#include <algorithm>
#include <array>

#include "host/ComponentStage.h"
#include "platform/ado/Connection.h"
#include "platform/scripted/ScriptedDesktop.h"
#include "platform/ui/ComboBox.h"
#include "platform/ui/Form.h"
#include "platform/ui/Grid.h"
#include "tools/attack/MarkedMonth.h"

namespace payslate::attack {

namespace {

class Clerk : public ui::Clerk {
 public:
  std::vector<std::string> told;

  void attend(ui::Form& form) override {
    if (form.Name() == "FrmMaster") return workOnList(form);
    if (auto& employees = dynamic_cast<ui::ComboBox&>(*form.control("cboEmpname")); employees.Enabled()) {
      for (int index = 0; index < std::min(employees.ListCount(), 3); ++index)
        form.input().choose(employees, index);
    } else {
      form.input().click(*form.control("chkHold"));
    }
    form.input().click(*form.control("cmdOk"));
    if (form.isLoaded()) form.input().close();
    form.abandon();
  }
  ui::Answer answer(const ui::Message& message) override {
    if (message.text == "Save Changes?") return ui::Answer::No;
    if (message.asksYesNo()) return ui::Answer::Yes;
    told.push_back(message.text);
    return ui::Answer::Ok;
  }
  ui::MenuItem* pick(ui::Form&, const ui::PopupMenu&) override { return nullptr; }

 private:
  void workOnList(ui::Form& list) {
    list.input().click(*list.control("cmdnew"));
    auto& grid = dynamic_cast<ui::Grid&>(*list.control("flexMaster"));
    if (grid.Rows() > 1) list.input().doubleClickRow(grid, grid.Rows() - 2);
    list.input().click(*list.control("CmdClose"));
    list.abandon();
  }
};

void show(Clerk& clerk, const std::string& path) {
  const auto connection = std::make_shared<ado::Connection>();
  connection->Open(path);
  scripted::ScriptedDesktop desktop;
  desktop.setClerk(&clerk);
  clspayslate component = host::makeComponent(
      desktop, connection, {1, 1, 40001, 2026, basic::Date::fromCalendar(2026, 4, 30), "Payroll"});
  try {
    component.Show();
  } catch (...) {
    connection->Close();  // The session keeps hold of it.
    throw;
  }
  connection->Close();
}

}  // namespace

std::vector<std::string> workInForms(const std::string& path) {
  Clerk clerk;
  try {
    show(clerk, path);
  } catch (const std::exception& error) {
    clerk.told.emplace_back(error.what());
  }
  return clerk.told;
}

std::vector<std::string> workOnEntries(const std::string& path) {
  try {
    MarkedMonth month(path);
    month.perform({Kind::Rewrite, 101, 77});
    month.perform({Kind::Enter, 109, 78});
    month.perform({Kind::Cancel, 109, 78});
  } catch (const Broken&) {
    return {"An entry is not there."};
  } catch (const std::exception& error) {
    return {error.what()};
  }
  return {};
}

bool isClear(const std::string& message) {
  static constexpr std::array foreign{"std::",        "basic_string", "vector",  "_M_",       "bad_",
                                      "stod",         "stoi",         "stol",    "map::",     "optional",
                                      "variant",      "regex",        "no such", "malformed", "disk image",
                                      "SQL logic",    "unsupported",  "sqlite_", "datatype",  "unrecognized",
                                      "not an error", "out of memory"};
  return !message.empty() && message.find('\n') == std::string::npos &&
         std::none_of(foreign.begin(), foreign.end(),
                      [&](const char* word) { return message.find(word) != std::string::npos; });
}

}  // namespace payslate::attack
