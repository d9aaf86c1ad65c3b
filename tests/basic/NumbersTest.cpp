// Reading, narrowing and writing numbers.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "platform/basic/Error.h"
#include "platform/basic/Numbers.h"

namespace payslate::basic {
namespace {

using namespace std::string_literals;

template <typename Action>
void expectError(ErrorKind kind, const std::string& what, Action action) {
  try {
    action();
    ADD_FAILURE() << what << " was accepted";
  } catch (const ValueError& error) {
    EXPECT_EQ(error.kind(), kind) << what << ": " << error.what();
  }
}

TEST(Numbers, ValReadsTheLeadingNumber) {
  struct Case {
    const char* text;
    double number;
    bool numeric;  // the whole text is one number
  };
  for (const Case& c : {Case{"", 0, false},           Case{"abc", 0, false},      Case{"1.5abc", 1.5, false},
                        Case{".5", 0.5, true},        Case{"-.5", -0.5, true},    Case{"1e3", 1000, true},
                        Case{"1e", 1, false},         Case{"1e+", 1, false},      Case{"1E-2x", 0.01, false},
                        Case{" 12 ", 12, true},       Case{"1 234", 1234, false}, Case{"- 5", -5, false},
                        Case{"+5", 5, true},          Case{"5.", 5, true},        Case{".", 0, false},
                        Case{"-", 0, false},          Case{"--5", 0, false},      Case{"1.2.3", 1.2, false},
                        Case{"1,5", 1, false},        Case{"1e-999", 0, true},    Case{"\t5", 0, false},
                        Case{"0x10", 0, false},       Case{"nan", 0, false},      Case{"inf", 0, false},
                        Case{"28000.00", 28000, true}}) {
    EXPECT_EQ(Val(c.text), c.number) << c.text;
    EXPECT_EQ(IsNumeric(c.text), c.numeric) << c.text;
  }
  EXPECT_FALSE(std::signbit(Val("-0")));
  EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0);
  expectError(ErrorKind::Overflow, "1e999", [] { Val("1e999"); });
}

TEST(Numbers, WholeNumbersTakeHalvesToTheEvenNeighbour) {
  struct Case {
    Value value;
    int number;
  };
  for (const Case& c :
       {Case{0.5, 0}, Case{1.5, 2}, Case{2.5, 2}, Case{-0.5, 0}, Case{-1.5, -2}, Case{-2.5, -2},
        Case{32767.49, 32767}, Case{-32768.5, -32768}, Case{Decimal::parse("2.50"), 2},
        Case{Decimal::parse("-3.5"), -4}, Case{Decimal::parse("1.49999999999999999999"), 1},
        Case{Decimal::parse("2.50000000000000000001"), 3}, Case{" -12.5 "s, -12}, Case{"1e2"s, 100},
        Case{true, -1}, Case{std::int64_t{7}, 7}, Case{Date(3.5), 4}}) {
    EXPECT_EQ(CInt(c.value), c.number) << textOf(c.value);
    EXPECT_EQ(CLng(c.value), c.number) << textOf(c.value);
  }
  EXPECT_EQ(CLng(2147483647.5 - 1), 2147483646);
}

TEST(Numbers, WholeNumbersOutsideTheirRangeAreErrors) {
  for (const Value& value :
       {Value(32767.5), Value(-32769.0), Value("40000"s), Value(std::int64_t{32768}),
        Value(Decimal::parse("32767.5")), Value(std::numeric_limits<double>::quiet_NaN())})
    expectError(ErrorKind::Overflow, "CInt", [&] { CInt(value); });
  for (const Value& value : {Value(2147483647.5), Value(-2147483649.0), Value("1e10"s)})
    expectError(ErrorKind::Overflow, "CLng", [&] { CLng(value); });
  for (const char* text : {"", "abc", "1.5x", "1 2"}) {
    expectError(ErrorKind::TypeMismatch, text, [&] { CInt(std::string(text)); });
    expectError(ErrorKind::TypeMismatch, text, [&] { CDbl(std::string(text)); });
    expectError(ErrorKind::TypeMismatch, text, [&] { CBool(std::string(text)); });
    EXPECT_EQ(numberOrZero(text), 0);
  }
  expectError(ErrorKind::TypeMismatch, "Null", [] { CLng(Null{}); });
  expectError(ErrorKind::TypeMismatch, "Null", [] { CBool(Null{}); });
  EXPECT_EQ(numberOrZero(" 245 "), 245);
}

TEST(Numbers, Flags) {
  struct Case {
    Value value;
    bool flag;
  };
  for (const Case& c : {Case{"TRUE"s, true}, Case{" false "s, false}, Case{"0.0"s, false}, Case{"-1"s, true},
                        Case{0.1, true}, Case{Decimal::parse("0.00"), false}, Case{std::int64_t{0}, false}})
    EXPECT_EQ(CBool(c.value), c.flag) << textOf(c.value);
}

TEST(Numbers, FormatRoundsTheDecimalForm) {
  struct Case {
    double number;
    const char* pattern;
    const char* text;
  };
  for (const Case& c : {Case{1.005, "0.00", "1.01"},
                        Case{2.675, "0.00", "2.68"},
                        Case{-1.005, "0.00", "-1.01"},
                        Case{0.005, "0.00", "0.01"},
                        Case{0.004999, "0.00", "0.00"},
                        Case{-0.004, "0.00", "0.00"},
                        Case{-0.0, "0.00", "0.00"},
                        Case{0.00004, "#0.00", "0.00"},
                        Case{999.995, "#0.00", "1000.00"},
                        Case{99999999.999, "########0.00", "100000000.00"},
                        Case{0.5, "#.00", ".50"},
                        Case{0.5, "0", "1"},
                        Case{2.5, "0", "3"},
                        Case{0.05, "0", "0"},
                        Case{7, "000", "007"},
                        Case{1.5, "0.0##", "1.5"},
                        Case{1.23456, "0.0##", "1.235"},
                        Case{1e15, "0.00", "1000000000000000.00"},
                        Case{1e-300, "0.00", "0.00"},
                        Case{28000, "########0.00", "28000.00"}})
    EXPECT_EQ(Format(c.number, c.pattern), c.text) << c.number << " in " << c.pattern;
  for (const char* pattern : {"0,000.00", "0.0.0", "yyyy"})
    expectError(ErrorKind::TypeMismatch, pattern, [&] { Format(1, pattern); });
  expectError(ErrorKind::Overflow, "infinity",
              [] { Format(std::numeric_limits<double>::infinity(), "0.00"); });
}

TEST(Numbers, GeneralTextHasFifteenDigits) {
  struct Case {
    double number;
    const char* text;
  };
  for (const Case& c :
       {Case{24000, "24000"}, Case{2600.0 / 3, "866.666666666667"}, Case{0.1 + 0.2, "0.3"}, Case{-0.0, "0"},
        Case{-1.5, "-1.5"}, Case{100000, "100000"}, Case{999999999999999.0, "999999999999999"},
        Case{1e15, "1E+15"}, Case{-1.25e20, "-1.25E+20"}, Case{0.0001, "0.0001"}, Case{0.00001, "0.00001"},
        Case{1.0 / 3, "0.333333333333333"}, Case{1.0 / 30000, "3.33333333333333E-05"},
        Case{1.5e-200, "1.5E-200"}, Case{0.999999999999999999, "1"}, Case{99999.99, "99999.99"}})
    EXPECT_EQ(numberText(c.number), c.text);
}

TEST(Numbers, ValuesJoinToText) {
  struct Case {
    Value value;
    const char* text;
  };
  for (const Case& c :
       {Case{Null{}, ""}, Case{true, "True"}, Case{false, "False"}, Case{std::int64_t{-5}, "-5"},
        Case{2.50, "2.5"}, Case{Decimal::parse("1500.00"), "1500"}, Case{Decimal::parse("-0.50"), "-0.5"},
        Case{Decimal::parse("100"), "100"}, Case{Date(38837), "30/04/2006"}, Case{" x "s, " x "}})
    EXPECT_EQ(textOf(c.value), c.text);
}

TEST(Numbers, NamesCompareWithoutCase) {
  EXPECT_TRUE(sameName("emhNo", "EMHNO"));
  EXPECT_FALSE(sameName("emhNo", "emhNo "));
  EXPECT_EQ(upper("aZ1_\xC3\xA9"), "AZ1_\xC3\x89");
  EXPECT_EQ(lower("AZ["), "az[");
  EXPECT_EQ(Trim("  \ta b "), "\ta b");
}

}  // namespace
}  // namespace payslate::basic
