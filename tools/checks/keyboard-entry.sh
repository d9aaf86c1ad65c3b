#!/usr/bin/env bash
# A real window on a display of its own, driven by the keyboard alone from New to OK; then the rows in the database.
# Usage: keyboard-entry.sh PAYROLL-HOST
. "$(dirname "$0")/common.sh"

new_database
exec 3<>"$scratch/display"
Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp 2>"$scratch/xvfb.log" &
server=$!
host_process=
finish() {
  [ -z "$host_process" ] || kill "$host_process" 2>/dev/null || true
  kill "$server" 2>/dev/null || true
  rm -rf "$scratch"
}
trap finish EXIT
for _ in $(seq 100); do [ -s "$scratch/display" ] && break; sleep 0.1; done
DISPLAY=:$(head -n 1 "$scratch/display")
export DISPLAY
unset QT_QPA_PLATFORM WAYLAND_DISPLAY

"$host" show --connect "$scratch/payroll.db" --company 1 --user 1 --interface 40001 --year 2026 \
  --date 2026/04/30 --title Payroll >"$scratch/host.log" 2>&1 &
host_process=$!

# in_front NAME: waits for the window whose whole name matches, and gives it the keyboard.
in_front() {
  local window
  for _ in $(seq 200); do
    if window=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1) && [ -n "$window" ]; then
      xdotool windowfocus --sync "$window" 2>/dev/null && return 0
    fi
    kill -0 "$host_process" 2>/dev/null || { echo "the host ended:"; cat "$scratch/host.log"; return 1; }
    sleep 0.1
  done
  echo "no window named $1"
  return 1
}

picture() { if [ -n "${PAYSLATE_SCREENS:-}" ]; then import -window root "$PAYSLATE_SCREENS/$1.png"; fi; }

in_front '^Monthly Entry$'
picture 1-list
xdotool key --delay 50 alt+n
in_front '^Monthly Entry-For period'
xdotool type --delay 20 "Chidi Iversol"
xdotool key --delay 50 Return
sleep 0.5
picture 2-entry
xdotool key --delay 50 alt+o
sleep 0.5
in_front '^Monthly Entry$'
picture 3-list
xdotool key --delay 50 alt+c
status=0
wait "$host_process" || status=$?
host_process=
[ "$status" -eq 0 ] || { echo "the host ended with $status"; cat "$scratch/host.log"; exit 1; }
holds 1 "emhDate = '2026/04/30' and emhempID = 103 and emhCancelled = 0"
whole_entries_only
echo "The entry typed on the keyboard is stored whole."
