// The demo companies in a database in memory, and a clerk at work in the first of them.
#pragma once

#include <memory>
#include <sstream>
#include <string>

#include "host/ComponentStage.h"
#include "platform/ado/Connection.h"
#include "platform/ado/Recordset.h"
#include "platform/basic/Numbers.h"
#include "platform/scripted/ScriptedDesktop.h"
#include "schema/schema.h"
#include "schema/script.h"

namespace payslate {

struct DemoPayroll {
  explicit DemoPayroll(const std::string& database = ":memory:") {
    connection->Open(database);
    schema::createDemo(*connection);
  }

  // The session of the last show keeps hold of the connection.
  ~DemoPayroll() { connection->Close(); }
  DemoPayroll(const DemoPayroll&) = delete;
  DemoPayroll& operator=(const DemoPayroll&) = delete;

  // Only primary keys are left, as a host's own tables may have no more.
  void dropIndexes() const {
    for (const std::string_view statement : schema::payroll()) {
      std::istringstream words{std::string(statement)};
      std::string word;
      std::string index;
      std::string table;
      words >> word >> word;
      if (word == "unique") words >> word;
      words >> index >> word >> table;
      if (word != "on") continue;
      std::string drop = "drop index ";
      drop += index;
      drop += " on ";
      connection->Execute(drop += table);
    }
  }

  // Returns when the clerk has closed the list.
  void show(ui::Clerk& clerk, int month = 4, int lastDay = 30, const std::string& title = "Payroll") const {
    scripted::ScriptedDesktop desktop;
    desktop.setClerk(&clerk);
    host::makeComponent(desktop, connection,
                        {1, 1, 40001, 2026, basic::Date::fromCalendar(2026, month, lastDay), title})
        .Show();
  }

  // The first column of the first row; Null is 0.
  [[nodiscard]] double value(const std::string& statement) const {
    ado::Recordset rows = connection->Execute(statement);
    const basic::Value first = rows.Fields(0).Value();
    return basic::isNull(first) ? 0 : basic::CDbl(first);
  }

  std::shared_ptr<ado::Connection> connection = std::make_shared<ado::Connection>();
};

}  // namespace payslate
