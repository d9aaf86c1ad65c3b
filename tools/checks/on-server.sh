#!/usr/bin/env bash
# The tests of the database on a server: the same programs, their databases in memory turned into the server's. Then
# the demo companies, and several clerks at work in them. Usage: with-tsqlserver.sh SERVER on-server.sh BUILD-FOLDER
set -euo pipefail
build=$1
tests=$(dirname "$0")/../../tests
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
# Drivers keep some memory until the process ends.
export ASAN_OPTIONS=detect_leaks=0
export PAYSLATE_TEST_CONNECT=$PAYSLATE_ODBC_TSQL
log=$(mktemp)
statements=$(mktemp)
trap 'rm -f "$log" "$statements"' EXIT

# One line each when it passes, and everything when it does not.
step() {
  "$@" >"$log" 2>&1 || { cat "$log"; echo "failed: $*"; exit 1; }
  ! grep 'leaves something behind' "$log"
  echo "passed: ${1##*/} ${*:2}"
}

for program in tsql/payslate_tsql_tests ado/payslate_ado_tests; do step "$build/tests/$program"; done
step "$build/tests/schema/payslate_schema_tests" --gtest_filter='Schema.*'
step "$build/tests/schema/payslate_schema_tests" --gtest_filter='DemoTest.*'
for one in 'SaveFaults.*' 'WholeCompany.*' 'Component.*' 'MonthRun.Stores*:MonthRun.OneFailure*' 'MonthReview.*'; do
  step "$build/tests/component/payslate_component_tests" --gtest_filter="$one"
done
for sequence in physical-names editing whole-month; do
  step "$build/tools/recorder/payslate-recorder" --check "$tests/errands/sequences" "$tests/errands/$sequence.errand"
done
for errand in "$tests"/errands/*.errand; do
  case "$errand" in */demo-company.errand | */region.errand) continue ;; esac
  step "$build/tests/errands/payroll_host_tested" errand "$errand"
done
step "$build/tests/errands/payroll_host_tested" errand --window "$tests/errands/whole-month.errand"

# An empty database, filled once; several clerks and month runs for some seconds.
step "$(dirname "$0")/soak.sh" "$build" 3 5 2
! "$build/host/payroll-host" demo --connect "$PAYSLATE_ODBC_TSQL" >"$log" 2>&1
grep -q 'holds payroll tables already' "$log"

# The same database as it was before there were versions, and upgraded.
cat >"$statements" <<'END'
sql drop table pSchemaVersion
sql drop table pEntryJournal
sql delete from linkTable where tablename = 'pEntryJournal'
sql drop index uxMonthlyEntryNumber on pempmonthlyentryheader
sql alter table pLoansIssue drop constraint PK_pLoansIssue
sql alter table pLoansIssue add primary key (liCompanyID, liID)
sql alter table popeningsavings drop constraint PK_popeningsavings
sql update pempmonthlyentryheader set emhNo = 'EN1' where emhCompanyID = 1 and emhID < 5
END
step "$build/host/payroll-host" errand "$statements" --connect "$PAYSLATE_ODBC_TSQL"
upgrade() { "$build/host/payroll-host" upgrade --connect "$PAYSLATE_ODBC_TSQL" >"$log" 2>&1; }
! upgrade
grep -q 'uxMonthlyEntryNumber .* more than once: emhCompanyID 1, emhNo EN1 (4 rows)' "$log"
echo "sql update pempmonthlyentryheader set emhNo = null where emhNo = 'EN1'" >"$statements"
step "$build/host/payroll-host" errand "$statements" --connect "$PAYSLATE_ODBC_TSQL"
upgrade || { cat "$log"; exit 1; }
[ "$(grep -c '^Made: the \(table p\|unique index uxMonthlyEntryNumber\|primary key (\)' "$log")" -eq 5 ] || { cat "$log"; exit 1; }
upgrade
grep -q 'already: there is nothing to do' "$log"
