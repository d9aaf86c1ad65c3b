// Procedure calls: statements with parameters, prepared ones, and the little of the catalogue that is known.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "tools/tsqlserver/Parameters.h"
#include "tools/tsqlserver/Statements.h"

namespace payslate::tsqlserver {

class Calls {
 public:
  Calls(Statements& statements, Controls& controls) : statements_(statements), controls_(controls) {}

  /// Performs the calls of one message, one after the other. ado::Error when they cannot be read.
  void perform(Reader message, Reply& reply);

 private:
  struct Prepared {
    std::string text;
    std::vector<std::string> names;  ///< Of its parameters, in order.
  };
  struct Call {
    std::string name;
    std::vector<Parameter> parameters;
  };
  using Procedure = Outcome (Calls::*)(const Call&, Reply&);

  static Call readCall(Reader& message);
  Outcome called(const Call& call, Reply& reply);

  Outcome executeText(const Call& call, Reply& reply);
  Outcome prepare(const Call& call, Reply& reply);
  Outcome prepareAndExecute(const Call& call, Reply& reply);
  Outcome execute(const Call& call, Reply& reply);
  Outcome unprepare(const Call& call, Reply& reply);
  Outcome primaryKey(const Call& call, Reply& reply);

  std::int32_t keep(const Call& call);
  Outcome run(const Prepared& prepared, const Call& call, std::size_t firstValue, Reply& reply);

  Statements& statements_;
  Controls& controls_;
  std::map<std::int64_t, Prepared> prepared_;
  std::int32_t lastHandle_ = 0;
};

}  // namespace payslate::tsqlserver
