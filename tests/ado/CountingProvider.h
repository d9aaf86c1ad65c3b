// A database that counts what is asked of it, over a real one: "counting:" before a connection string.
#pragma once

#include <string>

#include "platform/ado/Connection.h"

namespace payslate::ado {

/// Since the last openCounting.
struct Counts {
  int rows = 0;        ///< fetched by all cursors
  int baseTables = 0;  ///< questions for the table behind a statement
};

Counts& counts();

/// Opens `connection` on a counted database of the embedded engine, counts at 0.
void openCounting(Connection& connection, const std::string& database = ":memory:");

/// SQLSTATE of the ado::Error that `action` raises; "" when it raises none.
template <typename Action>
std::string stateOf(Action action) {
  try {
    action();
  } catch (const Error& error) {
    return error.SQLState;
  }
  return "";
}

/// Its description.
template <typename Action>
std::string messageOf(Action action) {
  try {
    action();
  } catch (const Error& error) {
    return error.Description;
  }
  return "";
}

}  // namespace payslate::ado
