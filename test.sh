#!/usr/bin/env bash
# Builds and runs the tests.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

usage() {
  cat <<'TEXT'
usage: ./test.sh [--sanitize] [--filter REGEX] [--help]

Installs what is missing (Debian 12), builds the tests incrementally and runs them.
  --sanitize       with the address and undefined behaviour sanitizers (into build-asan/)
  --filter REGEX   only the tests whose name matches
TEXT
}

folder=build-test
# Line tables are enough to read a failure by, and a third of the compile time.
options=(-DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g1")
filter=()
while [ $# -gt 0 ]; do
  case "$1" in
    --help|-h) usage; exit 0 ;;
    --sanitize) folder=build-asan; options+=(-DZELVO_SANITIZE=ON); shift ;;
    --filter) [ $# -ge 2 ] || { usage >&2; exit 2; }; filter=(-R "$2"); shift 2 ;;
    *) usage >&2; exit 2 ;;
  esac
done

# shellcheck source=tools/setup.sh
. tools/setup.sh
need "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}"
cmake -S . -B "$folder" -G Ninja "${options[@]}" >/dev/null
ninja -C "$folder" --quiet
ctest --test-dir "$folder" --output-on-failure -j "$(nproc)" "${filter[@]}"
