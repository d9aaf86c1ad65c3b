// Reading what a statement gives, and what may be expected of it.
#pragma once

#include "platform/ado/Error.h"
#include "platform/ado/Recordset.h"

namespace payslate::fuzz {

/// Reads a statement's rows to the end, or as many of them as a patient reader wants.
void readRows(ado::Recordset& rows);

/// An error as a program may count on it: with a sentence and an SQLSTATE.
void requireTold(const ado::Error& error);

}  // namespace payslate::fuzz
