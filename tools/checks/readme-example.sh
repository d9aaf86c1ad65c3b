#!/usr/bin/env bash
# The program that the README shows is the one that is built and run.
set -euo pipefail
cd "$(dirname "$0")/../.."
diff <(sed -n '/^```cpp$/,/^```$/p' README.md | sed '1d;$d') host/example/main.cpp
echo "The README shows host/example/main.cpp as it is."
