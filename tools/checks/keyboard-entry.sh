#!/usr/bin/env bash
# A real window on a display of its own, driven by the keyboard alone from New to OK; then the rows in the database.
# Usage: keyboard-entry.sh PAYROLL-HOST
. "$(dirname "$0")/common.sh"

new_database
open_entries
picture 1-list
xdotool key --delay 50 alt+n
in_front '^Monthly Entry-For period'
xdotool type --delay 20 "Chidi Iversol"
xdotool key --delay 50 Return
picture 2-entry
xdotool key --delay 50 alt+o
closed '^Monthly Entry-For period'
in_front '^Monthly Entry$'
picture 3-list
close_entries
holds 1 "emhDate = '2026/04/30' and emhempID = 103 and emhCancelled = 0"
whole_entries_only
echo "The entry typed on the keyboard is stored whole."
