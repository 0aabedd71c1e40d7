#!/usr/bin/env bash
# Feeds the readers of what comes from outside.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
readers=(rtf page charset address settings cost)
usage() {
  cat <<HELP
usage: fuzz/run.sh [SECONDS [INPUTS [NAME...]]]

Builds the fuzzers into build-fuzz/ and feeds each reader of what comes from outside for SECONDS (60), or with so many INPUTS;
one of the two may be 0, for no bound. NAMEs: ${readers[*]}; without one, all of them.
What ends a reader is left in build-fuzz/, and what it has learnt in build-fuzz/corpus.
HELP
}
case "${1-}" in
  --help|-h) usage; exit 0 ;;
  *[!0-9]*) usage >&2; exit 2 ;;
esac
# shellcheck source=../tools/setup.sh
. tools/setup.sh
need "${build_packages[@]}" "${fuzz_packages[@]}"

seconds=${1:-60} inputs=${2:-0}
names=("${@:3}")
[ ${#names[@]} -gt 0 ] || names=("${readers[@]}")
CC=clang CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DZELVO_FUZZ=ON -DZELVO_TESTS=OFF -DCMAKE_BUILD_TYPE=None \
  "-DCMAKE_CXX_FLAGS=-O1 -g1" >/dev/null
cmake --build build-fuzz --target fuzzers
bounds=(-max_len=4096 -timeout=20 -print_final_stats=1)
[ "$seconds" -eq 0 ] || bounds+=("-max_total_time=$seconds")
[ "$inputs" -eq 0 ] || bounds+=("-runs=$inputs")
# One reader; what it did is printed when it has ended.
feed() {
  local name=$1 grown=build-fuzz/corpus/$1 words=()
  mkdir -p "$grown"
  [ ! -f "fuzz/$name.dict" ] || words=("-dict=fuzz/$name.dict")
  if build-fuzz/bin/fuzz_"$name" "${bounds[@]}" "${words[@]}" -artifact_prefix=build-fuzz/ "$grown" "fuzz/corpus/$name" \
    >"build-fuzz/$name.log" 2>&1; then
    echo "fuzz $name: $(grep -h 'stat::number_of_executed_units' "build-fuzz/$name.log")"
  else
    tail -40 "build-fuzz/$name.log"
    return 1
  fi
}

# As many at a time as there are processors.
running=()
for name in "${names[@]}"; do
  while [ "$(jobs -rp | wc -l)" -ge "$(nproc)" ]; do wait -n || true; done
  feed "$name" &
  running+=($!)
done
failed=0
for job in "${running[@]}"; do wait "$job" || failed=1; done
exit "$failed"
