#!/usr/bin/env bash
# Clerks enter, rewrite and cancel entries of one month in the demo company, and month runs enter it beside them, each a
# process of its own; then the month is added up. Where there are runs, they alone enter the last of the employees.
# Usage: with-tsqlserver.sh SERVER soak.sh BUILD-FOLDER CLERKS SECONDS [RUNS]
set -euo pipefail
build=$1
count=$2
seconds=$3
runs=${4:-0}
left=$((runs > 0 ? 3 : 0))
export ASAN_OPTIONS=detect_leaks=0
workers=()
finish() { for worker in "${workers[@]}"; do kill "$worker" 2>/dev/null || true; done; }
trap finish EXIT
"$build/host/payroll-host" demo --connect "$PAYSLATE_ODBC_TSQL"
for clerk in $(seq 0 $((count - 1))); do
  "$build/tests/soak/payslate_soak" work "$PAYSLATE_ODBC_TSQL" "$clerk" "$count" "$left" "$seconds" &
  workers+=($!)
done
for _ in $(seq "$runs"); do
  "$build/tests/soak/payslate_soak" month "$PAYSLATE_ODBC_TSQL" "$seconds" &
  workers+=($!)
done
for worker in "${workers[@]}"; do wait "$worker"; done
workers=()
"$build/tests/soak/payslate_soak" check "$PAYSLATE_ODBC_TSQL"
