// Exact decimal arithmetic at its edges.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/basic/Decimal.h"
#include "platform/basic/Error.h"

namespace payslate::basic {
namespace {

const std::string nines38(38, '9');

Decimal dec(const std::string& text) {
  return Decimal::parse(text);
}

template <typename Action>
void expectError(ErrorKind kind, const char* what, Action action) {
  try {
    action();
    ADD_FAILURE() << what << " was accepted";
  } catch (const ValueError& error) {
    EXPECT_EQ(error.kind(), kind) << what << ": " << error.what();
  }
}

TEST(Decimal, TextsKeepTheirScale) {
  struct Case {
    std::string text, written;
    int digits;
  };
  const std::string smallest = "0." + std::string(37, '0') + "1";
  for (const Case& c :
       {Case{" 1500.00 ", "1500.00", 6}, Case{"-0.5", "-0.5", 1}, Case{"+3", "3", 1},
        Case{"-0.00", "0.00", 1}, Case{".5", "0.5", 1}, Case{"7.", "7", 1},
        Case{"0001000000000", "1000000000", 10}, Case{nines38, nines38, 38}, Case{smallest, smallest, 1},
        Case{"1000000000.000000001", "1000000000.000000001", 19}}) {
    EXPECT_EQ(dec(c.text).text(), c.written);
    EXPECT_EQ(dec(c.text).digits(), c.digits) << c.text;
  }
  for (const char* bad : {"", " ", ".", "-", "1 2", "1,5", "1e3", "--1", "1.2.3", "abc"})
    expectError(ErrorKind::TypeMismatch, bad, [&] { dec(bad); });
  for (const std::string& large :
       {"1" + std::string(38, '0'), "0." + std::string(38, '0') + "1", nines38 + ".0"})
    expectError(ErrorKind::Overflow, large.c_str(), [&] { dec(large); });
}

TEST(Decimal, SumsAndProductsAreExact) {
  struct Case {
    std::string left;
    char sign;
    std::string right, result;
  };
  for (const Case& c :
       {Case{"0.1", '+', "0.20", "0.30"}, Case{"1000000000", '-', "0.000000001", "999999999.999999999"},
        Case{"1.5", '-', "1.50", "0.00"}, Case{"-2", '+', "0.5", "-1.5"}, Case{"-2.5", '-', "-3", "0.5"},
        Case{nines38, '-', nines38, "0"}, Case{"999999999", '+', "1", "1000000000"},
        Case{"-1.25", '*', "0.4", "-0.500"},
        Case{"9999999999999999999", '*', "9999999999999999999", "99999999999999999980000000000000000001"},
        Case{"0", '*', "-5", "0"}}) {
    const Decimal left = dec(c.left);
    const Decimal right = dec(c.right);
    const Decimal result = c.sign == '+' ? left + right : c.sign == '-' ? left - right : left * right;
    EXPECT_EQ(result.text(), c.result) << c.left << c.sign << c.right;
  }
  expectError(ErrorKind::Overflow, "sum", [] { dec(nines38) + dec("1"); });
  expectError(ErrorKind::Overflow, "aligned sum", [] { dec(nines38) + dec("0.1"); });
  expectError(ErrorKind::Overflow, "product", [] { dec(nines38) * dec("2"); });
}

TEST(Decimal, DivisionCutsAtTheScale) {
  struct Case {
    std::string left, right;
    int scale;
    std::string result;
  };
  const std::string third = "0." + std::string(38, '3');
  for (const Case& c :
       {Case{"1", "3", 38, third}, Case{"2", "3", 6, "0.666666"}, Case{"-2", "3", 2, "-0.66"},
        Case{"1", "-1000", 2, "0.00"}, Case{nines38, "1", 0, nines38}, Case{nines38, nines38, 6, "1.000000"},
        Case{"6.25", "0.5", 1, "12.5"}, Case{"10000000000000000000", "3333333333", 4, "3000000000.3000"},
        Case{"99999999999999999980000000000000000001", "9999999999999999999", 0, "9999999999999999999"},
        Case{"999999999999999999999999999", "1000000000000000001", 0, "999999999"},
        Case{third, "0." + std::string(37, '0') + "1", 0, std::string(38, '3')}, Case{third, "7", 2, "0.04"}})
    EXPECT_EQ(Decimal::divide(dec(c.left), dec(c.right), c.scale).text(), c.result)
        << c.left << " / " << c.right;
  EXPECT_THROW(Decimal::divide(dec("1"), dec("0.00"), 2), std::domain_error);
  expectError(ErrorKind::Overflow, "quotient", [] { Decimal::divide(dec(nines38), dec("0.1"), 0); });
}

// quotient * divisor + rest gives the dividend back, over operands that cross every limb boundary.
TEST(Decimal, DivisionAndProductAgree) {
  const std::vector<std::string> operands{"1",
                                          "9",
                                          "999999999",
                                          "1000000000",
                                          "1000000001",
                                          "999999999999999999",
                                          "1000000000000000000",
                                          "500000000499999999500000000",
                                          nines38,
                                          "10000000000000000000000000000000000001"};
  for (const std::string& a : operands)
    for (const std::string& b : operands) {
      const Decimal whole = Decimal::divide(dec(a), dec(b), 0);
      const Decimal rest = dec(a) - whole * dec(b);
      EXPECT_TRUE(!rest.isNegative() && rest < dec(b)) << a << " / " << b << " = " << whole.text();
    }
}

TEST(Decimal, RoundingTakesHalvesAwayFromZeroAndCuttingDoesNot) {
  struct Case {
    std::string text;
    int scale;
    std::string rounded, cut;
  };
  for (const Case& c :
       {Case{"1.005", 2, "1.01", "1.00"}, Case{"-1.005", 2, "-1.01", "-1.00"}, Case{"0.4999", 0, "0", "0"},
        Case{"-0.4", 0, "0", "0"}, Case{"999.995", 2, "1000.00", "999.99"},
        Case{"2.5", 4, "2.5000", "2.5000"}, Case{"0.00000000049", 9, "0.000000000", "0.000000000"}}) {
    EXPECT_EQ(dec(c.text).rounded(c.scale).text(), c.rounded);
    EXPECT_EQ(dec(c.text).truncated(c.scale).text(), c.cut);
  }
  EXPECT_FALSE(dec("-0.4").rounded(0).isNegative());
  expectError(ErrorKind::Overflow, "widening", [] { (void)dec(nines38).rounded(1); });
}

TEST(Decimal, DoublesComeInWithFifteenDigits) {
  struct Case {
    double number;
    int scale;
    std::string text;
  };
  for (const Case& c : {Case{1.005, 2, "1.01"}, Case{2.675, 2, "2.68"}, Case{-0.005, 2, "-0.01"},
                        Case{0.1 + 0.2, 15, "0.300000000000000"}, Case{1e20, 0, "100000000000000000000"},
                        Case{-0.0, 2, "0.00"}, Case{1e-300, 4, "0.0000"},
                        Case{123456789012345678.0, 1, "123456789012346000.0"}, Case{9.5e-5, 4, "0.0001"}})
    EXPECT_EQ(Decimal::fromDouble(c.number, c.scale).text(), c.text) << c.number;
  EXPECT_EQ(dec("866.666666666667").toDouble(), 866.666666666667);
  for (const double bad :
       {1e38, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()})
    expectError(ErrorKind::Overflow, "double", [&] { Decimal::fromDouble(bad, 2); });
}

TEST(Decimal, WholeNumbersAndOrder) {
  constexpr auto least = std::numeric_limits<std::int64_t>::min();
  EXPECT_EQ(Decimal::fromInteger(least).toInteger(), least);
  EXPECT_EQ(dec("-7.99").toInteger(), -7);
  expectError(ErrorKind::Overflow, "64 bits", [] { (void)dec("9223372036854775808").toInteger(); });
  const std::vector<std::string> rising{"-" + nines38, "-1.5", "-1.49", "0.0",
                                        "0.000001",    "1.5",  "1.51",  nines38};
  for (std::size_t i = 1; i < rising.size(); ++i) EXPECT_LT(dec(rising[i - 1]), dec(rising[i])) << rising[i];
  EXPECT_EQ(dec("1.50"), dec("1.5"));
  EXPECT_EQ(dec("-0.0"), dec("0"));
}

}  // namespace
}  // namespace payslate::basic
