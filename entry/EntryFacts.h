// What explanations of the entry form ask: of the database, and of the form's own rules.
#pragma once

#include "persistence/PayFactsReader.h"

namespace payslate {

class Formulas;
class HourlyItems;
struct FormHelpers;

class EntryFacts : public PayFactsReader {
 public:
  struct Rules {
    const Formulas& formulas;
    HourlyItems& hourlyItems;
    const FormHelpers& helpers;
  };

  EntryFacts(Session& session, std::int32_t employeeId, std::int32_t entryId, const Rules& rules)
      : PayFactsReader(session, employeeId, entryId), rules_(rules) {}

  std::int32_t formulaOf(PayKind kind, std::int32_t componentId) override;
  FormulaOrigin formula(std::int32_t formulaId, const FormulaDays& days) override;
  HoursOrigin rate(PayKind kind) override;

 private:
  Rules rules_;
};

}  // namespace payslate
