// payroll-host show: the component in real windows.
#include "host/Commands.h"
#include "host/ComponentStage.h"
#include "host/Database.h"

namespace payslate::host {

ExitCode show(const ShowWish& wish, const ScreenMaker& makeScreen) {
  const SharedConnection connection = openPayroll(wish.connect);
  requireCompany(*connection, wish.session.company);
  const auto screen = makeScreen();
  if (!screen->isSeen()) throw Refusal("There is no display to open a window on.");
  makeComponent(screen->desktop(), connection, wish.session).Show();
  return ExitCode::Ok;
}

}  // namespace payslate::host
