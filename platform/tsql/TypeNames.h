// Types by the names that statements give them.
#pragma once

#include <string>
#include <vector>

#include "platform/tsql/SqlError.h"
#include "platform/tsql/Type.h"

namespace payslate::tsql {

/// `name` in lower case, with what stood in its parentheses. SqlError for an unknown name or impossible
/// sizes. A text type without a size comes back with `unstatedLength`.
Type namedType(const std::string& name, const std::vector<int>& sizes, bool unlimited, Position at);

inline constexpr int unstatedLength = -1;

}  // namespace payslate::tsql
