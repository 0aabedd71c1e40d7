#!/usr/bin/env bash
# Looks with clang-tidy through what tools/windows/build.sh has compiled for Windows alone.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

usage() {
  cat <<'TEXT'
usage: tools/windows/tidy.sh [--terminal]

Looks with clang-tidy through what tools/windows/build.sh has compiled for Windows alone; by --terminal through what it has
compiled without the windows.
TEXT
}

build=build-windows
case "${1-}" in
  '') ;;
  --terminal) build=build-windows-terminal ;;
  --help|-h) usage; exit 0 ;;
  *) usage >&2; exit 2 ;;
esac

# The commands as clang takes them.
mkdir -p "$build/tidy"
sed 's/ -fno-keep-inline-dllexport//g' "$build/compile_commands.json" >"$build/tidy/compile_commands.json"
library=$(x86_64-w64-mingw32-g++-posix -print-file-name=include)/c++
git ls-files 'src/*_windows.cpp' 'demo/*_windows.cpp' 'windows/*.cpp' | while read -r file; do
  ! grep -qF "\"$PWD/$file\"" "$build/compile_commands.json" || echo "$file"
done | xargs -P "$(nproc)" -n 4 clang-tidy -p "$build/tidy" --quiet --extra-arg=--target=x86_64-w64-mingw32 \
  --extra-arg=-isystem"$library" --extra-arg=-isystem"$library/x86_64-w64-mingw32"
