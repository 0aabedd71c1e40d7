#!/usr/bin/env bash
# Looks with clang-tidy through what is compiled for Windows alone, as tools/windows/build.sh --terminal has compiled it; what
# belongs to the windows is not in there.
set -euo pipefail
case "${1-}" in
  '') ;;
  *) echo "usage: tools/windows/tidy.sh    looks with clang-tidy through what tools/windows/build.sh --terminal has compiled for Windows alone"
     [ "$1" = --help ] && exit 0 || exit 2 ;;
esac
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
build=build-windows-terminal

# The commands as clang takes them.
mkdir -p "$build/tidy"
sed 's/ -fno-keep-inline-dllexport//g' "$build/compile_commands.json" >"$build/tidy/compile_commands.json"
library=$(x86_64-w64-mingw32-g++-posix -print-file-name=include)/c++
git ls-files 'src/*_windows.cpp' 'demo/*_windows.cpp' 'windows/*.cpp' | while read -r file; do
  ! grep -qF "\"$PWD/$file\"" "$build/compile_commands.json" || echo "$file"
done | xargs -P "$(nproc)" -n 4 clang-tidy -p "$build/tidy" --quiet --extra-arg=--target=x86_64-w64-mingw32 \
  --extra-arg=-isystem"$library" --extra-arg=-isystem"$library/x86_64-w64-mingw32"
