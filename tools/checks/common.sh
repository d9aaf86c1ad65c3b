# Shared by the checks that run payroll-host in processes of their own: a scratch folder, errands, the test that the
# database holds whole entries only, and real windows. Source it with the path of payroll-host as first argument.
set -euo pipefail
host=$(realpath "$1")
scratch=$(mktemp -d)
display_server=
host_process=
finish() {
  local process
  for process in $host_process $display_server; do kill "$process" 2>/dev/null || true; done
  rm -rf "$scratch"
}
trap finish EXIT
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
  "$host" demo --database "$scratch/payroll.db" --screens "$scratch/screens" >"$scratch/demo.log" ||
    { tail -n 4 "$scratch/demo.log"; return 1; }
  # The demo's own walk entered somebody; start from a clean month.
  cat >"$scratch/clean.errand" <<'END'
sql delete from pemployeeallowancedetail where eadid in (select emhID from pempmonthlyentryheader where emhDate = '2026/04/30')
sql delete from pemployeeDeductiondetail where eddid in (select emhID from pempmonthlyentryheader where emhDate = '2026/04/30')
sql delete from pempfacilitydeductiondetail where efdid in (select emhID from pempmonthlyentryheader where emhDate = '2026/04/30')
sql delete from pEmployeeCurrentDetails where ecdPaySlateID in (select emhID from pempmonthlyentryheader where emhDate = '2026/04/30')
sql delete from pempmonthlyentryheader where emhDate = '2026/04/30'
END
  perform "$scratch/clean.errand" || { tail -n 4 "$scratch/clean.errand.log"; return 1; }
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

# ---- Real windows ----

# A number of its own: a server that looks for a free one may take that of a server which is just going, and lose it.
start_display() {
  for _ in $(seq 5); do
    export DISPLAY=:$((1000 + RANDOM))
    Xvfb "$DISPLAY" -screen 0 1280x900x24 -nolisten tcp -noreset 2>"$scratch/xvfb.log" &
    display_server=$!
    for _ in $(seq 200); do
      xdotool getdisplaygeometry >/dev/null 2>&1 && return 0
      kill -0 "$display_server" 2>/dev/null || break
      sleep 0.1
    done
  done
  return 1
}

# open_entries: the list of demo company 1, April 2026, on a display of its own.
open_entries() {
  start_display || { echo "no display could be started"; cat "$scratch/xvfb.log"; return 1; }
  unset QT_QPA_PLATFORM WAYLAND_DISPLAY
  # Windows are measured alike whatever the machine's settings.
  QT_FONT_DPI=96 QT_STYLE_OVERRIDE=Fusion "$host" show --connect "$scratch/payroll.db" --company 1 --user 1 \
    --interface 40001 --year 2026 --date 2026/04/30 --title Payroll >"$scratch/host.log" 2>&1 &
  host_process=$!
  in_front '^Monthly Entry$'
}

# close_entries: leaves the list, which is in front, and expects the host to end well.
close_entries() {
  local status=0
  xdotool key --delay 50 alt+c
  wait "$host_process" || status=$?
  host_process=
  [ "$status" -eq 0 ] || { echo "the host ended with $status"; cat "$scratch/host.log"; return 1; }
}

# shown NAME: the window of the program whose name matches; none, and a failure, when there is none.
shown() {
  local property
  for property in "class ^payslate$" "name $1"; do
    xdotool search --onlyvisible "--${property%% *}" "${property#* }" 2>/dev/null || true
  done | sort -n | uniq -d | tail -n 1 | grep .
}

# patiently COMMAND…: waits until the command holds.
patiently() {
  for _ in $(seq 200); do
    "$@" && return 0
    kill -0 "$host_process" 2>/dev/null || { echo "the host ended:"; cat "$scratch/host.log"; return 1; } >&2
    sleep 0.1
  done
  echo "in vain: $*" >&2
  picture in-vain
  return 1
}

focused() {
  local window
  window=$(shown "$1") && xdotool windowfocus --sync "$window" 2>/dev/null
}
gone() { ! shown "$1" >/dev/null; }

# in_front NAME: waits for the window whose name matches, and gives it the keyboard.
in_front() { patiently focused "$1"; }
# closed NAME: waits until no such window is shown.
closed() { patiently gone "$1"; }

# picture NAME: of the whole display, where a folder for them is named.
picture() {
  [ -z "${PAYSLATE_SCREENS:-}" ] || import -window root "$PAYSLATE_SCREENS/$1.png" || echo "no picture $1" >&2
}
