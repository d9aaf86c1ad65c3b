#!/usr/bin/env bash
# Proves who includes whom. Each line of the table is a folder (or file) and what its files may include besides
# themselves and the standard library; the first line that matches a file holds.
set -euo pipefail
cd "$(dirname "$0")/.."

platform="platform/basic/ platform/ado/ platform/ui/ platform/common/"
table="
platform/basic/      :
platform/ado/        : platform/basic/
platform/tsql/       : platform/basic/
platform/sqlite/     : platform/basic/ platform/ado/ platform/tsql/ <sqlite3.h>
platform/odbc/       : platform/basic/ platform/ado/ <sql.h> <sqlext.h>
platform/providers/  : platform/ado/ platform/sqlite/ platform/odbc/
platform/ui/         : platform/basic/
platform/scripted/   : platform/basic/ platform/ui/
platform/common/     : platform/basic/ platform/ado/ platform/ui/
schema/              : platform/basic/ platform/ado/
component/           : $platform
persistence/         : component/ platform/basic/ platform/ado/ platform/common/
review/              : component/ platform/basic/ platform/ado/ platform/common/
facilities/          : component/ $platform
paycomponents/       : component/ $platform
entry/               : component/ facilities/ paycomponents/ persistence/ review/ $platform
browser/             : component/ persistence/ review/ entry/ $platform
payslate/            : component/ browser/ $platform
desktop/             : platform/basic/ platform/ui/ <Q
host/                : payslate/ schema/ desktop/ platform/ <Q <CLI/
"

# Standard headers have no dot and no capital; everything else in angle brackets must be allowed by name.
faults=0
while IFS= read -r file; do
  rule=$(printf '%s' "$table" | sed -n "s/  *:/:/; /^[a-z]/p" | while IFS=: read -r place allowed; do
    case "$file" in "$place"*) printf '%s:%s\n' "$place" "$allowed"; break ;; esac
  done)
  [ -n "$rule" ] || { echo "$file: stands in a folder that no rule knows"; faults=1; continue; }
  own=${rule%%:*}
  allowed=${rule#*:}
  while IFS= read -r included; do
    case "$included" in
      "<"*.h">" | "<"[A-Z]*) ;;
      "<"*) continue ;;
    esac
    ok=no
    for prefix in "${own%/*}/" $allowed; do
      case "$included" in "$prefix"*) ok=yes; break ;; esac
    done
    [ "$ok" = yes ] || { echo "$file: may not include $included"; faults=1; }
  done < <(sed -n 's/^ *# *include *"\([^"]*\)".*/\1/p; s/^ *# *include *\(<[^>]*>\).*/\1/p' "$file")
done < <(find platform schema component persistence review facilities paycomponents entry browser payslate desktop host \
              -name '*.cpp' -o -name '*.h' | sort)
[ "$faults" -eq 0 ] && echo "All includes point the right way."
exit "$faults"
