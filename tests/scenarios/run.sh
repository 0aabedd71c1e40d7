#!/usr/bin/env bash
# Runs one console script on a demo pharmacy of its own: run.sh BIN_DIR SCRIPT [stage|desk|wine]; on the stage it works the
# real windows, on a screen that nobody sees; on the desk it goes through the real driver of a SQL Server, to a desk that is
# none; by wine it runs the programs for Windows.
# A line "# call: ..." in the script gives the words behind `zelvo`; "# exit: N" the exit code it comes to (0 without it).
# A line "# keys: N" lets N keys be pressed in it at most, beside those that write.
# At a line "# killed" the program is killed as it stands, once all before it is done; a new one goes on with the rest.
set -euo pipefail
bin=$1
script=$2
place=${3:-console}
scratch=$(mktemp -d)
server=
trap '[ -z "$server" ] || { kill "$server"; wait "$server"; } 2>/dev/null || true; rm -rf "$scratch"' EXIT
# Where a program sees this machine's folders, and how it is started.
drive=
program=()
parent=(--parent $$)
if [ "$place" = wine ]; then
  drive=Z:
  program=(wine)
  parent=()
  export LC_ALL=C.UTF-8
fi
pharmacy=("${program[@]}" "$bin/zelvo-pharmacy${program:+.exe}")
zelvo=("${program[@]}" "$bin/zelvo${program:+.exe}")
export XDG_DATA_HOME="$drive$scratch/data" XDG_CONFIG_HOME="$drive$scratch/config"
db="$drive$scratch/pharmacy.db"
"${pharmacy[@]}" --db "$db" init >/dev/null
"${pharmacy[@]}" --db "$db" serve "${parent[@]}" --ready-file "$drive$scratch/port" >/dev/null &
server=$!
for _ in $(seq 200); do
  [ -s "$scratch/port" ] && break
  sleep 0.05
done
call=$(sed -n 's/^# call: //p' "$script" | head -1)
expected=$(sed -n 's/^# exit: //p' "$script" | head -1)
[ -n "$call" ] || call="doctor --account doctor1/\$/pass1 --patient-pk 1024 --patient-name 김하늘 --patient-age 41 --patient-sex 2 --patient-cell 01012345678 --patient-zip 06236 --patient-address 서울특별시_강남구_테헤란로_152 --hospital-name 하늘한의원 --doctor-name 이정민 --hospital-tel 025550123 --hospital-zip 03045 --hospital-address 서울특별시_종로구_효자로_12"
read -r -a words <<<"$call"
words=("${words[@]//_/ }")
most=$(sed -n 's/^# keys: //p' "$script" | head -1)
pressed=$(awk '/^(shortcut|answer) / { n++ } /^key / { for (i = 3; i <= NF; i++) n += $i ~ /^[A-Z][a-z]/ } END { print n + 0 }' "$script")
[ "$pressed" -le "${most:-$pressed}" ] || { echo "$pressed keys, at most $most" >&2; exit 1; }
status=0
address="sqlite:$db"
if [ "$place" = desk ]; then
  mkfifo "$scratch/end"
  "$bin/tds-desk" "$db" "$scratch/desk" <"$scratch/end" &
  exec 9>"$scratch/end"
  until [ -s "$scratch/desk" ]; do sleep 0.05; done
  address=$(cat "$scratch/desk")
  export ZELVO_ODBC_ENCRYPT=off ZELVO_DEMO_PHARMACY="$db"
fi
killed=$(grep -n '^# killed' "$script" | cut -d: -f1 || true)
if [ -n "$killed" ]; then
  mkfifo "$scratch/keys"
  "${zelvo[@]}" "${words[@]}" --console --server "$address" <"$scratch/keys" >"$scratch/before" &
  victim=$!
  exec 8>"$scratch/keys"
  { head -n "$killed" "$script"; echo "show c1tMain"; } >&8
  until grep -q '^c1tMain' "$scratch/before"; do kill -0 "$victim"; sleep 0.05; done
  kill -9 "$victim"
  wait "$victim" 2>/dev/null || true
  exec 8>&-
  tail -n +"$((killed + 1))" "$script" >"$scratch/rest.zs"
  script="$scratch/rest.zs"
fi
if [ "$place" = stage ]; then
  export QT_QPA_PLATFORM="offscreen:configfile=$(dirname "${BASH_SOURCE[0]}")/../../demo/stage/screen.json"
  "$bin/zelvo-stage" "" "${words[@]}" --server "sqlite:$db" --script "$script" || status=$?
else
  "${zelvo[@]}" "${words[@]}" --console --values - --script "$drive$(realpath "$script")" <<<"server $address" || status=$?
fi
[ "$status" -eq "${expected:-0}" ] || { echo "exit $status, expected ${expected:-0}" >&2; exit 1; }
