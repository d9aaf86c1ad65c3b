// The helper objects that a form holds.
#pragma once

#include <memory>

#include "platform/common/CommonDB.h"
#include "platform/common/CommonGen.h"

namespace payslate {

struct Session;

/// A pair for each form, made in its load handler and released with it.
struct FormHelpers {
  std::unique_ptr<common::CommonGen> objCommonGen;
  std::unique_ptr<common::CommonDB> objCommonDB;

  /// Makes both by their registered names (afresh when there was a pair) and hands over the connection.
  void create(Session& session);
};

}  // namespace payslate
