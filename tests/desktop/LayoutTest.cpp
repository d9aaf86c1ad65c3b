// Layouts come out as they are drawn: edges, order, and who takes the room when the window grows.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QScrollBar>
#include <QTableView>
#include <QWidget>

#include "desktop/FormWindow.h"
#include "desktop/QtDesktop.h"
#include "tests/desktop/LookForms.h"

namespace payslate::tests {
namespace {

class Drawing {
 public:
  explicit Drawing(QWidget& window) : window_(window) {}

  [[nodiscard]] QWidget& part(const char* name) const {
    return *window_.findChild<QWidget*>(QString::fromLatin1(name));
  }
  [[nodiscard]] QRect at(const char* name) const {
    return {part(name).mapTo(&window_, QPoint(0, 0)), part(name).size()};
  }
  /// Do they stand side by side in this order, on one line?
  void expectLine(const std::vector<const char*>& names) const {
    for (std::size_t i = 1; i < names.size(); ++i) {
      EXPECT_LT(at(names[i - 1]).right(), at(names[i]).left()) << names[i];
      EXPECT_NEAR(at(names[i - 1]).center().y(), at(names[i]).center().y(), 2) << names[i];
    }
  }
  void expectBelow(const std::vector<const char*>& names) const {
    for (std::size_t i = 1; i < names.size(); ++i)
      EXPECT_LT(at(names[i - 1]).bottom(), at(names[i]).top()) << names[i];
  }
  void expectSameLeft(const std::vector<const char*>& names) const {
    for (const char* name : names) EXPECT_EQ(at(name).left(), at(names[0]).left()) << name;
  }
  /// What is added to the window goes to this part alone.
  void expectGrows(const char* growing, const std::vector<const char*>& steady) const {
    constexpr int added = 150;
    std::vector<QSize> before;
    before.reserve(steady.size());
    for (const char* name : steady) before.push_back(part(name).size());
    const QSize small = part(growing).size();
    window_.resize(window_.width() + added, window_.height() + added);
    QCoreApplication::processEvents();
    EXPECT_EQ(part(growing).size(), small + QSize(added, added));
    for (std::size_t i = 0; i < steady.size(); ++i) EXPECT_EQ(part(steady[i]).size(), before[i]) << steady[i];
    window_.resize(window_.width() - added, window_.height() - added);
    QCoreApplication::processEvents();
    for (const auto* table : window_.findChildren<QTableView*>())
      EXPECT_EQ(table->horizontalScrollBar()->maximum(), 0) << "columns keep room that is gone";
  }

 private:
  QWidget& window_;
};

template <class F>
void draw(const std::function<void(const Drawing&)>& look) {
  desktop::QtDesktop windows;
  ToyClerk clerk;
  windows.setClerk(&clerk);
  const auto form = std::make_shared<F>(windows);
  clerk.work[form->Name()] = [&](ui::Form&) {
    look(Drawing(*windows.window(*form)));
    form->Unload();
  };
  form->load();
  form->Show();
}

TEST(Layouts, ShowTheListAsItIsDrawn) {
  draw<ListLook>([](const Drawing& drawn) {
    drawn.expectLine({"cboColNames", "optAscend", "optDescend"});
    drawn.expectLine({"fraBrowse", "lblsearch", "cboSearch", "txtsearch"});
    drawn.expectBelow({"fraBrowse", "flexMaster", "cmdnew"});
    drawn.expectLine({"cmdnew", "CmdEdit", "CmdDelete", "cmdUpdate", "CmdClose"});
    drawn.expectSameLeft({"fraBrowse", "flexMaster", "cmdnew"});
    drawn.expectGrows("flexMaster", {"cboSearch", "txtsearch", "cmdnew", "CmdClose"});
    EXPECT_EQ(drawn.at("CmdClose").right(), drawn.at("flexMaster").right());
    EXPECT_TRUE(drawn.part("flexMaster").hasFocus());
  });
}

TEST(Layouts, ShowTheEntryAsItIsDrawn) {
  draw<EntryLook>([](const Drawing& drawn) {
    drawn.expectLine({"lblAtteNo", "txtAtteNo", "lblAttdate", "dtpattdate"});
    drawn.expectLine({"lblEmpname", "cboEmpname", "cmdFirst", "cmdPrevious", "cmdNext", "cmdLast"});
    drawn.expectSameLeft({"txtAtteNo", "cboEmpname"});
    drawn.expectLine({"Label2", "txtTotalDays", "lblnoofworkingdays", "txtworkingdays"});
    drawn.expectLine(
        {"lblNoPresent", "txtNoPresent", "lblNoLeave", "txtNoLeave", "lblNoAbsent", "txtNoAbsent"});
    drawn.expectSameLeft({"txtTotalDays", "txtNoPresent"});
    drawn.expectSameLeft({"txtworkingdays", "txtNoLeave"});
    drawn.expectLine({"lblBasicPay", "txtBasicPay", "lblcursymbol", "chkHold", "Chkpaid", "cmdRefresh"});
    drawn.expectBelow(
        {"txtAtteNo", "cboEmpname", "fraEmployeeAttendance", "txtBasicPay", "tabpayslate", "cmdOk"});
    drawn.expectLine({"lblTotal", "txtTotal", "cmdOk", "cmdCancel"});
    drawn.expectGrows("tabpayslate", {"txtAtteNo", "cboEmpname", "txtNoLeave", "cmdNext", "cmdCancel"});
    for (const char* label : {"lblAtteNo", "lblnoofworkingdays", "lblNoAbsent"})
      EXPECT_GE(drawn.part(label).width(), drawn.part(label).sizeHint().width()) << label;
  });
}

}  // namespace
}  // namespace payslate::tests
