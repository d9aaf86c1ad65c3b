#!/usr/bin/env bash
# Attacks on the embedded engine and the component: processes killed at random moments, month runs among them, and at
# every write and sync of a save, also with the power; damaged copies of a database; the stored catalog, byte by byte.
# What was stored must be there, entries whole, a month completed by the next run, and a clerk told in clear sentences.
# Usage: attack.sh PAYSLATE-ATTACK [SEED [PERCENT [ATTACK [STEP]]]]    100 percent are the full run
set -euo pipefail
attack=$(realpath "$1")
seed=${2:-$RANDOM}
percent=${3:-100}
export LSAN_OPTIONS="suppressions=$(dirname "$(realpath "${BASH_SOURCE[0]}")")/../../tests/lsan.supp:print_suppressions=0"
# Where files are kept in memory, if the system does that: a kill is no loss of power, and what that loses is played.
folder=$(mktemp -d -p "$([ -w /dev/shm ] && echo /dev/shm || echo "${TMPDIR:-/tmp}")" attack.XXXXXX)
echo "seed $seed, $percent percent"

# run ATTACKS…: one after the other.
run() {
  local name started
  for name in "$@"; do
    mkdir -p "$folder/$name"
    started=$(date +%s)
    if "$attack" "$name" "$folder/demo.db" "$seed" "$percent" "$folder/$name" ${step:+"$step"} >"$folder/$name.log" 2>&1; then
      echo "$name, $(($(date +%s) - started)) s:"
      cat "$folder/$name.log"
      rm -r "${folder:?}/$name"
    else
      cat "$folder/$name.log"
      echo "FAILED. Again: $0 $attack $seed $percent $name [STEP]. The databases are kept in $folder/$name."
      return 1
    fi
  done
}

"$attack" demo "$folder/demo.db"
step=${5:-}
if [ $# -ge 4 ]; then
  run "$4"
else
  run kills months copies & one=$!
  run writes catalog & other=$!
  status=0
  wait "$one" || status=1
  wait "$other" || status=1
  [ "$status" -eq 0 ] || exit 1
fi
rm -r "$folder"
