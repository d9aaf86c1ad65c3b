// Windows beyond events: what they show, how they stand, and what they survive.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDateEdit>
#include <QDir>
#include <QElapsedTimer>
#include <QFontMetrics>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <algorithm>

#include "desktop/FormWindow.h"
#include "desktop/QtDesktop.h"
#include "desktop/QtHands.h"
#include "tests/desktop/ToyForm.h"

namespace payslate::tests {
namespace {

using ui::Key;

class Desktop : public testing::Test {
 protected:
  // Shows a toy form to a clerk that does this, and closes it.
  void attend(const std::function<void(ToyForm&, QWidget&)>& work, int gridRows = 100) {
    const auto form = std::make_shared<ToyForm>(windows, log, "frmToy", gridRows);
    clerk.work["frmToy"] = [&](ui::Form&) {
      work(*form, *windows.window(*form));
      form->txtNumber.Text = "";
      form->Unload();
    };
    windows.setClerk(&clerk);
    form->load();
    form->Show();
  }

  template <class W>
  W& part(QWidget& window, const char* name) {
    return *window.findChild<W*>(QString::fromLatin1(name));
  }

  void press(QWidget& target, int key, Qt::KeyboardModifiers held = {}, const char* text = "") {
    QKeyEvent event(QEvent::KeyPress, key, held, QString::fromUtf8(text));
    QApplication::sendEvent(&target, &event);
    windows.settle();
  }

  QObject life;  // ends what is still scheduled
  desktop::QtDesktop windows;
  desktop::QtHands hands{windows};
  ToyClerk clerk;
  Log log;
};

TEST_F(Desktop, ShowsWhatTheFormSaysWhenItSaysIt) {
  attend([this](ToyForm& form, QWidget& window) {
    auto& amount = part<QLineEdit>(window, "txtAmount");
    auto& table = part<QTableView>(window, "grdRows");
    form.txtAmount.Text = "1500.00";
    form.txtAmount.Select(1, 3);
    EXPECT_EQ(amount.text(), "1500.00");
    EXPECT_EQ(amount.selectedText(), "500");
    form.txtNumber.Text = std::string(80000, 'x');
    EXPECT_EQ(part<QLineEdit>(window, "txtNumber").text().size(), 80000);
    EXPECT_TRUE(amount.alignment().testFlag(Qt::AlignRight));
    EXPECT_TRUE(part<QLineEdit>(window, "txtLocked").isReadOnly());
    form.fraPeriod.Enabled = false;
    EXPECT_FALSE(amount.isEnabled());
    form.fraPeriod.Enabled = true;
    form.cmdOk.Enabled = false;
    EXPECT_FALSE(part<QPushButton>(window, "cmdOk").isEnabled());
    form.lblLong.Visible = false;
    EXPECT_FALSE(part<QLabel>(window, "lblLong").isVisible());
    form.lblAmount.Caption = "Basic &Pay (Rs):";
    EXPECT_EQ(amount.accessibleName(), "Basic Pay (Rs)");
    EXPECT_EQ(part<QPushButton>(window, "cmdMore").accessibleName(), "Last");
    form.Caption = "Other";
    EXPECT_EQ(window.windowTitle(), "Other");
    form.tabPages.Tab = 1;
    form.grdRows.setCurrent(51, 0);
    form.grdRows.setCellColor(ui::Grid::red);
    form.grdRows.setTopRow(51);
    form.grdRows.addRow({"101", "EN101", "", ""});
    windows.settle();
    EXPECT_TRUE(table.isColumnHidden(0));
    EXPECT_EQ(table.rowAt(0), 50);
    EXPECT_EQ(table.currentIndex().row(), 50);
    EXPECT_EQ(table.model()->rowCount(), 101);
    form.grdRows.clear(2);
    windows.settle();
    EXPECT_EQ(table.model()->rowCount(), 1);
    EXPECT_EQ(table.model()->columnCount(), 2);
  });
}

TEST_F(Desktop, StandsAsTheLayoutSaysAndGivesTheListTheRoom) {
  attend([this](ToyForm& form, QWidget& window) {
    const auto left = [&](const char* name) {
      return part<QWidget>(window, name).mapTo(&window, QPoint(0, 0)).x();
    };
    EXPECT_EQ(left("txtNumber"), left("txtAmount"));
    EXPECT_EQ(left("txtNumber"), left("cboName"));
    EXPECT_EQ(left("lblNumber"), left("lblDate"));
    EXPECT_LT(left("lblNumber"), left("txtNumber"));
    const int boxBefore = part<QWidget>(window, "txtNumber").height();
    const int listBefore = part<QWidget>(window, "lvwItems").height();
    const int buttonBefore = part<QWidget>(window, "cmdOff").height();
    window.resize(window.width() + 100, window.height() + 120);
    windows.settle();
    EXPECT_EQ(part<QWidget>(window, "txtNumber").height(), boxBefore);
    EXPECT_EQ(part<QWidget>(window, "cmdOff").height(), buttonBefore);
    EXPECT_EQ(part<QWidget>(window, "lvwItems").height(), listBefore + 120);
    const int right = left("cmdClose") + part<QWidget>(window, "cmdClose").width();
    EXPECT_GT(right, window.width() - 30);
    EXPECT_FALSE(form.cmdOff.Enabled());
  });
}

// Keys that a keyboard sends, and what Qt would make of them by itself.
TEST_F(Desktop, LeavesNothingToQtThatChangesAControl) {
  attend([this](ToyForm& form, QWidget& window) {
    auto& number = part<QLineEdit>(window, "txtNumber");
    hands.focus(form.txtNumber);
    press(number, Qt::Key_A, {}, "a");
    press(number, Qt::Key_Minus, {}, "-");
    press(number, Qt::Key_At, Qt::ControlModifier | Qt::AltModifier, "@");
    press(number, Qt::Key_5, Qt::KeypadModifier, "5");
    form.txtNumber.numeric = true;
    press(number, Qt::Key_Comma, Qt::KeypadModifier, ",");
    EXPECT_EQ(form.txtNumber.Text(), "a@5.");
    press(number, Qt::Key_Backspace);
    press(number, Qt::Key_Z, Qt::ControlModifier);
    press(number, Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(form.txtNumber.SelStart() + form.txtNumber.SelLength(), 3);
    EXPECT_GT(form.txtNumber.SelLength(), 0);
    press(number, Qt::Key_X, Qt::ControlModifier);
    press(number, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.txtNumber.Text(), "a@5");
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("é-ñ"));
    QApplication::sendEvent(&number, &composed);
    EXPECT_EQ(form.txtNumber.Text(), "a@5éñ");
    EXPECT_EQ(number.text(), "a@5éñ");
    auto& locked = part<QLineEdit>(window, "txtLocked");
    hands.focus(form.txtLocked);
    press(locked, Qt::Key_Delete);
    EXPECT_EQ(locked.text(), "fixed");
    EXPECT_EQ(window.focusWidget(), &locked);
    hands.focus(form.cboName);
    auto& name = *window.focusWidget();
    press(name, Qt::Key_Right, Qt::ControlModifier);
    QWheelEvent wheel({5, 5}, name.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&name, &wheel);
    EXPECT_EQ(form.cboName.ListIndex(), -1);
  });
}

TEST_F(Desktop, SuggestsItemsThatContainWhatIsTyped) {
  attend([this](ToyForm& form, QWidget& window) {
    hands.focus(form.cboName);
    QWidget& name = *window.focusWidget();
    press(name, Qt::Key_A, {}, "a");
    press(name, Qt::Key_S, {}, "s");
    QListView* offered = nullptr;
    for (QWidget* top : QApplication::topLevelWidgets())
      if (auto* list = qobject_cast<QListView*>(top); list != nullptr && list->isVisible()) offered = list;
    ASSERT_NE(offered, nullptr);
    QStringList texts;
    for (int row = 0; row < offered->model()->rowCount(); ++row)
      texts.append(offered->model()->index(row, 0).data().toString());
    EXPECT_EQ(texts, (QStringList{"Asha", "Basha"}));
    press(name, Qt::Key_Down);
    press(name, Qt::Key_Down);
    press(name, Qt::Key_Return);
    EXPECT_EQ(form.cboName.ListIndex(), 3);
    EXPECT_FALSE(offered->isVisible());
    EXPECT_EQ(form.cboName.SelStart(), 0) << "a long name shows its start";
    const std::string longName = "Zora " + std::string(30, 'm');
    form.cboName.AddItem(longName);
    hands.selectAll(form.cboName);
    press(name, Qt::Key_Z, {}, "z");
    EXPECT_GT(offered->width(), offered->fontMetrics().horizontalAdvance(QString::fromStdString(longName)));
    hands.choose(form.cboName, 4);
    EXPECT_EQ(form.cboName.ListIndex(), 4);
    EXPECT_EQ(form.cboName.SelStart(), 0);
    for (int more = 0; more < 1000; ++more) form.cboName.AddItem("Clerk " + std::to_string(more));
    hands.choose(form.cboName, 900);
    EXPECT_EQ(form.cboName.Text(), "Clerk 895");
  });
}

TEST_F(Desktop, TypesADateWithQtAndCountsItWhenLeft) {
  attend([this](ToyForm& form, QWidget& window) {
    hands.focus(form.dtpDay);
    auto& day = part<QDateEdit>(window, "dtpDay");
    day.setSelectedSection(QDateTimeEdit::MonthSection);
    for (const char* digit : {"0", "5"}) press(day, Qt::Key_0 + digit[0] - '0', {}, digit);
    EXPECT_EQ(*form.dtpDay.propertyText("Value"), "2006/04/30");
    log.clear();
    hands.focus(form.txtNumber);
    EXPECT_EQ(*form.dtpDay.propertyText("Value"), "2006/05/30");
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(log.front(), "dtpDay change 2006/05/30");
  });
}

TEST_F(Desktop, ScrollsAHundredThousandRows) {
  constexpr int rows = 100000;
  attend(
      [this](ToyForm& form, QWidget& window) {
        hands.turnPage(form.tabPages, 1);
        QElapsedTimer time;
        time.start();
        for (const int row : {99999, 0, 50000}) {
          hands.clickRow(form.grdRows, row, ui::MouseButton::Left);
          EXPECT_EQ(form.grdRows.currentRow(), row);
          window.grab();
        }
        for (int row = 1; row <= rows; ++row) form.grdRows.setCurrent(row, 0);
        windows.settle();
        EXPECT_EQ(part<QTableView>(window, "grdRows").currentIndex().row(), rows - 1);
        EXPECT_LT(time.elapsed(), 5000);
      },
      rows);
}

TEST_F(Desktop, ShowsMessagesAsTheirStylesSay) {
  const struct {
    ui::MessageStyle style;
    QMessageBox::Icon icon;
    ui::Answer answer;
  } cases[] = {{ui::MessageStyle::Critical, QMessageBox::Critical, ui::Answer::Ok},
               {ui::MessageStyle::AskCritical, QMessageBox::Critical, ui::Answer::No},
               {ui::MessageStyle::AskQuestion, QMessageBox::Question, ui::Answer::Yes},
               {ui::MessageStyle::Exclamation, QMessageBox::Warning, ui::Answer::Ok},
               {ui::MessageStyle::Information, QMessageBox::Information, ui::Answer::Ok},
               {ui::MessageStyle::AskInformation, QMessageBox::Information, ui::Answer::No},
               {ui::MessageStyle::AskQuestionNo, QMessageBox::Question, ui::Answer::Yes}};
  windows.setClerk(&clerk);
  for (const auto& one : cases) {
    clerk.says = one.answer;
    int seen = 0;
    clerk.atMessage = [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      ++seen;
      EXPECT_EQ(box->icon(), one.icon);
      EXPECT_EQ(box->text(), "<i>a</i> & b");
      EXPECT_EQ(box->windowTitle(), "Toy");
      EXPECT_EQ(box->buttons().size(), one.answer == ui::Answer::Ok ? 1 : 2);
    };
    EXPECT_EQ(windows.showMessage({"<i>a</i> & b", one.style, "Toy"}), one.answer);
    EXPECT_EQ(seen, 1);
  }
}

// Escape, the close box, then Enter.
TEST_F(Desktop, LeavesAQuestionOpenUntilAButtonAnswersIt) {
  const std::pair<ui::MessageStyle, ui::Answer> cases[] = {
      {ui::MessageStyle::AskInformation, ui::Answer::Yes},
      {ui::MessageStyle::AskCritical, ui::Answer::Yes},
      {ui::MessageStyle::AskQuestionNo, ui::Answer::No}};
  for (const auto& [style, entered] : cases) {
    int stayed = 0;
    QTimer::singleShot(5, &life, [&stayed] {
      QWidget* box = QApplication::activeModalWidget();
      QTest::keyClick(box->windowHandle(), Qt::Key_Escape);
      stayed += box->isVisible() ? 1 : 0;
      box->windowHandle()->close();
      stayed += box->isVisible() ? 1 : 0;
      QTest::keyClick(box->windowHandle(), Qt::Key_Return);
    });
    EXPECT_EQ(windows.showMessage({"Really?", style, "Toy"}), entered) << static_cast<int>(style);
    EXPECT_EQ(stayed, 2) << static_cast<int>(style);
  }
  for (const bool byKey : {true, false}) {
    QTimer::singleShot(5, &life, [byKey] {
      QWidget* box = QApplication::activeModalWidget();
      if (byKey)
        QTest::keyClick(box->windowHandle(), Qt::Key_Escape);
      else
        box->close();
      EXPECT_FALSE(box->isVisible());
    });
    EXPECT_EQ(windows.showMessage({"Done.", ui::MessageStyle::Information, "Toy"}), ui::Answer::Ok);
  }
}

// Without a clerk somebody at the screen works: here a timer that clicks in the window in front.
TEST_F(Desktop, WaitsForItsUser) {
  const auto form = std::make_shared<ToyForm>(windows, log);
  int turns = 0;
  const std::function<void()> user = [&] {
    if (!form->isLoaded()) return;
    QTimer::singleShot(5, &life, user);
    ++turns;
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
      return box->button(QMessageBox::Ok)->click();
    if (turns == 1) return form->input().click(form->cmdOk);  // fails, with a message
    if (turns > 3) windows.window(*form)->close();
  };
  QTimer::singleShot(5, &life, user);
  form->load();
  form->Show();
  EXPECT_FALSE(form->isLoaded());
  EXPECT_EQ(log.back(), "unload 0");
  EXPECT_EQ(windows.window(*form), nullptr);
}

// The same through the window system: modality, popups, focus and double clicks are Qt's there.
TEST_F(Desktop, TakesWhatTheWindowSystemSends) {
  attend([this](ToyForm& form, QWidget& window) {
    QWindow* handle = window.windowHandle();
    const auto click = [&](const char* name, QPoint at, bool twice = false) {
      const QPoint there = part<QWidget>(window, name).mapTo(&window, at);
      if (twice)
        QTest::mouseDClick(handle, Qt::LeftButton, {}, there);
      else
        QTest::mouseClick(handle, Qt::LeftButton, {}, there);
      windows.settle();
    };
    const auto strike = [&](Qt::Key key, Qt::KeyboardModifiers held = {}) {
      QTest::keyClick(handle, key, held);
      windows.settle();
    };
    click("chkHold", {8, 8});
    EXPECT_TRUE(form.chkHold.checked());
    strike(Qt::Key_H, Qt::AltModifier);
    EXPECT_FALSE(form.chkHold.checked());
    strike(Qt::Key_N, Qt::AltModifier);
    strike(Qt::Key_7);
    EXPECT_EQ(form.txtNumber.Text(), "7");
    strike(Qt::Key_Tab);
    EXPECT_EQ(form.ActiveControl(), &form.txtAmount);
    strike(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(form.ActiveControl(), &form.txtNumber);
    click("cmdOff", {5, 5});
    EXPECT_EQ(form.ActiveControl(), &form.txtNumber);
    log.clear();
    const QPoint row = part<QTableView>(window, "lvwItems").viewport()->pos() + QPoint(100, 5);
    click("lvwItems", row, true);
    EXPECT_EQ(std::count(log.begin(), log.end(), "lvwItems click"), 1);
    EXPECT_EQ(std::count(log.begin(), log.end(), "lvwItems double click"), 1);
    click("cboKind", {5, 5});
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QWindow* popup = QApplication::activePopupWidget()->windowHandle();
    for (const Qt::Key key : {Qt::Key_End, Qt::Key_Return}) QTest::keyClick(popup, key);
    windows.settle();
    EXPECT_EQ(form.cboKind.ListIndex(), 1);
    strike(Qt::Key_Escape);
    EXPECT_FALSE(form.isLoaded());
  });
}

TEST_F(Desktop, LeavesAtOnceWhenItsClerkFails) {
  const auto form = std::make_shared<ToyForm>(windows, log);
  clerk.work["frmPopup"] = [](ui::Form&) { throw std::logic_error("not as expected"); };
  clerk.work["frmToy"] = [&](ui::Form&) { hands.click(form->cmdMore); };
  windows.setClerk(&clerk);
  form->load();
  EXPECT_THROW(form->Show(), std::logic_error);
  EXPECT_EQ(windows.activeForm(), nullptr);
  EXPECT_FALSE(form->isLoaded());
  EXPECT_EQ(log.back(), "popup gone");
}

TEST_F(Desktop, PicturesItsWindowsInTheOrderOfTheirShowing) {
  const QTemporaryDir folder;
  windows.saveScreens((folder.path() + "/new").toStdString());
  clerk.work["frmPopup"] = [](ui::Form& popup) { popup.Unload(); };
  attend([this](ToyForm& form, QWidget&) {
    hands.click(form.cmdMore);
    form.lblAmount.Caption = "Other:";
    hands.click(form.cmdOk);
  });
  EXPECT_EQ(
      QDir(folder.path() + "/new").entryList(QDir::Files),
      (QStringList{"01-frmToy.png", "02-frmToy.png", "03-frmPopup.png", "04-frmToy.png", "05-message.png"}));
}

TEST(DatePattern, FollowsTheRegionWithAFourDigitYear) {
  const std::pair<const char*, const char*> cases[] = {
      {"M/d/yy", "MM/dd/yyyy"},     {"dd.MM.yy", "dd.MM.yyyy"}, {"yyyy-MM-dd", "yyyy-MM-dd"},
      {"d MMM yyyy", "dd/MM/yyyy"}, {"MM/yyyy", "dd/MM/yyyy"},  {"d 'de' M yyyy", "dd/MM/yyyy"},
      {"d/M/yyyy", "dd/MM/yyyy"},   {"", "dd/MM/yyyy"}};
  for (const auto& [region, pattern] : cases)
    EXPECT_EQ(desktop::numericDatePattern(QString::fromLatin1(region)), pattern) << region;
}

}  // namespace
}  // namespace payslate::tests
