#!/usr/bin/env bash
# Feeds the fuzz targets what the fuzzer thinks of. An input that crashes one, breaks a promise, leaks, or takes longer
# than five seconds or more than a gigabyte is kept and told, and ends the run of its target.
# Usage: fuzz.sh [--seconds N] [--runs N] [--jobs N] [--keep] [TARGET...]
#   Each target runs for a minute, or as long or as often as is said, as many at a time as there are processors.
#   --keep: what reaches more of the code than fuzz/corpus does goes there.
set -euo pipefail
shopt -s inherit_errexit
cd "$(dirname "$0")/.."

# Where the words come from that a target is fed with: what stands between quotes; of SQL, everything.
declare -A words=(
  [statements]="schema/payroll.sql platform/tsql/*.cpp"
  [sessions]="fuzz/sessions.cpp platform/tsql/*.cpp"
  [errands]="platform/scripted/*.cpp platform/ui/Key.cpp tests/scripted/ToyForms.h"
  [connections]="fuzz/connections.cpp platform/ado/*.cpp platform/odbc/DriverString.cpp platform/sqlite/SqliteProvider.cpp"
  [numbers]="fuzz/numbers.cpp platform/basic/Numbers.cpp"
  [driver]="fuzz/driver.cpp"
)
targets=(statements sessions errands connections numbers driver)
seconds=
runs=
jobs=$(nproc)
keep=
usage() { sed -n 's/^# Usage: /Usage: /p' "$0" >&2; exit 2; }
while [ $# -gt 0 ]; do
  case "$1" in
    --seconds | --runs | --jobs)
      [[ "${2:-}" =~ ^[1-9][0-9]*$ ]] || usage
      declare "${1#--}=$2"
      shift 2 ;;
    --keep) keep=yes; shift ;;
    -*) usage ;;
    *) break ;;
  esac
done
[ $# -eq 0 ] || targets=("$@")
for target in "${targets[@]}"; do
  [ -n "${words[$target]:-}" ] || { echo "There is no target $target; there are: ${!words[*]}" >&2; exit 2; }
done
[ -n "$seconds$runs" ] || seconds=60

echo "== Packages"
tools/setup.sh fuzz
echo "== Build"
cmake --preset fuzz -Wno-dev >/dev/null
cmake --build --preset fuzz --target payslate_fuzz
programs=build/fuzz/fuzz
found=build/fuzz/found
mkdir -p build/fuzz/{dictionaries,logs} "$found"
# The sessions' files, in memory where there is a place for it.
TMPDIR=$(mktemp -d -p "$([ -w /dev/shm ] && echo /dev/shm || echo "${TMPDIR:-/tmp}")" payslate-fuzz-XXXXXX)
export TMPDIR programs found seconds runs
trap 'rm -rf "$TMPDIR"' EXIT

dictionary() {
  local file
  for file in $1; do
    case "$file" in
      *.sql) grep -ohE '[A-Za-z_][A-Za-z_0-9]{2,}' "$file" | sed 's/.*/"&"/' ;;
      *) LC_ALL=C grep -ohE '"[] !#-[^-~]{2,30}"' "$file" || true ;;
    esac
  done | sort -u
}

for target in "${targets[@]}"; do
  dictionary "${words[$target]}" >"build/fuzz/dictionaries/$target"
  for kind in found reached; do
    "$programs/payslate_fuzz_corpus" unpack "fuzz/corpus/$target.$kind" "build/fuzz/corpus/$target"
  done
done

# Says what came of a target; fails where an input was found.
fuzz() {
  local target=$1 limits=(-timeout=5 -rss_limit_mb=1024 -detect_leaks=1 -max_len=2000 -entropic=0) log=build/fuzz/logs/$1
  [ -z "$seconds" ] || limits+=("-max_total_time=$seconds")
  [ -z "$runs" ] || limits+=("-runs=$runs")
  if ASAN_OPTIONS=quarantine_size_mb=32 UBSAN_OPTIONS=print_stacktrace=1 \
    "$programs/payslate_fuzz_$target" "build/fuzz/corpus/$target" "${limits[@]}" \
    "-dict=build/fuzz/dictionaries/$target" "-artifact_prefix=$found/$target-" -print_final_stats=1 >"$log" 2>&1; then
    awk -v target="$target" '/^Done/ { done = $2; time = $5 } / cov: / { for (i = 1; i < NF; i++) if ($i == "cov:") cov = $(i + 1) }
      /average_exec_per_sec/ { speed = $2 } /peak_rss_mb/ { peak = $2 }
      END { printf "%s: %d inputs in %d s (%d a second), at most %d MB, %d places reached\n", target, done, time, speed, peak, cov }' "$log"
    return
  fi
  tail -n 60 "$log"
  local input
  input=$(sed -n 's/^.*Test unit written to //p' "$log" | tail -n 1)
  echo "$target: found ${input:-nothing that can be repeated, see $log}"
  [ -z "$input" ] || echo "Again: $programs/payslate_fuzz_$target -timeout=5 -rss_limit_mb=1024 $input"
  return 1
}
export -f fuzz

echo "== Fuzzing"
faults=0
printf '%s\n' "${targets[@]}" | xargs -n 1 -P "$jobs" bash -c 'set -euo pipefail; fuzz "$1"' fuzz || faults=1

if [ -n "$keep" ]; then
  echo "== What is kept"
  for target in "${targets[@]}"; do
    rm -rf "build/fuzz/merged/$target"
    mkdir -p "build/fuzz/merged/$target"
    "$programs/payslate_fuzz_$target" -merge=1 -timeout=5 "build/fuzz/merged/$target" "build/fuzz/corpus/$target" \
      >"build/fuzz/logs/$target.merge" 2>&1
    "$programs/payslate_fuzz_corpus" pack "build/fuzz/merged/$target" "fuzz/corpus/$target.reached"
  done
  du -c -b fuzz/corpus/* | tail -n 1
fi
exit "$faults"
