#!/usr/bin/env bash
# Proves who knows the five tables of a month's entry: among the component's folders persistence/ alone, and the files
# of this list, each with the tables it names, how often it names one, and what for. Comments count like code.
set -euo pipefail
cd "$(dirname "$0")/.."

header=pempmonthlyentryheader
details="pemployeeallowancedetail pemployeedeductiondetail pempfacilitydeductiondetail"
movements=pemployeecurrentdetails
allowed="
component/TableLinkMap.cpp : $header $details : 8 : the table links
browser/FrmMaster.cpp      : $header : 2 : the statement of the list of entries, and its table
entry/frmpayslate.cpp      : $header : 1 : the statement of the employee combo
"
folders="component payslate browser months entry explain review paycomponents facilities"

# In any letter case: it makes no difference to a database either.
found=$(grep -rnioE "$(tr ' ' '|' <<<"$header $details $movements")" $(ls -d $folders 2>/dev/null)) || [ $? -eq 1 ]
faults=$(awk -F ' *: *' '
  FNR == 1 { part++ }
  part == 1 && NF { times[$1] = $3; count = split($2, names, " "); for (i = 1; i <= count; i++) may[$1, names[i]] }
  part == 2 && NF {
    if (($1 SUBSEP tolower($3)) in may) named[$1]++
    else print $1 ":" $2 ": names " $3 ", which persistence/ alone may"
  }
  END {
    for (file in times)
      if (named[file] != times[file]) print file ": names its tables " named[file] + 0 " times, not " times[file]
  }' <(echo "$allowed") <(echo "$found") | sort -t : -k 1,1 -k 2,2n)
[ -z "$faults" ] || { echo "$faults"; exit 1; }
echo "The tables of an entry are named where they may be."
