// Rows of a cursor that were read into memory to make room for other statements.
#pragma once

#include <deque>
#include <exception>
#include <functional>
#include <optional>
#include <vector>

#include "platform/basic/Value.h"

namespace payslate::ado {

class ReadAhead {
 public:
  using Row = std::vector<basic::Value>;

  /// Takes rows from `fetch` until it yields none. An error that stops it is kept for behind the rows.
  void fill(const std::function<std::optional<Row>()>& fetch);
  /// The next row; nothing behind the last one, where the error is raised that stopped fill, once.
  std::optional<Row> take();

 private:
  std::deque<Row> rows_;
  std::exception_ptr failure_;
};

}  // namespace payslate::ado
