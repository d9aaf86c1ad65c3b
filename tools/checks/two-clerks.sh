#!/usr/bin/env bash
# Two processes save new entries into one database at the same moment: all are stored whole, none shares a number, and
# of two entries for one employee only one is stored. Usage: two-clerks.sh PAYROLL-HOST
. "$(dirname "$0")/common.sh"

new_database
enter "$scratch/a.errand" "Chidi Iversol" "Dana Tamsel" "Farid Farrow" "Greta Kestrel" "Hanno Sundgaard" "Anders Verling"
enter "$scratch/b.errand" "Kamal Quade" "Lena Brandow" "Nadia Verling" "Otis Maruvi" "Priya Iversol" "Quinn Tamsel"
perform "$scratch/a.errand" & first=$!
perform "$scratch/b.errand" & second=$!
wait "$first" || { tail -n 4 "$scratch/a.errand.log"; exit 1; }
wait "$second" || { tail -n 4 "$scratch/b.errand.log"; exit 1; }
holds 12 "emhDate = '2026/04/30'"
whole_entries_only

for name in "Vera Osthoek" "Wanda Holloway" "Xenia Quade" "Yusuf Brandow" "Zora Pellarin"; do
  enter "$scratch/a.errand" "$name"
  perform "$scratch/a.errand" & first=$!
  cp "$scratch/a.errand" "$scratch/b.errand"
  perform "$scratch/b.errand" & second=$!
  stored=0
  wait "$first" && stored=$((stored + 1))
  wait "$second" && stored=$((stored + 1))
  [ "$stored" -eq 1 ] || { echo "$name was stored by $stored of two clerks"; tail -n 4 "$scratch/a.errand.log"; exit 1; }
done
holds 17 "emhDate = '2026/04/30' and emhCancelled = 0"
whole_entries_only
echo "Both clerks' entries are whole, and nobody is entered twice."
