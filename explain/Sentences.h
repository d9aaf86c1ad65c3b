// How explanations are worded: plain data in, lines out.
#pragma once

#include <string>
#include <vector>

#include "component/Explanation.h"
#include "component/Origins.h"
#include "component/PayFacts.h"

namespace payslate {

using Lines = std::vector<ExplanationLine>;

std::string dateText(basic::Date date);

/// Code, text, each value that went in, what lost digits, the text as sent, the answer. The code may be
/// missing.
void explainFormula(Lines& lines, const FormulaOrigin& formula, const std::string& code);

/// Hours with their days where they are known, the rate and where it is from, what they come to.
void explainHours(Lines& lines, const HoursOrigin& hours, const std::vector<BookedHours>& booked);

/// Account, balance, instalment, which of the two is due, what remains behind the row and those above it that
/// are of the same account.
void explainAccount(Lines& lines, const char* kind, const std::string& account, const AccountFact& fact,
                    double taken, double takenAbove);
double dueOf(const AccountFact& account);

/// Every entry that kept back or paid out, before a date where one is given, and what that leaves.
void explainBalance(Lines& lines, const std::vector<EntryMovements>& movements);
double balanceOf(const std::vector<EntryMovements>& movements);

void explainBasicPay(Lines& lines, const BasicPayOrigin& origin);

/// Nothing where nobody changed it.
void explainChange(Lines& lines, const Origin& origin, const std::string& amount);
void explainTyping(Lines& lines, const std::string& amount, const std::string& before);

/// "by 150.75, to 100.00"
void explainLowering(Lines& lines, const std::string& actual, const std::string& settlement);

}  // namespace payslate
