// What controls do when a program or a user changes them.
#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/ui/TestForm.h"

namespace payslate::ui {
namespace {

class ControlsTest : public ::testing::Test {
 protected:
  Log taken() { return std::exchange(desktop.log, {}); }

  TestDesktop desktop;
  TestForm form{desktop};
};

TEST_F(ControlsTest, ACombosSelectionAndItsTypingAreToldApart) {
  form.combo.setItems({{"Asha", 245}, {"Ash", 246}, {"Bram", 247}});
  form.combo.setListIndex(2);
  form.combo.setListIndex(2);
  EXPECT_EQ(form.combo.Text(), "Bram");
  EXPECT_EQ(taken(), (Log{"combo click 2"}));
  form.combo.typeText("As");
  EXPECT_EQ(form.combo.ListIndex(), -1);
  form.combo.typeText("Ash");
  EXPECT_EQ(form.combo.ItemData(form.combo.ListIndex()), 246);
  EXPECT_EQ(taken(), (Log{"combo change As", "combo change Ash", "combo click 1"}));
  form.combo.setText("anything");
  EXPECT_EQ(form.combo.ListIndex(), -1);
  EXPECT_EQ(taken(), Log{});
  EXPECT_THROW(form.combo.setListIndex(3), std::out_of_range);
  form.combo.keyAction({KeyCode::Down});
  EXPECT_EQ(form.combo.Text(), "Asha");
}

TEST_F(ControlsTest, ATypedNameFindsItsItemInAnyCase) {
  form.combo.setItems({{"Ångström", 1}, {"anna", 2}, {"Anna", 3}, {"Annabel", 4}});
  struct Case {
    const char* typed;
    int index;
    const char* shown;
  };
  for (const Case& c : {Case{"åNGSTRÖM", 0, "Ångström"}, Case{"anna", 1, "anna"}, Case{"Anna", 2, "Anna"},
                        Case{"ANNA", 1, "anna"}, Case{"annab", -1, "annab"}, Case{"", -1, ""}}) {
    form.combo.typeText(c.typed);
    EXPECT_EQ(form.combo.ListIndex(), c.index) << c.typed;
    EXPECT_EQ(form.combo.Text(), c.shown) << c.typed;
  }
  // Typed on, the name that was met on the way is left behind.
  form.combo.typeText("");
  taken();
  for (const char letter : std::string("aNNABEL"))
    form.combo.keyAction(Key::typing(static_cast<char32_t>(letter)));
  EXPECT_EQ(form.combo.Text(), "Annabel");
  EXPECT_EQ(form.combo.SelStart(), 7);
  EXPECT_EQ(form.combo.ItemData(form.combo.ListIndex()), 4);
}

TEST_F(ControlsTest, OptionsExcludeEachOtherAndOnlyTheChosenOneClicks) {
  form.one.Value = true;
  form.two.Value = true;
  EXPECT_FALSE(form.one.Value());
  form.two.Value = true;
  EXPECT_EQ(taken(), (Log{"one", "two"}));
}

TEST_F(ControlsTest, AListKeepsARowSelectedWhileItHasOne) {
  for (const char* name : {"a", "b", "c"}) form.list.addRow({"1", name});
  EXPECT_EQ(form.list.SelectedItem(), 0);
  form.list.select(2);
  form.list.removeRow(2);
  EXPECT_EQ(form.list.SelectedItem(), 1);
  form.list.removeRow(0);
  EXPECT_EQ(form.list.cellText(form.list.SelectedItem(), 1), "b");
  form.list.setChecked(0, true);
  EXPECT_EQ(taken(), Log{});
  form.list.userChecks(0);
  EXPECT_FALSE(form.list.isChecked(0));
  EXPECT_EQ(taken(), (Log{"check 0"}));
  form.list.setCell(0, 4, "late");
  EXPECT_EQ(form.list.cellText(0, 4), "late");
  EXPECT_EQ(form.list.cellText(0, 3), "");
  form.list.removeRow(0);
  EXPECT_EQ(form.list.SelectedItem(), -1);
}

TEST_F(ControlsTest, AGridSortsNumbersBeforeTextsAndMovesColoursWithRows) {
  form.grid.setColumns(2);
  form.grid.setFormatString("|>Entry No      ");
  EXPECT_EQ(form.grid.TextMatrix(0, 1), "Entry No");
  EXPECT_EQ(form.grid.columns()[1].alignment, Alignment::Right);
  form.grid.setRows({{"1", "b"}, {"2", "10"}, {"3", "A"}, {"4", "9"}, {"5", "a"}});
  taken();
  form.grid.setCurrent(3, 0);
  form.grid.setCellColor(Grid::red);
  form.grid.setCurrent(3, 1);
  form.grid.setCurrent(3, 1);
  form.grid.setCellColor(Grid::red);
  EXPECT_EQ(taken(), (Log{"enter 3", "enter 3"}));
  const auto order = [this] {
    std::string ids;
    for (int row = 1; row < form.grid.Rows(); ++row) ids += form.grid.TextMatrix(row, 0);
    return ids;
  };
  form.grid.Sort(SortOrder::GenericAscending);
  EXPECT_EQ(order(), "42351");
  EXPECT_TRUE(form.grid.isRed(2));
  EXPECT_EQ(form.grid.Row(), 3);
  form.grid.Sort(SortOrder::GenericDescending);
  EXPECT_EQ(order(), "13524");
  EXPECT_FALSE(form.grid.isRed(0));
  form.grid.clear(1);
  EXPECT_EQ(form.grid.Rows(), 2);
  EXPECT_EQ(form.grid.Row(), 1);
}

TEST_F(ControlsTest, KeysAreReadByName) {
  const struct {
    const char* name;
    int code;
    int shift;
    int character;
  } cases[] = {
      {"Enter", 13, 0, 13},
      {"ctrl+enter", 13, Shift::Ctrl, 10},
      {"Ctrl+D", 'D', Shift::Ctrl, 4},
      {"F12", 123, 0, 0},
      {"a", 'A', 0, 'a'},
      {"+", 0, 0, '+'},
      {"Delete", 46, 0, 0},
      {".", 0, 0, '.'},
      {"Shift+Tab", 9, Shift::ShiftKey, 0},
      {"Alt+O", 'O', Shift::Alt, 0},
  };
  for (const auto& one : cases) {
    const auto key = Key::named(one.name);
    ASSERT_TRUE(key) << one.name;
    EXPECT_EQ(key->code, one.code) << one.name;
    EXPECT_EQ(key->shift, one.shift) << one.name;
    EXPECT_EQ(key->character, one.character) << one.name;
  }
  for (const char* bad : {"", "F13", "F0", "Entr", "Ctrl+", "ab"}) EXPECT_FALSE(Key::named(bad)) << bad;
}

}  // namespace
}  // namespace payslate::ui
