// The component as a host application sees it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "component/Explanation.h"
#include "months/MonthReport.h"
#include "months/MonthReview.h"
#include "platform/ado/Connection.h"
#include "platform/basic/Date.h"

namespace payslate::ui {
class Desktop;
}

namespace payslate {

/// Monthly entry for one company and one pay period. A host creates it, assigns the session, and calls Show.
class clspayslate {
 public:
  /// The desktop shows the component's windows; it must outlive every Show.
  explicit clspayslate(ui::Desktop& desktop) : desktop_(&desktop) {}

  /// The host's open connection. Reading it while none is assigned creates an unopened one and keeps it.
  [[nodiscard]] const std::shared_ptr<ado::Connection>& adocon();
  void adocon(std::shared_ptr<ado::Connection> connection) { adocon_ = std::move(connection); }

  std::string MsgboxTitle;          ///< Title of every message box.
  basic::Date ProcessDate;          ///< The pay period being worked on is the one of this date.
  std::int16_t intUserID = 0;       ///< User 1 holds every right.
  std::int32_t intInterfaceID = 0;  ///< This screen in the host's rights and prefix tables.
  std::int16_t intCompanyID = 0;
  std::int16_t intfinancialid = 0;  ///< Financial year.

  /// Opens the list of monthly entries and returns when it is closed. Neither opens nor closes the
  /// connection, and refers to it until the next Show. Raises what keeps the list from being shown
  /// (ado::Error for the database). std::logic_error, and nothing is touched, while a Show of this or another
  /// instance has not returned, and on another thread than the one that made the desktop.
  void Show();

  /// Enters the month of ProcessDate for everybody at once, as a clerk would who chooses one employee after
  /// the other and presses OK, without a window; what became of each comes back. MonthRefused where nobody
  /// can be entered, ado::Error where the employees cannot be read; nothing is written then. The session
  /// counts as for Show, but for the title.
  MonthReport EnterMonth(const MonthOptions& options, const MonthProgress& progress = {});

  /// The month of ProcessDate beside the one before, for somebody who looks at it before the payroll run: who
  /// has no entry, and who is paid more or less, and why. Reads the whole month by a fixed number of
  /// statements, and writes nothing unless it accepts the month. MonthRefused where the month has no pay
  /// period or cannot be accepted; ado::Error. The session counts as for Show, but for the title.
  MonthReview ReviewMonth(const ReviewOptions& options);

  /// Where every figure of a stored entry comes from, by its number, without a window; nothing is written.
  /// ado::Error when the company has no such entry, and for a user who may not open entries. The session
  /// counts as for Show, but for the title.
  ExplainedEntry ExplainEntry(const std::string& number);

 private:
  void handOver(struct Session& session);

  ui::Desktop* desktop_;
  std::shared_ptr<ado::Connection> adocon_;
};

}  // namespace payslate
