#!/usr/bin/env bash
# Takes the walks through the house as a newcomer would, and runs the tests behind each.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

usage() {
  cat <<'HELP'
usage: tools/try-walks.sh [--all] [--folder DIR] [--help] [WALK...]

Follows walks of docs/walks (field, search…; all of them where none is named) to the letter, each in a clone that stands as
HEAD does: takes its steps, runs the commands of its last words, "Then `…`, and `./test.sh …`", and asks whether all of it stands
afterwards. Says of each walk whether it was taken, and exits 1 where one was not.
  --all           all tests behind each walk, not those alone that it names
  --folder DIR    where the clone, what is built of it, and a log of each walk are kept, so that the next time is quick;
                  build-walks/ where it isn't said
HELP
}

all='' folder=$root/build-walks walks=()
while [ $# -gt 0 ]; do
  case "$1" in
    --help|-h) usage; exit 0 ;;
    --all) all=yes; shift ;;
    --folder) [ $# -ge 2 ] || { usage >&2; exit 2; }; folder=$(realpath -m "$2"); shift 2 ;;
    -*) usage >&2; exit 2 ;;
    *) walks+=("$(basename "$1" .md)"); shift ;;
  esac
done
# shellcheck source=setup.sh
. "$root/tools/setup.sh"
need "${build_packages[@]}" "${test_packages[@]}" "${check_packages[@]}"
commit=$(git -C "$root" rev-parse HEAD)
tree=$folder/tree
mkdir -p "$folder"
# Two at once would take the tree from under each other.
exec 9>"$folder/lock"
flock 9
[ -d "$tree/.git" ] || git clone -q "$root" "$tree"
git -C "$tree" fetch -q "$root" "$commit"

# as_committed: the clone as if it had just been made, but for what was built of it.
as_committed() {
  git checkout -q --force --detach "$commit"
  git clean -qfdx -e /build-test
}
# commands FILE: what its last words say to run, a line each.
commands() { sed -n '/^Then `/,$p' "$1" | grep -oE '`[^`]+`' | tr -d '`'; }
take() {
  local page=docs/walks/$1.md command behind=''
  as_committed
  tools/walk "$page"
  while read -r command; do
    [[ $command != ./test.sh* ]] || behind=yes
    [ -z "$all" ] || [[ $command != ./test.sh* ]] || command=./test.sh
    echo "== $command"
    bash -c "$command" </dev/null 9>&-
  done < <(commands "$page")
  [ -n "$behind" ] || { echo "$page names no test" >&2; return 1; }
  tools/walk --check "$page" | grep -qFx "$page: taken"
}

cd "$tree"
as_committed
if [ ${#walks[@]} -eq 0 ]; then
  for page in docs/walks/*.md; do walks+=("$(basename "$page" .md)"); done
fi
status=0
for walk in "${walks[@]}"; do
  log=$folder/$walk.log
  # A shell of its own, which ends at its first failure.
  if (export -f as_committed commands take && commit=$commit all=$all bash -euo pipefail -c 'take "$1"' - "$walk") >"$log" 2>&1; then
    echo "$walk: taken; $(grep -E '^[0-9]+% tests passed' "$log" | tail -1)"
  else
    echo "$walk: failed; its log is $log" >&2
    tail -20 "$log" >&2
    status=1
  fi
done
as_committed
exit $status
