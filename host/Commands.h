// The commands of payroll-host, one source file each.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "host/Refusal.h"
#include "host/Report.h"
#include "host/Screen.h"
#include "payslate/clspayslate.h"
#include "platform/scripted/HostSession.h"

namespace payslate::host {

struct DemoWish {
  /// A server's empty database to be filled, and no more; empty: the file below is opened.
  std::string connect;
  std::string database = "payroll-demo.db";
  std::string screens;  ///< Folder for pictures of the windows; empty: the usual one, when nobody watches.
};

struct ErrandWish {
  std::vector<std::string> files;
  std::optional<std::string> connect;  ///< None: a fresh database in memory for every errand.
  bool window = false;
};

struct ShowWish {
  std::string connect;
  scripted::HostSession session;
};

struct JournalWish {
  std::string connect;
  std::int16_t company = 0;
  std::int16_t user = 0;  ///< Who seals.
  std::string entry;      ///< The number of the entry to be shown.
  bool seals = false;
  bool verifies = false;
  std::string seal;  ///< A seal that the journal is held against; empty: none.
  ReportFormat format = ReportFormat::Table;
};

struct MonthWish {
  std::string connect;
  scripted::HostSession session;
  MonthOptions options;
  ReportFormat format = ReportFormat::Table;
};

struct ReviewWish {
  std::string connect;
  scripted::HostSession session;
  ReviewOptions options;
  ReportFormat format = ReportFormat::Table;
};

struct ExplainWish {
  std::string connect;
  scripted::HostSession session;
  std::string entry;                   ///< Its number.
  std::optional<ReportFormat> format;  ///< None: a text for people.
};

// Each throws Refusal for what it cannot do.
ExitCode demo(const DemoWish& wish, const ScreenMaker& makeScreen, std::ostream& out);
ExitCode errand(const ErrandWish& wish, const ScreenMaker& makeScreen, std::ostream& out);
ExitCode journal(const JournalWish& wish, std::ostream& out);
/// `err` gets the progress, where it is a terminal's.
ExitCode month(const MonthWish& wish, std::ostream& out, std::ostream& err);
ExitCode review(const ReviewWish& wish, std::ostream& out);
ExitCode explain(const ExplainWish& wish, std::ostream& out);
ExitCode init(const std::string& connect, std::ostream& out);
ExitCode upgrade(const std::string& connect, std::ostream& out);
ExitCode show(const ShowWish& wish, const ScreenMaker& makeScreen);

}  // namespace payslate::host
