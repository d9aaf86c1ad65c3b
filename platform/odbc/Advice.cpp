// Advice by SQLSTATE, and by the native codes that drivers report under a general one.
#include "platform/odbc/Advice.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace payslate::odbc {
namespace {

constexpr const char* refused = "The login was refused: check user name and password.";
constexpr const char* unreachable =
    "The server cannot be reached: check its name, its port and the network, and whether it runs.";
constexpr const char* lost =
    "The connection to the database is lost, and what was not committed is undone. The program that opened the "
    "connection has to open it again.";
constexpr const char* inTheWay = "Another user's work was in the way, and nothing was stored. Try again.";
constexpr const char* busy = "Another user keeps the rows busy, or the server. Try again in a moment.";
constexpr const char* taken =
    "Another user may have stored the same at the same moment. Look at the list of entries, then try again.";
constexpr const char* noDriver =
    "Name an installed driver (Driver=) or a configured data source (DSN=) in the connection string.";

constexpr std::int32_t anyCode = 0;

struct Advice {
  std::string_view state;  ///< How the SQLSTATE begins; "" for any.
  std::int32_t native;
  const char* sentence;
};

constexpr Advice table[] = {
    {"", 18456, refused},
    {"28", anyCode, refused},
    {"IM", anyCode, noDriver},
    {"01000", 0, noDriver},
    {"08001", anyCode, unreachable},
    {"08", anyCode, lost},
    {"", 1205, inTheWay},
    {"40", anyCode, inTheWay},
    {"", 1222, busy},
    {"HYT", anyCode, busy},
    {"", 2601, taken},
    {"", 2627, taken},
    {"23505", anyCode, taken},
};

}  // namespace

std::string adviceFor(const std::string& state, std::int32_t native) {
  const Advice* const found = std::find_if(std::begin(table), std::end(table), [&](const Advice& advice) {
    return state.starts_with(advice.state) && (advice.native == anyCode || advice.native == native);
  });
  return found == std::end(table) ? std::string() : found->sentence;
}

}  // namespace payslate::odbc
