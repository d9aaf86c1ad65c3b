#!/usr/bin/env bash
# Two processes save new entries into one database at the same moment: all are stored whole, none shares a number, and
# of two entries for one employee only one is stored. Then the second does something while the first is in the middle
# of it, who is told. Usage: two-clerks.sh PAYROLL-HOST
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

# meanwhile NAME: the errand of that name waits where it says "database gate"; another process performs the errand that
# standard input holds meanwhile.
meanwhile() {
  local first watch errand=$scratch/$1.errand
  cat >"$scratch/other.errand"
  rm -f "$scratch/gate"
  mkfifo "$scratch/gate"
  perform "$errand" & first=$!
  # Who waits for a first that never comes to the gate is let go.
  (while kill -0 "$first" 2>/dev/null; do sleep 0.1; done; : <>"$scratch/gate") & watch=$!
  exec 3>"$scratch/gate"
  perform "$scratch/other.errand" || { tail -n 4 "$scratch/other.errand.log"; exit 1; }
  exec 3>&-
  wait "$first" || { tail -n 4 "$errand.log"; exit 1; }
  wait "$watch"
}

list='session company 1 user 1 interface 40001 year 2026 date 2026/04/30 title "Payroll"
show'

# One employee entered twice.
cat >"$scratch/entering.errand" <<END
$list
click cmdnew
choose cboEmpname "Celine Iversol"
database gate
click cmdOk
message "The employee has an entry for this period already: *" style 64 answer ok
close
message "Save Changes?" answer no
close
END
enter "$scratch/again.errand" "Celine Iversol"
meanwhile entering <"$scratch/again.errand"
holds 18 "emhDate = '2026/04/30' and emhCancelled = 0"

# One recovery taken twice.
cat >"$scratch/taking.errand" <<END
$list
click cmdnew
choose cboEmpname "Asha Verling"
page tabpayslate Facilities
tick lvwfacility 1
database gate
click cmdOk
message "The recovery FT-1 (Motor cycle) is taken by the entry EN63 already. *" style 64 answer ok
tick lvwfacility 1
click cmdOk
close
END
meanwhile taking <<END
sql insert into pempfacilitydeductiondetail (efdcompanyid, efdid, efddetailid, efdtrackingid) values (1, 81, 1, 1)
END
holds 19 "emhDate = '2026/04/30' and emhCancelled = 0"

# One entry cancelled twice, the last of the list.
cat >"$scratch/cancel.errand" <<END
$list
focus flexMaster
key End
key Delete
message "Are you sure you want to delete the entry - *" answer yes
type txtcanreason "mine"
click cmdOk
close
END
sed -e '/^click cmdOk/i database gate' -e '/^click cmdOk/a message "Another clerk has cancelled this entry meanwhile. *" style 64 answer ok\nexpect CmdDelete.Enabled = False' \
  -e 's/mine/other/' "$scratch/cancel.errand" >"$scratch/late.errand"
meanwhile late <"$scratch/cancel.errand"
holds 1 "emhCancelledRemarks like '%:mine'"
holds 0 "emhCancelledRemarks like '%:other'"

echo "Both clerks' entries are whole; nobody is entered, nothing taken or cancelled twice."
