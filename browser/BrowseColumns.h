// Columns of the list of entries.
#pragma once

namespace payslate::BrowseColumn {

enum : int { EntryId, EntryNo, EntryDate, EmployeeName, Cancelled };

constexpr const char* FormatString =
    "|Entry No                 |>Entry Date     |Employee Name                              |Cancelled ";

}  // namespace payslate::BrowseColumn
