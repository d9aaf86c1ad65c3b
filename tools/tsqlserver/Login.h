// How a client comes in: what both sides can do, then who it is.
#pragma once

#include <string>

#include "tools/tsqlserver/Tokens.h"

namespace payslate::tsqlserver {

/// Who may come in. Without a user, everybody.
struct Door {
  std::string user;
  std::string password;
};

/// Answers a client's first messages. False when it may not come in, which it has been told.
bool admitted(Packets& packets, const Door& door);

}  // namespace payslate::tsqlserver
