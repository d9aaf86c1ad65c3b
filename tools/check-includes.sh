#!/usr/bin/env bash
# Proves who includes and who links whom. A line of the table is a folder and what it may use besides itself and the
# standard library: other folders, and headers by the beginning of their names. Nothing else holds: no file is exempt.
# Usage: check-includes.sh [BUILD-FOLDER]    without one, the includes alone
set -euo pipefail
cd "$(dirname "$0")/.."

platform="platform/basic platform/ado platform/ui platform/common"
databases="platform/basic platform/ado platform/providers"
table="
platform/basic     :
platform/ado       : platform/basic
platform/tsql      : platform/basic
platform/sqlite    : platform/basic platform/ado platform/tsql <sqlite3.h>
platform/odbc      : platform/basic platform/ado <sql.h> <sqlext.h>
platform/providers : platform/ado platform/sqlite platform/odbc
platform/ui        : platform/basic
platform/scripted  : platform/basic platform/ui
platform/common    : platform/basic platform/ado platform/ui
schema             : platform/basic platform/ado
component          : $platform
persistence        : component platform/basic platform/ado platform/common <openssl/
review             : component platform/basic
explain            : component platform/basic
facilities         : component $platform
paycomponents      : component $platform
entry              : component explain facilities paycomponents persistence review $platform
browser            : component persistence review entry $platform
months             : component persistence review entry $platform
payslate           : component persistence browser months $platform platform/providers
desktop            : platform/basic platform/ui <Q
host               : payslate schema desktop $platform platform/scripted platform/providers <Q <CLI/ <nlohmann/ <unistd.h> <io.h>
host/example       : payslate desktop $platform
bench              : component browser entry payslate schema $platform platform/scripted platform/providers \
                     platform/sqlite platform/tsql <sqlite3.h> <CLI/
tools/attack       : component persistence payslate schema $platform platform/scripted platform/providers host <sqlite3.h> \
                     <poll.h> <sys/ <unistd.h>
tools/recorder     : host schema $platform platform/scripted tests/server <CLI/
tools/tsqlserver   : $databases <CLI/ <arpa/ <netinet/ <poll.h> <sys/ <unistd.h>
fuzz               : platform/basic platform/ado platform/sqlite platform/odbc platform/ui platform/scripted schema \
                     tests/scripted <sql.h> <sqlext.h>
tests/basic        : platform/basic <gtest/
tests/ado          : $databases tests/server <gtest/ <sqlite3.h>
tests/tsql         : $databases platform/tsql platform/sqlite tests/server <gtest/
tests/sqlite       : $databases platform/tsql platform/sqlite <gtest/
tests/odbc         : $databases platform/odbc <gtest/
tests/differential : platform/basic platform/ado platform/sqlite platform/odbc tests/ado <gtest/
tests/ui           : platform/basic platform/ui <gtest/
tests/scripted     : platform/basic platform/ui platform/scripted <gtest/
tests/schema       : $databases schema tests/server <gtest/
tests/host         : host schema payslate $platform platform/scripted platform/sqlite tests/ado <gtest/
tests/desktop      : desktop platform/basic platform/ui <Q <gtest/
tests/errands      : host desktop tests/server
tests/component    : component persistence facilities paycomponents entry browser months payslate host schema \
                     $platform platform/scripted tests/ado tests/server <gtest/
tests/persistence  : component persistence schema $databases platform/common tests/ado tests/server <gtest/
tests/review       : component review platform/basic <gtest/
tests/soak         : host payslate $platform platform/scripted tests/component
tests/server       : platform/basic platform/ado tests/ado
persistence never reaches platform/ui
review never reaches platform/ui
explain never reaches platform/ui
"

find_sources() { find . -path ./build -prune -o -path './.*' -prune -o \( -name '*.cpp' -o -name '*.h' \) -print; }

# Without a build folder there are no links to read.
links=/dev/null
if [ $# -gt 0 ]; then
  links=$1/links.txt
  [ -e "$links" ] || { echo "$links is missing: configure $1 with PAYSLATE_TESTS" >&2; exit 2; }
fi
sources=$(find_sources | sed 's|^\./||' | sort)
includes=$(tools/list-includes.sh $sources)
faults=$(awk -f tools/check-includes.awk <(echo "$table") <(echo "$sources") <(echo "$includes") "$links" | sort -u)
[ -z "$faults" ] || { echo "$faults"; exit 1; }
echo "All includes point the right way."
[ $# -eq 0 ] || echo "All links do."
