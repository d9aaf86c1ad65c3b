// What a user's action sets off, in which order, and what refuses it.
#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>

#include "tests/ui/TestForm.h"

namespace payslate::ui {
namespace {

class InputTest : public ::testing::Test {
 protected:
  // Shows the form to a user who does this, and returns what was logged meanwhile.
  Log perform(const std::function<void(TestForm&)>& work) {
    const auto form = std::make_shared<TestForm>(desktop);
    prepare(*form);
    desktop.MessageTitle = "Title";
    desktop.user = [&](Form& shown) {
      if (&shown != form.get()) return;
      desktop.log.clear();
      work(*form);
      logged = desktop.log;
    };
    form->load();
    form->Show();
    desktop.user = {};
    return logged;
  }

  TestDesktop desktop;
  std::function<void(TestForm&)> prepare = [](TestForm&) {};
  Log logged;
};

TEST_F(InputTest, AKeyGoesThroughFormControlFilterEditAndRelease) {
  prepare = [this](TestForm& form) {
    form.KeyPreview = true;
    form.KeyDown = [this](int& code, int) { desktop.log.push_back("form down " + std::to_string(code)); };
    form.KeyPress = [this](int& ascii) { desktop.log.push_back("form press " + std::to_string(ascii)); };
    form.first.KeyPress = [](int& ascii) {
      if (ascii == 'x') ascii = 0;
      if (ascii == 'y') ascii = 'Y';
    };
  };
  EXPECT_EQ(perform([](TestForm& form) { form.input().type(U"ay"); }),
            (Log{"form down 65", "first down 65", "form press 97", "first=a", "first up 65", "form down 89",
                 "first down 89", "form press 121", "first=aY", "first up 89"}));
  EXPECT_EQ(perform([](TestForm& form) { form.input().type(U"x"); }),
            (Log{"form down 88", "first down 88", "form press 120", "first up 88"}));
  // Pasting passes the same filter; it is no key.
  EXPECT_EQ(perform([](TestForm& form) { form.input().paste(U"xy\n1"); }),
            (Log{"form press 120", "form press 121", "form press 49", "first=Y1", "first up 86"}));
  EXPECT_EQ(perform([](TestForm& form) {
              form.input().focus(form.combo);
              form.log.clear();
              form.combo.setItems({{"Ash", 1}, {"Asha", 2}});
              form.input().paste(U"asha\r\n");
            }),
            (Log{"form press 97", "form press 115", "form press 104", "form press 97", "combo change asha",
                 "combo click 1"}));
}

TEST_F(InputTest, ALongTextIsPastedInOneGoAsFarAsThereIsRoom) {
  const std::u32string pasted = U"\u00E9" + std::u32string(79999, U'b');
  int asked = 0;
  prepare = [&](TestForm& form) {
    form.first.Text = "\u00E9[\u00E9\u00E9]\u00E9";
    form.first.KeyPress = [&](int& ascii) {
      // Between the brackets stands what passed before.
      EXPECT_EQ(form.first.SelStart(), ++asked + 1);
      EXPECT_EQ(form.first.SelLength(), asked > 1 ? 0 : 2);
      if (ascii == 'c') throw std::runtime_error("no c");
    };
  };
  const auto started = std::chrono::steady_clock::now();
  perform([&](TestForm& form) {
    form.first.Select(2, 2);
    form.input().paste(pasted);
    EXPECT_EQ(form.first.Text().size(), 80007U);
    EXPECT_TRUE(form.first.Text().starts_with("\u00E9[\u00E9bb"));
    EXPECT_TRUE(form.first.Text().ends_with("bb]\u00E9"));
    EXPECT_EQ(form.first.SelStart(), 80002);
  });
  EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(5));
  EXPECT_EQ(asked, 80000);
  asked = 0;
  EXPECT_EQ(perform([&](TestForm& form) {
              form.first.MaxLength = 6;
              form.first.Select(2, 2);
              form.input().paste(U"\n1\n234");
              form.first.MaxLength = 7;
              asked = 2;
              form.first.Select(4, 0);
              form.input().paste(U"cd");
              form.first.Locked = true;
              form.input().paste(U"e");
            }),
            (Log{"first=\u00E9[12]\u00E9", "first up 86", "message Title: no c", "first up 86"}));
}

TEST_F(InputTest, KeysEditTheSelection) {
  const struct {
    const char* text;
    int start;
    int length;
    const char* key;
    const char* result;
    int caret;
  } cases[] = {
      {"abc", 1, 1, "x", "axc", 2},
      {"abc", 3, 0, "Backspace", "ab", 2},
      {"abc", 0, 0, "Backspace", "abc", 0},
      {"abc", 0, 3, "Backspace", "", 0},
      {"abc", 1, 0, "Delete", "ac", 1},
      {"abc", 3, 0, "Delete", "abc", 3},
      {"a\u00E9c", 1, 1, "x", "axc", 2},
      {"abc", 0, 0, "End", "abc", 3},
      {"abc", 2, 0, "Shift+Home", "abc", 0},
      {"abc", 0, 0, ".", ".abc", 1},
      {"abc", 1, 0, "Ctrl+X", "abc", 1},
      {"abc", 0, 0, "\u00E9",
       "\u00E9"
       "abc",
       1},
  };
  for (const auto& one : cases) {
    perform([&](TestForm& form) {
      form.first.Text = one.text;
      form.first.Select(one.start, one.length);
      form.input().key(*Key::named(one.key));
      EXPECT_EQ(form.first.Text(), one.result) << one.key;
      EXPECT_EQ(form.first.SelStart(), one.caret) << one.key;
    });
  }
  perform([](TestForm& form) {
    form.first.MaxLength = 3;
    form.input().type(U"abcd");
    EXPECT_EQ(form.first.Text(), "abc");
    form.first.Locked = true;
    form.input().key(*Key::named("Backspace"));
    EXPECT_EQ(form.first.Text(), "abc");
  });
}

TEST_F(InputTest, TheFocusFollowsReadingOrderAndCanBeRefused) {
  perform([](TestForm& form) {
    form.combo.Enabled = false;
    form.frame.Visible = true;
    const char* order[] = {"second", "check", "tab", "list", "one", "two", "ok", "first"};
    for (const char* name : order) {
      form.input().key({KeyCode::Tab});
      EXPECT_EQ(form.ActiveControl()->Name(), name);
    }
    form.input().key(*Key::named("Shift+Tab"));
    EXPECT_EQ(form.ActiveControl()->Name(), "ok");
    form.frame.Enabled = false;
    form.input().click(form.check);
    EXPECT_FALSE(form.check.checked());
    form.input().focus(form.grid);  // its page is behind
    EXPECT_EQ(form.ActiveControl()->Name(), "ok");
  });
  prepare = [](TestForm& form) {
    form.first.Validate = [&form](bool& cancel) {
      cancel = form.first.Text() == "bad";
      if (cancel) form.first.SetFocus();
    };
  };
  EXPECT_EQ(perform([](TestForm& form) {
              form.input().type(U"bad");
              form.log.clear();
              form.input().click(form.ok);
              form.input().key({KeyCode::Tab});
              form.second.SetFocus();
              form.first.Text = "good";
              form.input().click(form.ok);
            }),
            (Log{"first=good", "first lost", "ok"}));
  // A control that is disabled while it has the focus hands it on unasked.
  EXPECT_EQ(perform([](TestForm& form) {
              form.first.Text = "bad";
              form.first.Enabled = false;
            }),
            (Log{"first=bad", "first lost", "second got"}));
}

TEST_F(InputTest, MnemonicsPressWhatIsShown) {
  EXPECT_EQ(perform([](TestForm& form) {
              form.input().focus(form.second);
              form.log.clear();
              form.input().key(*Key::named("Alt+F"));
              form.input().key(*Key::named("Alt+W"));
              form.input().key(*Key::named("Alt+O"));
              form.ok.Enabled = false;
              form.log.pop_back();
              form.input().key(*Key::named("Alt+O"));
            }),
            (Log{"second down 70", "second lost", "first got", "second up 70", "first down 87", "first lost",
                 "two", "first up 87", "ok", "first down 79", "first up 79"}));
}

TEST_F(InputTest, SentKeysArriveAfterTheActionAndOnlyInTheirForm) {
  prepare = [this](TestForm& form) {
    form.first.KeyPress = [this](int&) { desktop.sendKeys({KeyCode::Tab}); };
  };
  EXPECT_EQ(perform([](TestForm& form) { form.input().key(*Key::named("Enter")); }),
            (Log{"first down 13", "first up 13", "first lost", "second got"}));
  prepare = [this](TestForm& form) {
    form.first.KeyPress = [this, &form](int&) {
      desktop.sendKeys({KeyCode::Tab});
      form.Unload();
    };
  };
  perform([](TestForm& form) { form.input().type(U"a"); });
  Key left;
  const auto other = std::make_shared<TestForm>(desktop);
  EXPECT_FALSE(desktop.takeSentKey(*other, left));
}

TEST_F(InputTest, ErrorsBecomeMessagesAndTheFormStaysUsable) {
  prepare = [](TestForm& form) { form.ok.Click = [] { throw std::runtime_error("no luck"); }; };
  EXPECT_EQ(perform([](TestForm& form) {
              form.input().click(form.ok);
              form.input().click(form.one);
            }),
            (Log{"first lost", "message Title: no luck", "one"}));
}

TEST_F(InputTest, AFormIsMadeAfreshAndItsLoadErrorGoesToWhoShowedIt) {
  int made = 0;
  FormSlot<TestForm> slot([&] {
    auto form = std::make_shared<TestForm>(desktop);
    const bool fails = ++made == 1;
    form->Load = [fails] {
      if (fails) throw std::runtime_error("no table");
    };
    return form;
  });
  EXPECT_THROW(slot.get().Show(), std::runtime_error);
  EXPECT_FALSE(slot.isLoaded());
  TestForm& second = slot.get();
  EXPECT_EQ(&second, &slot.get());
  second.Unload();
  EXPECT_FALSE(slot.isLoaded());
  slot.get();
  EXPECT_EQ(made, 3);
}

TEST_F(InputTest, ClosingAsksTheFormOnceAndTheOneBehindBecomesActive) {
  const auto inner = std::make_shared<TestForm>(desktop);
  inner->QueryUnload = [&](bool& cancel, UnloadMode mode) {
    desktop.log.push_back(mode == UnloadMode::CloseBox ? "box" : "code");
    EXPECT_FALSE(inner->Unload());  // under way already
    cancel = inner->first.Text().empty();
  };
  const auto outer = std::make_shared<TestForm>(desktop);
  outer->Activate = [this] { desktop.log.push_back("outer active"); };
  desktop.user = [&](Form& shown) {
    if (&shown == inner.get()) {
      shown.input().close();
      EXPECT_TRUE(shown.isLoaded());
      inner->first.Text = "1";
      shown.Unload();
      EXPECT_FALSE(shown.isLoaded());
      return;
    }
    desktop.log.clear();
    inner->load();
    inner->Show();
    logged = desktop.log;
  };
  outer->load();
  outer->Show();
  EXPECT_EQ(logged, (Log{"first got", "box", "first=1", "code", "outer active"}));
}

}  // namespace
}  // namespace payslate::ui
