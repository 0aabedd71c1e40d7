#!/usr/bin/env bash
# Builds DoctorZELVO for 64-bit Windows on this machine.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

usage() {
  cat <<'TEXT'
usage: tools/windows/build.sh --terminal [--test] [--jobs N]

Builds the console programs zelvo.exe and zelvo-pharmacy.exe and the component's DLL, without its windows, into
build-windows-terminal/bin. --test runs under wine the rooms' tests that need no screen and every console scenario.
Installs what is missing (Debian 12); the libraries are made once, from Debian's sources (tools/windows/libraries.sh).
TEXT
}

terminal=
tests=
jobs=$(nproc)
while [ $# -gt 0 ]; do
  case "$1" in
    --help|-h) usage; exit 0 ;;
    --terminal) terminal=yes; shift ;;
    --test) tests=yes; shift ;;
    --jobs) jobs=$2; shift 2 ;;
    *) usage >&2; exit 2 ;;
  esac
done
[ "$terminal" ] || { usage >&2; exit 2; }

# shellcheck source=../setup.sh
. tools/setup.sh
need "${build_packages[@]}" "${windows_packages[@]}"
ZELVO_WINDOWS_LIBRARIES=$(tools/windows/libraries.sh --jobs "$jobs" sqlite curl httplib)
export ZELVO_WINDOWS_LIBRARIES

build=build-windows-terminal
cmake --preset windows-terminal -DZELVO_TESTS="$([ "$tests" ] && echo ON || echo OFF)" >/dev/null
ninja -C "$build" -j "$jobs" --quiet
[ "$tests" ] || exit 0

# A Windows of the tests' own; made before they start, for one that several find missing is made several times.
export WINEPREFIX=$PWD/$build/wine WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml=
[ -f "$WINEPREFIX/system.reg" ] || wine wineboot --init >/dev/null 2>&1
ctest --test-dir "$build" -j "$jobs" --output-on-failure
