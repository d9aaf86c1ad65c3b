// One client, from its login to its leaving.
#pragma once

#include <string>

#include "tools/tsqlserver/Calls.h"
#include "tools/tsqlserver/Controls.h"
#include "tools/tsqlserver/Login.h"
#include "tools/tsqlserver/Packets.h"

namespace payslate::tsqlserver {

/// What all clients share.
struct House {
  std::string database;  ///< The file.
  Door door;
  Controls controls;
};

/// Serves until the client leaves or is left. Nothing escapes: what ends it badly is written to standard
/// error.
void serveClient(Packets& packets, House& house);

}  // namespace payslate::tsqlserver
