#!/usr/bin/env bash
# An errand on the server at hand. Usage: with-tsqlserver.sh SERVER on-server-errand.sh PAYROLL-HOST ERRAND
set -euo pipefail
ASAN_OPTIONS=detect_leaks=0 "$1" errand "$2" --connect "$PAYSLATE_ODBC_TSQL"
