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
constexpr const char* uncertain =
    "The connection to the database was lost while the work was being stored: it may be there or not. The program that "
    "opened the connection has to open it again; look whether the work is there before it is stored once more.";
constexpr const char* inTheWay = "Another user's work was in the way, and nothing was stored. Try again.";
constexpr const char* busy = "Another user keeps the rows busy, or the server. Try again in a moment.";
constexpr const char* taken =
    "Another user may have stored the same at the same moment. Look at the list of entries, then try again.";
constexpr const char* noDriver =
    "Name an installed driver (Driver=) or a configured data source (DSN=) in the connection string.";

constexpr std::int32_t anyCode = 0;

struct Advice {
  Doing doing;             ///< Working stands for any time.
  std::string_view state;  ///< How the SQLSTATE begins; "" for any.
  std::int32_t native;
  const char* sentence;
};

// The first that fits.
constexpr Advice table[] = {
    {Doing::Connecting, "", 18456, refused},
    {Doing::Connecting, "28", anyCode, refused},
    {Doing::Connecting, "IM", anyCode, noDriver},
    {Doing::Connecting, "01000", anyCode, noDriver},
    {Doing::Connecting, "08", anyCode, unreachable},
    {Doing::Connecting, "HYT", anyCode, unreachable},
    {Doing::Committing, "08", anyCode, uncertain},
    {Doing::Committing, "HYT", anyCode, uncertain},
    {Doing::Working, "08", anyCode, lost},
    {Doing::Working, "", 1205, inTheWay},
    {Doing::Working, "40", anyCode, inTheWay},
    {Doing::Working, "", 1222, busy},
    {Doing::Working, "HYT", anyCode, busy},
    {Doing::Working, "", 2601, taken},
    {Doing::Working, "", 2627, taken},
    {Doing::Working, "23505", anyCode, taken},
};

}  // namespace

std::string adviceFor(const std::string& state, std::int32_t native, Doing doing) {
  const Advice* const found = std::find_if(std::begin(table), std::end(table), [&](const Advice& advice) {
    return (advice.doing == Doing::Working || advice.doing == doing) && state.starts_with(advice.state) &&
           (advice.native == anyCode || advice.native == native);
  });
  return found == std::end(table) ? std::string() : found->sentence;
}

}  // namespace payslate::odbc
