// Rows, and what stopped the reading of them.
#include "platform/ado/ReadAhead.h"

#include <utility>

#include "platform/ado/Error.h"

namespace payslate::ado {

void ReadAhead::fill(const std::function<std::optional<Row>()>& fetch) {
  try {
    while (std::optional<Row> row = fetch()) rows_.push_back(*std::move(row));
  } catch (const Error&) {
    failure_ = std::current_exception();
  }
}

std::optional<ReadAhead::Row> ReadAhead::take() {
  if (!rows_.empty()) {
    Row row = std::move(rows_.front());
    rows_.pop_front();
    return row;
  }
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
  return std::nullopt;
}

}  // namespace payslate::ado
