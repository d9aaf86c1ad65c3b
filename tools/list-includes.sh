#!/usr/bin/env bash
# Prints who includes what, a line each: the file, a blank, what it includes in its quotes or brackets.
# Usage: list-includes.sh FILE…
set -euo pipefail
include='^[[:blank:]]*#[[:blank:]]*include[[:blank:]]*'
grep -HoE "$include(\"[^\"]*\"|<[^>]*>)" /dev/null "$@" | sed -E 's/:[[:blank:]]*#[[:blank:]]*include[[:blank:]]*/ /'
