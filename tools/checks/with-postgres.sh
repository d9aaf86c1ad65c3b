#!/usr/bin/env bash
# with-postgres.sh COMMAND…: runs the command beside a PostgreSQL server of its own on loopback, whose ODBC connection
# string is in PAYSLATE_ODBC_POSTGRES, and ends the server afterwards.
set -euo pipefail
programs=$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -n 1)
folder=$(mktemp -d)
# The server refuses to run as root.
as_user=()
if [ "$(id -u)" -eq 0 ]; then
  as_user=(setpriv --reuid=postgres --regid=postgres --clear-groups)
  chown postgres: "$folder"
fi
finish() {
  "${as_user[@]}" "$programs/pg_ctl" -D "$folder/data" -m immediate stop >/dev/null 2>&1 || true
  rm -rf "$folder"
}
trap finish EXIT
cd "$folder"
"${as_user[@]}" "$programs/initdb" -D data -U clerk -A trust -E UTF8 --locale=C.UTF-8 >initdb.log 2>&1 ||
  { cat initdb.log; exit 1; }

start() {
  "${as_user[@]}" "$programs/pg_ctl" -w -D data -l "$folder/data/log" start \
    -o "-p $1 -c listen_addresses=127.0.0.1 -c unix_socket_directories=$folder -c fsync=off -c deadlock_timeout=200ms" \
    >start.log 2>&1
}
# A port that is taken makes the start fail; another one is tried.
for _ in $(seq 10); do
  port=$((20000 + RANDOM % 20000))
  start "$port" && break
  port=
done
[ -n "$port" ] || { cat start.log data/log; exit 1; }
cd "$OLDPWD"
export PAYSLATE_ODBC_POSTGRES="Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=$port;Database=postgres;UID=clerk"
"$@"
