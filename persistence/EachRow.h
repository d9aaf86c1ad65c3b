// Going through the rows of a statement once.
#pragma once

#include <string>

#include "component/Session.h"
#include "platform/ado/Recordset.h"

namespace payslate {

/// Sends the statement and hands its rows, one after the other, to `take`, which gets a recordset that stands
/// on the row. ado::Error.
template <class Take>
void forEachRow(Session& session, const std::string& statement, Take take) {
  ado::Recordset rows;
  rows.Open(statement, *session.adocon(), ado::CursorType::ForwardOnly, ado::LockType::ReadOnly);
  for (; !rows.Eof(); rows.MoveNext()) take(rows);
}

}  // namespace payslate
