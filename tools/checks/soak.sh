#!/usr/bin/env bash
# Clerks, each a process of its own, enter, rewrite and cancel entries of one month in the demo company; then the month
# is added up. Usage: with-tsqlserver.sh SERVER soak.sh BUILD-FOLDER CLERKS SECONDS
set -euo pipefail
build=$1
count=$2
seconds=$3
export ASAN_OPTIONS=detect_leaks=0
clerks=()
finish() { for clerk in "${clerks[@]}"; do kill "$clerk" 2>/dev/null || true; done; }
trap finish EXIT
"$build/host/payroll-host" demo --connect "$PAYSLATE_ODBC_TSQL"
for clerk in $(seq 0 $((count - 1))); do
  "$build/tests/soak/payslate_soak" work "$PAYSLATE_ODBC_TSQL" "$clerk" "$count" "$seconds" &
  clerks+=($!)
done
for clerk in "${clerks[@]}"; do wait "$clerk"; done
clerks=()
"$build/tests/soak/payslate_soak" check "$PAYSLATE_ODBC_TSQL"
