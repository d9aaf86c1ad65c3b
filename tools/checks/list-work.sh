#!/usr/bin/env bash
# A clerk's work on the lists of a month, in real windows with real key and mouse events: menu, popups, ticks and keys;
# then the rows in the database. Usage: list-work.sh PAYROLL-HOST
. "$(dirname "$0")/common.sh"

entry='^Monthly Entry-For period'
menu='^$'  # a menu has no name

# The mouse goes into the list in front, on a row or below the last.
point_in_list() {
  local X Y WIDTH HEIGHT SCREEN WINDOW
  eval "$(xdotool getwindowgeometry --shell "$(shown "$entry")")"
  xdotool mousemove $((X + WIDTH / 2)) $((Y + HEIGHT * 65 / 100))
}

# The right button in the list in front; the menu is open then.
right_click() {
  point_in_list
  xdotool click 3
  patiently shown "$menu" >/dev/null
}

# Home and End go to other employees: the arrows alone reach a list's first and last row.
to_row() {
  xdotool key --delay 20 --repeat 12 Up
  [ "$1" -eq 1 ] || xdotool key --delay 20 --repeat $(($1 - 1)) Down
}

# The keyboard's menu key, on the selected row; the menu is open then.
menu_key() {
  xdotool key Menu
  patiently shown "$menu" >/dev/null
}

# row_point N: the mouse goes to row N of the list that has the focus, where its menu would open.
row_point() {
  local X Y WIDTH HEIGHT SCREEN WINDOW
  to_row "$1"
  menu_key
  eval "$(xdotool getwindowgeometry --shell "$(shown "$menu")")"
  xdotool key Escape
  closed "$menu"
  xdotool mousemove "$X" "$Y"
}

# turn_page N: so many pages on, from the list that has the focus to the list there.
turn_page() {
  xdotool key --delay 50 shift+Tab
  xdotool key --delay 50 --repeat "$1" Right
  xdotool key --delay 50 Tab
}

# back_in_entry POPUP: it has closed, and the entry form is in front again.
back_in_entry() {
  closed "$1"
  in_front "$entry"
}

# What the entry of employee 101 must have left behind.
stored_rows() {
  local id="(select emhID from pempmonthlyentryheader where emhCompanyID = 1 and emhempID = 101 and emhDate = '2026/04/30')"
  cat >"$scratch/stored.errand" <<END
expect sql select eadallowanceid, eadamount, eaddefault from pemployeeallowancedetail where eadid = $id order by eadallowanceid
| 1 | 3000  | 1 |
| 3 | 687.5 | 0 |
| 4 | 45.5  | 0 |
| 8 | 462   | 1 |
expect sql select eddType, edddeductionid, eddloanid, eddamount from pemployeeDeductiondetail where eddid = $id order by eddDetailID
| D | 1    | NULL | 3600   |
| D | 2    | NULL | 300.25 |
| L | NULL | 1    | 350    |
| L | NULL | 2    | 3500.5 |
| S | NULL | NULL | 250    |
| S | NULL | NULL | 250    |
| O | 4    | NULL | 125    |
| N | 7    | NULL | 120    |
| F | 3    | NULL | 600    |
expect sql select efdtrackingid, efddedamount, efdfacilityamt from pempfacilitydeductiondetail where efdid = $id order by efddetailid
| 1 | 500 | 500    |
| 2 | 100 | 250.75 |
expect sql select ecdAmount, ecdMode from pEmployeeCurrentDetails where ecdPaySlateID = $id order by ecdDetailID
| 500  | -1 |
| 1000 | 1  |
END
  perform "$scratch/stored.errand" || { tail -n 4 "$scratch/stored.errand.log"; return 1; }
}

new_database
open_entries
xdotool key --delay 50 alt+n
in_front "$entry"
xdotool type --delay 20 "asha verling"
xdotool key --delay 50 Return
point_in_list
xdotool click 1

# The menu key and the menu's own letter; the name in small letters, Enter to the amount.
menu_key
picture 1-menu
xdotool key a
in_front '^Allowance Details$'
xdotool type --delay 20 "travel"
xdotool key --delay 50 Return
xdotool type --delay 20 "45.5"
picture 2-allowance
xdotool key --delay 50 alt+o
back_in_entry '^Allowance Details$'

# The right button, and Add with the mouse.
turn_page 1
right_click
eval "$(xdotool getwindowgeometry --shell "$(shown "$menu")")"
xdotool mousemove $((X + WIDTH / 2)) $((Y + HEIGHT / 8)) click 1
in_front '^Deduction Details$'
xdotool type --delay 20 "UNION FEE"
xdotool key --delay 50 Tab
xdotool type --delay 20 "120"
picture 3-deduction
xdotool key --delay 50 alt+o
back_in_entry '^Deduction Details$'

# Salary kept back: the second option, with the keyboard.
right_click
xdotool key a
in_front '^Deduction Details$'
xdotool key --delay 50 shift+Tab space Tab Tab
xdotool type --delay 20 "1000"
picture 4-kept-back
xdotool key --delay 50 alt+o
back_in_entry '^Deduction Details$'

# One added by mistake goes with the Delete key; a standing one does not.
right_click
xdotool key a
in_front '^Deduction Details$'
xdotool type --delay 20 "salary advance"
xdotool key --delay 50 Return
xdotool type --delay 20 "75"
xdotool key --delay 50 alt+o
back_in_entry '^Deduction Details$'
to_row 1
xdotool key --delay 50 Delete
to_row 10
xdotool key --delay 50 Delete
in_front '^Payroll$'
picture 5-question
xdotool key --delay 50 alt+y
back_in_entry '^Payroll$'

# A double click opens the loan of row 3, Enter the one below, where Escape changes nothing.
row_point 3
xdotool click --repeat 2 --delay 50 1
in_front '^Deduction Details$'
xdotool type --delay 20 "350"
picture 6-loan
xdotool key --delay 50 alt+o
back_in_entry '^Deduction Details$'
xdotool key --delay 50 Return
in_front '^Deduction Details$'
xdotool type --delay 20 "1"
xdotool key --delay 50 Escape
back_in_entry '^Deduction Details$'
picture 7-deductions

# The first cost is ticked with the mouse, the second with the space bar, and lowered.
turn_page 2
row_point 1
tick_to_the_left=16  # of a serial number's middle
xdotool mousemove_relative -- -$tick_to_the_left 0 click 1
xdotool key --delay 50 Down space
row_point 2
xdotool click --repeat 2 --delay 50 1
in_front '^Facility Details$'
xdotool type --delay 20 "100"
picture 8-facility
xdotool key --delay 50 alt+o Escape
back_in_entry '^Facility Details$'
picture 9-facilities

xdotool key --delay 50 alt+o
closed "$entry"
in_front '^Monthly Entry$'
close_entries
holds 1 "emhDate = '2026/04/30' and emhempID = 101 and emhCancelled = 0"
stored_rows
whole_entries_only
echo "What was done in the lists with mouse and keys is stored."
