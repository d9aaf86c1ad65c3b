#!/usr/bin/env bash
# A disk that is really full: creating leaves nothing behind, and what a save could not store is stored whole as soon as
# there is room, by the same program. Usage: full-disk.sh PAYROLL-HOST. Ends with 77 where nothing may be mounted.
[ "$(id -u)" -eq 0 ] || [ -n "${PAYSLATE_MAY_MOUNT:-}" ] ||
  PAYSLATE_MAY_MOUNT=1 exec unshare --map-root-user --mount "$0" "$@"
. "$(dirname "$0")/common.sh"

disk=$scratch/disk
mkdir "$disk"
trap 'umount "$disk" 2>/dev/null || true; finish' EXIT
new_disk() {
  umount "$disk" 2>/dev/null || true
  mount -t tmpfs -o "size=$1" tmpfs "$disk" 2>"$scratch/mount.log"
}
new_disk 4k || { echo "skipped: $(cat "$scratch/mount.log")"; exit 77; }

# leaves_nothing SIZE COMMAND…: creating a database on a disk of that size is refused, and the disk is empty again.
leaves_nothing() {
  local size=$1 status=0
  shift
  new_disk "$size"
  "$host" "$@" "$disk/payroll.db" >"$scratch/create.log" 2>&1 || status=$?
  [ "$status" -eq 2 ] && grep -q 'The disk is full' "$scratch/create.log" && [ -z "$(ls -A "$disk")" ] ||
    { echo "$* on a disk of $size: exit code $status"; cat "$scratch/create.log"; ls -l "$disk"; return 1; }
}
# From a disk for the first page alone to one on which the last rows do not fit.
for size in 4k 16k 40k 100k; do leaves_nothing "$size" init --connect; done
for size in 4k 16k 40k 100k 300k; do leaves_nothing "$size" demo --screens "$scratch/screens" --database; done

# The clerk presses OK on a full disk, and again when there is room. The host waits at a pipe while the disk changes.
new_disk 4m
scratch=$disk new_database
mkfifo "$scratch/fill" "$scratch/free"
cat >"$scratch/save.errand" <<END
session company 1 user 1 interface 40001 year 2026 date 2026/04/30 title "Payroll"
show
click cmdnew
choose cboEmpname "Chidi Iversol"
database $scratch/fill
click cmdOk
message "*The disk is full*" answer ok
click cmdOk
message "*The disk is full*" answer ok
database $scratch/free
click cmdOk
expect form FrmMaster
close
END
meanwhile() { timeout 60 bash -c "exec 3>'$scratch/$1'; $2"; }
"$host" errand "$scratch/save.errand" --connect "$disk/payroll.db" >"$scratch/save.log" 2>&1 &
host_process=$!
meanwhile fill "cat /dev/zero >'$disk/filler' 2>/dev/null || true"
meanwhile free "rm '$disk/filler'"
wait "$host_process" || { cat "$scratch/save.log"; exit 1; }
host_process=
scratch=$disk holds 1 "emhDate = '2026/04/30' and emhempID > 0"
scratch=$disk whole_entries_only
echo "Full disks kept nothing of what did not fit, and all of what did."
