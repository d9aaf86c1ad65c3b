#!/usr/bin/env bash
# Installs the Debian packages that are missing: "setup.sh run" those for building and running, "setup.sh test" those of
# the tests as well, "setup.sh lint" those of tools/lint.sh, "setup.sh fuzz" those of tools/fuzz.sh. Does nothing, and
# needs no rights, when all are there.
set -euo pipefail

packages=(g++ cmake ninja-build libsqlite3-dev libssl-dev unixodbc-dev libcli11-dev nlohmann-json3-dev qt6-base-dev libgl-dev libxkbcommon-x11-0
          libxcb-cursor0 fonts-dejavu-core)
case "${1:-run}" in
  run) ;;
  test) packages+=(libgtest-dev xvfb xdotool unixodbc tdsodbc libsqliteodbc odbc-postgresql postgresql) ;;
  lint) packages+=(libgtest-dev git clang-tidy clang-format cppcheck) ;;
  fuzz) packages+=(clang libclang-rt-dev) ;;
  *) echo "Usage: setup.sh [run|test|lint|fuzz]" >&2; exit 2 ;;
esac

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
if [ "${#missing[@]}" -eq 0 ]; then
  echo "All needed packages are installed."
  exit 0
fi
if [ "$(id -u)" -ne 0 ]; then
  echo "These packages are missing; install them, or run this as root: ${missing[*]}" >&2
  exit 2
fi
echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
apt-get update -qq
apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
