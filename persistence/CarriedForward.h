// Salary carried forward from one month to a later one: movements of entries, and their balance.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/basic/Date.h"

namespace payslate {

struct Session;

/// Salary still owed to the employee from entries dated before the date, in whole cents; negative when more
/// was paid out than withheld.
void fnGetCarryForwardBalance(Session& session, std::int32_t employeeId, basic::Date before, double& balance);

/// Values of ecdMode. Any other than PaidOut counts as kept back.
enum class MovementMode : std::int16_t { PaidOut = -1, KeptBack = 1 };

struct Movement {
  MovementMode mode = MovementMode::KeptBack;
  std::string amount;  ///< As lists show it.
  std::string symbol;  ///< Of the employee's currency.
};

/// The movements of a live entry.
std::vector<Movement> readMovements(Session& session, std::int32_t entryId);

/// Writes one movement of an entry; `detailId` numbers them from 1. Inside the caller's transaction.
void fnAddCarryForwardRow(Session& session, std::int32_t entryId, std::int16_t detailId, double amount,
                          MovementMode mode);
/// Deletes the movements of an entry. Inside the caller's transaction.
void fnDeleteCarryForward(Session& session, std::int32_t entryId);

}  // namespace payslate
