#!/usr/bin/env bash
# Static checks; any finding fails. clang-format and cppcheck look at everything, clang-tidy at the sources that changed
# since this branch left origin/main (on main itself, or without an origin: since the commit before the last), and at
# those that include a changed header.
# Usage: lint.sh [--all]    --all: clang-tidy looks at every source
set -euo pipefail
shopt -s inherit_errexit
cd "$(dirname "$0")/.."

case "${1:-}" in
  "" | --all) ;;
  *) echo "Usage: lint.sh [--all]" >&2; exit 2 ;;
esac
for tool in git cmake clang-format cppcheck clang-tidy; do
  command -v "$tool" >/dev/null || { echo "$tool is missing; tools/setup.sh lint installs it." >&2; exit 2; }
done

# Those that are there: git also lists what was removed and not yet committed.
own_files() {
  git ls-files --cached --others --exclude-standard -- "$@" |
    while IFS= read -r file; do [ ! -e "$file" ] || printf '%s\n' "$file"; done
}

# The commit that changes count from; fails where history begins with the last one.
changes_from() {
  local fork
  fork=$(git merge-base HEAD origin/main 2>/dev/null) || fork=
  if [ -z "$fork" ] || [ "$fork" = "$(git rev-parse HEAD)" ]; then
    fork=$(git rev-parse --verify --quiet HEAD~1) || return 1
  fi
  printf '%s\n' "$fork"
}

# changed_sources COMMIT: the sources that changed since, and those that include a changed header, however far down.
changed_sources() {
  local changed includes
  changed=$(git diff --name-only "$1"; git ls-files --others --exclude-standard)
  includes=$(tools/list-includes.sh $files)
  awk 'FNR == 1 { part++ }
       part == 1 { reached[$0]; next }
       part == 2 { source[$0]; next }
       { gsub(/"/, "", $2); includer[FNR] = $1; included[FNR] = $2 }
       END {
         do {
           grown = 0
           for (i in includer)
             if (included[i] in reached && !(includer[i] in reached)) { reached[includer[i]]; grown = 1 }
         } while (grown)
         for (file in source) if (file in reached) print file
       }' <(printf '%s\n' "$changed") <(printf '%s\n' "$sources") <(printf '%s\n' "$includes") | sort
}

# Says nothing of a source without findings.
tidy() {
  local said
  said=$(clang-tidy -p build/dev --quiet "$1" 2>&1) || { printf '%s\n' "$said"; return 1; }
}
export -f tidy

# A finding in a header is found again by every source that includes it.
told_once() {
  awk -v root="$PWD/" 'BEGIN { show = 1 }
                       /warnings? generated\.$|^Error while processing|warnings? treated as error/ { next }
                       index($0, root) == 1 { $0 = substr($0, length(root) + 1) }
                       /: (warning|error): / { show = !told[$0]++ }
                       show'
}

files=$(own_files '*.cpp' '*.h')
sources=$(own_files '*.cpp')
faults=0

echo "== clang-format"
clang-format --dry-run -Werror $files || faults=1

echo "== cppcheck"
cppcheck --file-list=- -I . --std=c++20 --library=googletest --enable=warning,performance,portability \
  --suppressions-list=.cppcheck-suppressions --error-exitcode=1 -q -j "$(nproc)" <<<"$sources" || faults=1

if [ "${1:-}" != --all ] && from=$(changes_from); then
  echo "== clang-tidy: what changed since $(git log -1 --format='%h, %s' "$from")"
  sources=$(changed_sources "$from")
else
  echo "== clang-tidy: everything"
fi
echo "Sources: $(wc -w <<<"$sources")"
# Afresh each time: a source that is new has no command yet.
cmake --preset dev -Wno-dev >/dev/null
xargs -r -n 1 -P "$(nproc)" bash -c 'tidy "$1"' tidy <<<"$sources" | told_once || faults=1

[ "$faults" -ne 0 ] || echo "Nothing found."
exit "$faults"
