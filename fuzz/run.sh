#!/usr/bin/env bash
# Feeds the readers of what comes from outside: fuzz/run.sh SECONDS [INPUTS] [NAME...]. SECONDS or INPUTS may be 0.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=../tools/setup.sh
. tools/setup.sh
need "${build_packages[@]}" "${fuzz_packages[@]}"

seconds=${1:-60} inputs=${2:-0}
names=("${@:3}")
[ ${#names[@]} -gt 0 ] || names=(rtf page charset address settings cost)
CC=clang CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DZELVO_FUZZ=ON -DZELVO_TESTS=OFF -DCMAKE_BUILD_TYPE=None \
  "-DCMAKE_CXX_FLAGS=-O1 -g1" >/dev/null
cmake --build build-fuzz --target fuzzers
bounds=(-max_len=4096 -timeout=20 -print_final_stats=1)
[ "$seconds" -eq 0 ] || bounds+=("-max_total_time=$seconds")
[ "$inputs" -eq 0 ] || bounds+=("-runs=$inputs")
for name in "${names[@]}"; do
  echo "== fuzz $name"
  grown=build-fuzz/corpus/$name
  mkdir -p "$grown"
  words=()
  [ ! -f "fuzz/$name.dict" ] || words=("-dict=fuzz/$name.dict")
  build-fuzz/bin/fuzz_"$name" "${bounds[@]}" "${words[@]}" -artifact_prefix=build-fuzz/ "$grown" "fuzz/corpus/$name" \
    >"build-fuzz/$name.log" 2>&1 || { tail -40 "build-fuzz/$name.log"; exit 1; }
  grep -h 'stat::number_of_executed_units' "build-fuzz/$name.log"
done
