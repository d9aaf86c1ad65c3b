#!/usr/bin/env bash
# with-tsqlserver.sh SERVER COMMAND…: runs the command beside a server that speaks Transact-SQL, reached through the
# system's own ODBC driver, whose connection string is in PAYSLATE_ODBC_TSQL, and ends the server afterwards.
set -euo pipefail
program=$1
shift
folder=$(mktemp -d)
server=
finish() {
  [ -z "$server" ] || kill "$server" 2>/dev/null || true
  rm -rf "$folder"
}
trap finish EXIT
"$program" --database "$folder/payroll.db" --user clerk --password pass-word >"$folder/port" 2>"$folder/log" &
server=$!
for _ in $(seq 100); do
  [ -s "$folder/port" ] && break
  kill -0 "$server" 2>/dev/null || { cat "$folder/log"; exit 1; }
  sleep 0.1
done
port=$(sed -n 's/^listening on 127\.0\.0\.1://p' "$folder/port")
[ -n "$port" ] || { echo "the server does not listen"; cat "$folder/log"; exit 1; }
export PAYSLATE_ODBC_TSQL="Driver={FreeTDS};Server=127.0.0.1;Port=$port;TDS_Version=7.4;ClientCharset=UTF-8;UID=clerk;PWD=pass-word"
"$@"
