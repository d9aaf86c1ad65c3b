# Shared by the checks that run payroll-host in processes of their own: a scratch folder, errands, and the test
# that the database holds whole entries only. Source it with the path of payroll-host as first argument.
set -euo pipefail
host=$(realpath "$1")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export QT_QPA_PLATFORM=offscreen
export LSAN_OPTIONS="suppressions=$(dirname "$(realpath "${BASH_SOURCE[0]}")")/../../tests/lsan.supp:print_suppressions=0"

# enter FILE NAME… writes an errand that enters these employees of demo company 1 for April 2026.
enter() {
  local file=$1 name
  shift
  {
    echo 'session company 1 user 1 interface 40001 year 2026 date 2026/04/30 title "Payroll"'
    echo 'show'
    for name in "$@"; do
      printf 'click cmdnew\nchoose cboEmpname "%s"\nclick cmdOk\nexpect form FrmMaster\n' "$name"
    done
    echo 'close'
  } >"$file"
}

new_database() {
  rm -f "$scratch"/payroll.db*
  "$host" demo --database "$scratch/payroll.db" --screens "$scratch/screens" >"$scratch/demo.log"
  # The demo's own walk entered somebody; start from a clean month.
  cat >"$scratch/clean.errand" <<'END'
sql delete from pemployeeallowancedetail where eadid in (select emhID from pempmonthlyentryheader where emhDate = '2026/04/30')
sql delete from pemployeeDeductiondetail where eddid in (select emhID from pempmonthlyentryheader where emhDate = '2026/04/30')
sql delete from pempmonthlyentryheader where emhDate = '2026/04/30'
END
  perform "$scratch/clean.errand"
}

perform() { "$host" errand "$1" --connect "$scratch/payroll.db" >"$1.log" 2>&1; }

# Every April entry has all its allowance and deduction rows, no row is without a header, no number is there twice.
whole_entries_only() {
  cat >"$scratch/whole.errand" <<'END'
expect sql select count(*) - count(distinct emhNo) from pempmonthlyentryheader where emhCompanyID = 1
| 0 |
expect sql select count(*) from pempmonthlyentryheader h where emhCompanyID = 1 and emhDate = '2026/04/30' and (select count(*) from pemployeeallowancedetail d where d.eadcompanyid = 1 and d.eadid = h.emhID) < (select count(*) from pempallowances e, pallowances a where e.eacompanyid = 1 and e.eaempid = h.emhempID and a.aCompanyID = 1 and a.aAllowanceID = e.eaallowanceid and a.aActive = 1)
| 0 |
expect sql select count(*) from pempmonthlyentryheader h where emhCompanyID = 1 and emhDate = '2026/04/30' and (select count(*) from pemployeeDeductiondetail d where d.eddcompanyid = 1 and d.eddid = h.emhID) < (select count(*) from pempdeductions e, pdeductions a where e.edcompanyid = 1 and e.edempid = h.emhempID and a.dCompanyID = 1 and a.dDedID = e.eddeductionid and a.dActive = 1) + (select count(*) from pLoansIssue where liCompanyID = 1 and liEmpID = h.emhempID and liActive = 1 and licancelled = 0 and liDeductionMode = 1)
| 0 |
expect sql select count(*) from pemployeeallowancedetail where eadcompanyid = 1 and eadid not in (select emhID from pempmonthlyentryheader where emhCompanyID = 1)
| 0 |
expect sql select count(*) from pemployeeDeductiondetail where eddcompanyid = 1 and eddid not in (select emhID from pempmonthlyentryheader where emhCompanyID = 1)
| 0 |
END
  perform "$scratch/whole.errand" || { tail -n 4 "$scratch/whole.errand.log"; return 1; }
}

# holds COUNT WHERE: so many entries of company 1 meet the condition.
holds() {
  printf 'expect sql select count(*) from pempmonthlyentryheader where emhCompanyID = 1 and %s\n| %s |\n' "$2" "$1" \
    >"$scratch/holds.errand"
  perform "$scratch/holds.errand" || { tail -n 4 "$scratch/holds.errand.log"; return 1; }
}
