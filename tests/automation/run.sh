#!/usr/bin/env bash
# The automation object, called by a chart of its own under wine: run.sh BIN_DIR SOURCE_DIR WINDOW (ON, OFF). What it is
# registered by comes and goes; whole orders by either binding, and by a script; what is left when the object's program, or
# the chart, is killed at each stage of a send.
set -euo pipefail
bin=$1
source=$2
window=$3
# shellcheck source=wine.sh
. "$(dirname "${BASH_SOURCE[0]}")/wine.sh"
ours() { for root in HKCU HKLM; do wine reg query "$root\\Software\\Classes" /s | grep -ai 'zelvo\|496a5d59' || true; done; }

case=registration
wine "$bin/DoctorZELVO.exe" /register
mkdir "$scratch/other"
cp "$bin"/DoctorZELVO.{exe,dll} "$scratch/other"
wine "$scratch/other/DoctorZELVO.exe" /unregister
[ "$(ours | wc -l)" -gt 8 ] || fail "taken by another copy, or never there: $(ours)"
wine "$bin/DoctorZELVO.exe" /unregister
[ -z "$(ours)" ] || fail "left: $(ours)"
wine "$bin/DoctorZELVO.exe" /register

base=Z:$scratch/base.db
wine "$bin/zelvo-pharmacy.exe" --db "$base" init >/dev/null
serve() {
  rm -f "$scratch/port"
  wine "$bin/zelvo-pharmacy.exe" --db "$base" serve --ready-file "Z:$scratch/port" >/dev/null &
  within '[ -s "$scratch/port" ]'
}
serve
order=$source/demo/scenarios/first-order.zs
composed=$(sed '/^answer No/,$d' "$order")
send=$(sed -n '/^answer No/,$p' "$order")
failed='press ssrCBJSend
expect message "처방전 전송" *
expect message "처방전 전송 성공" *'
event='event 1: "첩약 + 탕전" short:20 short:100 float:3 short:7 short:21 "식후 30분에 복용하도록 안내 부탁드립니다." long:20489 "당귀/$CD$/6/$RD$/작약/$CD$/4/$RD$/감초/$CD$/2"'
orders() { sqlite3 "$scratch/now.db" 'SELECT count(*) FROM t_ChubangJun'; }
marks() { find "$scratch/data" -name 'unsettled_*' | wc -l; }
# Those that stand: what is on its way in or out bears another ending.
standing() { find "$scratch/data" -name 'unsettled_*.txt' | wc -l; }

# A pharmacy and a user of the case's own.
fresh() {
  case=$1
  cp "$scratch/base.db" "$scratch/now.db"
  rm -rf "$scratch/data" "$scratch/keys" "$scratch"/*.out
  mkdir "$scratch/data"
  export XDG_DATA_HOME=Z:$scratch/data XDG_CONFIG_HOME=Z:$scratch/config
  before=$(orders)
}
# The same, and the object's program, whose windows are worked by what is written to 8.
begin() {
  fresh "$1"
  mkfifo "$scratch/keys"
  wine "$bin/DoctorZELVO.exe" /script - <"$scratch/keys" >"$scratch/server.out" 2>&1 &
  server=$!
  exec 8>"$scratch/keys"
  within 'grep -q "^serving" "$scratch/server.out"'
}
call() {
  wine "$bin/automation_chart.exe" "$1" "sqlite:Z:$scratch/now.db" "${2:-}" >"$scratch/chart.out" 2>&1 8>&- &
  client=$!
}
windows() { xdotool search --onlyvisible --name ZEL-VO 2>/dev/null | wc -l; }
gone() { within "! kill -0 $1 2>/dev/null"; }

if [ "$window" = ON ]; then
  # Each has a window of its own, and the end of one is nothing to the other.
  fresh 'two charts on the screen'
  call late
  first=$client
  within 'grep -q "^over the chart, which is held" "$scratch/chart.out"'
  mv "$scratch/chart.out" "$scratch/first.out"
  call early
  within 'grep -q "^over the chart, which is held" "$scratch/chart.out"'
  [ "$(windows)" = 2 ] || fail "$(windows) windows"
  kill -9 $first
  within '[ "$(windows)" = 1 ]'
  within 'xdotool key alt+F4; [ "$(windows)" = 0 ]'
  gone $client
  grep -q '^result 0 errorText ""' "$scratch/chart.out" || fail 'no result'

  # The box about the login goes before the main window comes; nobody can type into the chart between them.
  fresh 'a chart between two windows'
  call late stranger
  within 'grep -q "^over the chart, which is held" "$scratch/chart.out"'
  within 'xdotool key Return; grep -q "^the next one" "$scratch/chart.out"'
  grep -q '^the next one, over the chart, which was held' "$scratch/chart.out" || fail 'free'
  within 'xdotool key alt+F4; [ "$(windows)" = 0 ]'
  gone $client
  grep -q '^the chart has its keys again' "$scratch/chart.out" || fail 'without its keys'

  fresh 'a program killed under its window'
  call late
  within 'grep -q "^over the chart, which is held" "$scratch/chart.out"'
  for program in $(pgrep -f 'DoctorZELVO\.exe.* -Embedding'); do
    ! grep -qzx "WINEPREFIX=$WINEPREFIX" "/proc/$program/environ" || kill -9 "$program"
  done
  gone $client
  grep -q '^its window is free' "$scratch/chart.out" || fail 'held'
  grep -q '^ZELVOInterface 0x' "$scratch/chart.out" || fail 'a call of a dead program came to an end'
  wineserver -k
  serve
else
  fresh 'no window in the terminal'
  call late
  gone $client
  grep -q 'errorText "ZELVO' "$scratch/chart.out" || fail "not turned away"
fi

while read -r binding how result; do
  begin "an order, $binding, $how"
  call "$binding" "$how"
  if [ "$how" = fail ]; then echo "$composed
$failed" >&8; else echo "$composed
$send" >&8; fi
  exec 8>&-
  gone $client
  grep -qF -- "$event" "$scratch/chart.out" || fail "no event"
  grep -qF -- "$result" "$scratch/chart.out" || fail "no $result"
  gone $server
  [ "$(orders) $(marks)" = "$((before + 1)) 0" ] || fail "$(orders) orders, $(marks) marks"
done <<'CASES'
late plain result 0 errorText ""
early plain result 0 errorText ""
late fail result 0 errorText ""
late box taken again
late second result 0 errorText "ZELVO 창이 이미 열려 있습니다. 열려 있는 창을 닫은 후에 다시 실행하여 주십시오."
late again result 0 errorText "ZELVO 창이 이미 열려 있습니다. 열려 있는 창을 닫은 후에 다시 실행하여 주십시오."
CASES

begin 'a chart killed between two calls'
call late keep
echo "$composed
$send" >&8
exec 8>&-
within 'grep -q "^result" "$scratch/chart.out"'
sleep 1
kill -0 $server || fail 'not kept for the next call'
kill -9 $client
gone $server

# Wine's script hosts listen to no events.
begin 'a script'
cat >"$scratch/chart.vbs" <<'SCRIPT'
Set zelvo = CreateObject("DoctorZELVO.clsZELVOInterface")
answer = zelvo.ZELVOInterface(Nothing, WScript.Arguments(0), "doctor1/$/pass1", 1024, "Kim", "", 41, 2, "01012345678", "", _
  "", "06236", "Seoul", "Clinic", "Lee", "025550123", "", "03045", "Seoul")
WScript.Echo "result " & answer & zelvo.errorText
SCRIPT
echo "$composed
$send" >&8
exec 8>&-
wine cscript.exe "Z:$scratch/chart.vbs" "sqlite:Z:$scratch/now.db" >"$scratch/chart.out" 2>&1
grep -q '^result False.\?$' "$scratch/chart.out" || fail "no result"
[ "$(orders)" = "$((before + 1))" ] || fail "$(orders) orders"

# What a send has come to when one of the two ends: how many orders stand and marks are left, and what the next send is told.
while IFS='|' read -r stage victim stand left told; do
  # Wine leads the next chart to a program that was killed, for as long as it runs.
  wineserver -k
  serve
  begin "$victim killed, $stage"
  call late hold
  echo "$composed
show c1tMain" >&8
  within 'grep -q "^c1tMain" "$scratch/server.out"'
  exec 7>/dev/null
  case $stage in
    sending)
      # Somebody reads: the commit has to wait.
      mkfifo "$scratch/reader.$victim"
      sqlite3 "$scratch/now.db" <"$scratch/reader.$victim" >"$scratch/read" 8>&- &
      exec 7>"$scratch/reader.$victim"
      echo 'BEGIN; SELECT count(*) FROM t_ChubangJun;' >&7
      within '[ -s "$scratch/read" ]'
      echo "$send" >&8
      within '[ "$(standing)" = 1 ]' ;;
    stored) echo "$send" >&8; within 'grep -q "^held" "$scratch/chart.out"' ;;
  esac
  if [ "$victim" = chart ]; then kill -9 $client; else kill -9 $server; fi
  gone $server
  exec 7>&- 8>&-
  if [ "$stage $victim" = "stored program" ]; then within 'grep -q "^given back" "$scratch/chart.out"'; fi
  [ "$(orders) $(marks)" = "$((before + stand)) $left" ] || fail "$(orders) orders, $(marks) marks"
  echo "$composed
answer No
press ssrCBJSend
close" >"$scratch/after.zs"
  wine "$bin/zelvo.exe" doctor --console --account 'doctor1/$/pass1' --patient-pk 1024 --patient-name 김하늘 --patient-age 41 \
    --patient-sex 2 --patient-cell 01012345678 --patient-zip 06236 --patient-address 테헤란로 --hospital-name 하늘한의원 \
    --doctor-name 이정민 --hospital-tel 025550123 --hospital-zip 03045 --hospital-address 효자로 \
    --server "sqlite:Z:$scratch/now.db" --script "Z:$scratch/after.zs" </dev/null >"$scratch/after.out" 2>&1 || true
  grep -q "$told" "$scratch/after.out" || fail "not told: $told"
  [ "$(orders)" = "$((before + 1))" ] || fail "$(orders) orders in the end"
done <<'CASES'
composed|program|0|0|전송을 성공
composed|chart|0|0|전송을 성공
sending|program|0|1|저장되지 않았습니다
sending|chart|0|1|저장되지 않았습니다
stored|program|1|1|진료부에는 전달되지 않았을 수
stored|chart|1|1|진료부에는 전달되지 않았을 수
CASES
