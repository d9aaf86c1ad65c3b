#!/usr/bin/env bash
# A database on a disk that is mounted for reading alone: the list and an entry are shown, storing is refused by a
# message, nothing is left behind; and while somebody else writes the same file by another way, what is stored is seen.
# Usage: read-only.sh PAYROLL-HOST. Ends with 77 where nothing may be mounted.
[ "$(id -u)" -eq 0 ] || [ -n "${PAYSLATE_MAY_MOUNT:-}" ] ||
  PAYSLATE_MAY_MOUNT=1 exec unshare --map-root-user --mount "$0" "$@"
. "$(dirname "$0")/common.sh"

shelf=$scratch/shelf
mkdir "$scratch/disk" "$shelf"
trap 'umount "$shelf" 2>/dev/null || true; finish' EXIT
mount --bind "$scratch/disk" "$shelf" 2>"$scratch/mount.log" &&
  mount -o remount,bind,ro "$shelf" 2>>"$scratch/mount.log" || { echo "skipped: $(cat "$scratch/mount.log")"; exit 77; }
scratch=$scratch/disk new_database

# read_there NAME: the errand on the shelf holds.
read_there() {
  "$host" errand "$scratch/$1.errand" --connect "$shelf/payroll.db" >"$scratch/$1.log" 2>&1 ||
    { tail -n 4 "$scratch/$1.log"; return 1; }
}
cat >"$scratch/look.errand" <<'END'
session company 1 user 1 interface 40001 year 2026 date 2026/04/30 title "Payroll"
show
choose cboSearch "Entry No"
type txtsearch EN41
click CmdEdit
expect form frmpayslate
expect txtAtteNo.Text = EN41
click chkHold
click cmdOk
message "*payroll.db' is open for reading alone: to change it, make the file and its folder writable*" answer ok
expect form frmpayslate
expect chkHold.Value = 1
click cmdCancel
message "*" answer no
click CmdClose
expect no form
END
read_there look
left=$(ls "$shelf" | tr '\n' ' ')
case "$left" in *-wal* | *-shm*) echo "left behind: $left"; exit 1 ;; esac

# The clerk who may write stores an entry and stays, at a pipe; then she goes.
mkfifo "$scratch/gate"
enter "$scratch/clerk.errand" "Chidi Iversol"
sed -i "s|^close|database $scratch/gate\nclose|" "$scratch/clerk.errand"
"$host" errand "$scratch/clerk.errand" --connect "$scratch/disk/payroll.db" >"$scratch/clerk.log" 2>&1 &
host_process=$!
cat >"$scratch/count.errand" <<'END'
expect sql select count(*) from pempmonthlyentryheader where emhCompanyID = 1 and emhDate = '2026/04/30'
| 1 |
END
timeout 60 bash -c "exec 3>'$scratch/gate'; '$host' errand '$scratch/count.errand' --connect '$shelf/payroll.db' \
  >'$scratch/count.log' 2>&1" || { cat "$scratch/count.log" "$scratch/clerk.log"; exit 1; }
wait "$host_process" || { cat "$scratch/clerk.log"; exit 1; }
host_process=
read_there count
echo "A file that cannot be written is read, also beside one who writes it."
