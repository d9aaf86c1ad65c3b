// Ranges over a stored column beside conditions over functions of it, so that an index can find the rows.
#pragma once

#include "platform/tsql/Ast.h"

namespace payslate::tsql {

/// To a bound condition of rows, which must not be null, adds `column >= low and column < behind` for what
/// stands between its ands as `year(column) = Y`, perhaps with `month(column) = M`, and as
/// `left(column, n) = 'text'` or the same `substring` from 1. The condition itself stays: for every row the
/// answer is what it was.
void addRanges(ExprPtr& condition);

}  // namespace payslate::tsql
