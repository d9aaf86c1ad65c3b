// How a host application embeds the monthly entry: open a connection, hand over the session, call Show.
#include <exception>
#include <iostream>
#include <memory>
#include <string_view>

#include "desktop/QtDesktop.h"
#include "payslate/clspayslate.h"
#include "platform/ado/Connection.h"
#include "platform/ui/Clerk.h"
#include "platform/ui/Form.h"

namespace {

// A program in the user's place, for hosts that test themselves: it closes whatever opens.
class ClosingClerk : public payslate::ui::Clerk {
 public:
  void attend(payslate::ui::Form& form) override {
    std::cout << form.Name() << ": " << form.Caption() << '\n';
    form.input().close();
    form.abandon();
  }
  payslate::ui::Answer answer(const payslate::ui::Message& message) override {
    return message.asksYesNo() ? payslate::ui::Answer::No : payslate::ui::Answer::Ok;
  }
  payslate::ui::MenuItem* pick(payslate::ui::Form&, const payslate::ui::PopupMenu&) override {
    return nullptr;
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::cerr << "Usage: payslate_example DATABASE [--unattended]\n";
    return 2;
  }
  try {
    payslate::desktop::QtDesktop desktop;
    ClosingClerk clerk;
    if (argc > 2 && std::string_view(argv[2]) == "--unattended") desktop.setClerk(&clerk);

    auto connection = std::make_shared<payslate::ado::Connection>();
    connection->Open(argv[1]);

    payslate::clspayslate entry(desktop);
    entry.adocon(connection);
    entry.MsgboxTitle = "Payroll";
    entry.ProcessDate = payslate::basic::Date::fromCalendar(2026, 4, 30);
    entry.intCompanyID = 1;
    entry.intUserID = 1;
    entry.intInterfaceID = 40001;
    entry.intfinancialid = 2026;
    entry.Show();
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "The monthly entry could not be shown: " << error.what() << '\n';
    return 1;
  }
}
