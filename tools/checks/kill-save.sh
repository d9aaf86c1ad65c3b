#!/usr/bin/env bash
# Kills a saving process at random moments: the database opens afterwards and holds whole entries only.
# Usage: kill-save.sh PAYROLL-HOST [KILLS]
. "$(dirname "$0")/common.sh"
kills=${2:-100}

names=("Chidi Iversol" "Dana Tamsel" "Celine Iversol" "Farid Farrow" "Greta Kestrel" "Hanno Sundgaard" "Kamal Quade"
       "Lena Brandow" "Nadia Verling" "Otis Maruvi" "Priya Iversol" "Quinn Tamsel" "Tilda Kestrel" "Vera Osthoek"
       "Wanda Holloway" "Xenia Quade" "Yusuf Brandow" "Zora Pellarin" "Anders Verling" "Bela Maruvi")
new_database
cp "$scratch/payroll.db" "$scratch/clean.db"
enter "$scratch/save.errand" "${names[@]}"
started=$(date +%s%N)
perform "$scratch/save.errand" || { tail -n 4 "$scratch/save.errand.log"; exit 1; }
whole_run=$(((($(date +%s%N) - started)) / 1000000))
whole_entries_only

interrupted=0
for ((round = 1; round <= kills; ++round)); do
  rm -f "$scratch"/payroll.db*
  cp "$scratch/clean.db" "$scratch/payroll.db"
  "$host" errand "$scratch/save.errand" --connect "$scratch/payroll.db" >"$scratch/save.errand.log" 2>&1 &
  saving=$!
  sleep "$(awk -v most="$whole_run" -v seed="$RANDOM$round" 'BEGIN { srand(seed); printf "%.3f", rand() * most / 1000 }')"
  if kill -9 "$saving" 2>/dev/null; then interrupted=$((interrupted + 1)); fi
  wait "$saving" 2>/dev/null || true
  whole_entries_only || { echo "after kill $round"; exit 1; }
done
# A machine so quick that runs end before they are killed would prove nothing.
[ "$interrupted" -gt $((kills / 2)) ] || { echo "only $interrupted of $kills runs were killed"; exit 1; }
echo "$interrupted of $kills saving runs were killed; every database holds whole entries only."
