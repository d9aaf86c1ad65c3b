// Every value of every row.
#include "fuzz/Rows.h"

#include "fuzz/Target.h"

namespace payslate::fuzz {

void readRows(ado::Recordset& rows) {
  constexpr int mostRows = 1000;
  constexpr std::size_t longestText = (1 << 24) + 4096;
  for (int row = 0; row < mostRows && !rows.Eof(); rows.MoveNext(), ++row)
    for (std::size_t field = 0; field < rows.FieldCount(); ++field)
      require(rows.Fields(field).Text().size() <= longestText, "a text has an end");
}

void requireTold(const ado::Error& error) {
  require(error.SQLState.size() == 5, "an error has an SQLSTATE");
  require(!error.Description.empty(), "an error says what is wrong");
}

}  // namespace payslate::fuzz
