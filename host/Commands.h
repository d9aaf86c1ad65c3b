// The commands of payroll-host, one source file each.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "host/Refusal.h"
#include "host/Screen.h"
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

// Each throws Refusal for what it cannot do.
ExitCode demo(const DemoWish& wish, const ScreenMaker& makeScreen, std::ostream& out);
ExitCode errand(const ErrandWish& wish, const ScreenMaker& makeScreen, std::ostream& out);
ExitCode init(const std::string& connect, std::ostream& out);
ExitCode upgrade(const std::string& connect, std::ostream& out);
ExitCode show(const ShowWish& wish, const ScreenMaker& makeScreen);

}  // namespace payslate::host
