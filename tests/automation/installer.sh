#!/usr/bin/env bash
# The installer under wine, for a user with a Korean name: installer.sh SETUP FILES BIN_DIR. FILES names what it brings, a line
# each. It goes in, over itself, to another folder, and out; between, whole orders are made by keys alone in the windows of
# what it brought. In the end there is what was there before, and what is the user's.
set -euo pipefail
setup=$1
files=$2
bin=$3
export USER=김의사
SCREEN=1600x1200
# shellcheck source=wine.sh
. "$(dirname "${BASH_SOURCE[0]}")/wine.sh"
drive=$WINEPREFIX/drive_c
data=$drive/users/$USER/AppData/Local/zelvo
usual=$drive/users/$USER/AppData/Local/Programs/DoctorZELVO
other=$drive/약국/첩약
# What a user of Windows has already, and wine makes with the first of its kind; and a folder of somebody else.
mkdir "$drive/users/$USER/AppData/Local/Programs" "$drive/약국"
for key in Classes/{CLSID,Interface,TypeLib} Microsoft/Windows/CurrentVersion/Uninstall; do
  wine reg add "HKCU\\Software\\${key//\//\\}" /f >/dev/null
done

# Wine's script host enters itself at its first start.
echo 'WScript.Quit' >"$scratch/nothing.vbs"
wine cscript.exe "Z:$scratch/nothing.vbs" >/dev/null

# All files, and all that is registered, when nothing runs. What could not take itself away lies with what is temporary.
state() {
  timeout 120 wineserver -w || fail 'something runs on'
  find "$drive" -path '*/Temp/*' -prune -o -printf 'file %P\n' | LC_ALL=C sort
  for root in HKCU 'HKLM\Software'; do
    wine reg export "$root" "Z:$scratch/exported" /y >/dev/null
    iconv -f UTF-16 -t UTF-8 "$scratch/exported"
  done
}
# ends EXIT_CODE WORD...
ends() {
  local status=0
  timeout 120 wine "$setup" /S "${@:2}" || status=$?
  [ "$status" = "$1" ] || fail "the installer ended with $status"
}
# set_up EXIT_CODE FOLDER WORD...: all that it brings, and nothing else, is in that folder alone.
set_up() {
  local folder
  ends "$1" "${@:3}"
  for folder in "$usual" "$other"; do
    diff <([ "$folder" != "$2" ] || LC_ALL=C sort "$files" - <<<uninstall.exe) \
      <(cd "$folder" 2>/dev/null && find . -type f -printf '%P\n' | LC_ALL=C sort) >&2 || fail "in $folder"
  done
}
shown() { xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; }
keys() { xdotool key --delay 80 "$@"; }
text() { xdotool type --delay 60 "$1"; }
# Of what is on the screen, for whoever has asked for one.
picture() { [ -z "${ZELVO_PICTURES-}" ] || import -silent -window root "$ZELVO_PICTURES/$1.png"; }
# order COUNT: one of a herb, with the letters as they lie on a Korean keyboard; it is the pharmacy's COUNTth.
order() {
  # A window can be seen before it hears.
  within 'keys F12; shown "지원 기록"'
  within 'keys Escape; ! shown "지원 기록"'
  keys F6; text ekdrnl; keys Down Return; text 6; keys Tab; text 20
  keys F10 Return F10; text 3; keys F10; text 7; keys F10; text 100; keys F10 Down F5
  picture "${case// /-}"
  # A send can be asked for when the price is there.
  within 'keys ctrl+F5; shown "처방전 전송 성공"'
  picture "${case// /-}-sent"
  # What is pressed before a question can be seen does not answer it.
  within 'keys Return; ! shown ZEL-VO'
  cp "$data/pharmacy.db" "$scratch/now.db"
  stored=$(sqlite3 "$scratch/now.db" 'SELECT CBJ_PK, Patient_Name, CBJ_Chubsu, CBJ_PouchTotal, CBJ_DrugCost
                                      FROM t_ChubangJun ORDER BY CBJ_PK DESC LIMIT 1')
  [ "$stored" = "$1|김하늘|20|21|3840" ] || fail "stored: $stored"
}

case='before'
state >"$scratch/before"

case='a folder in the way of a file'
mkdir -p "$usual/bin/zelvo.exe"
ends 2
rmdir "$usual/bin/zelvo.exe"

case='an object that does not start'
WINEDLLOVERRIDES="$WINEDLLOVERRIDES;oleaut32=" set_up 4 "$usual"

case='in'
set_up 0 "$usual"

case='the demo'
wine "$usual/bin/zelvo-demo.exe" doctor >"$scratch/demo.out" 2>&1 &
demo=$!
within 'shown ZEL-VO'
set_up 3 "$usual"
order 10
wait $demo || fail "ended with $?"

case='over itself'
set_up 0 "$usual"

case='to another folder'
set_up 0 "$other" '/D=C:\약국\첩약'

case='over itself there'
set_up 0 "$other"

case='a drive without room'
ln -s /sys "$WINEPREFIX/dosdevices/e:"
set_up 2 "$other" '/D=E:\첩약'
rm "$WINEPREFIX/dosdevices/e:"

case='the object'
wine "$other/bin/zelvo-pharmacy.exe" serve --ready-file "Z:$scratch/port" >"$scratch/pharmacy.out" 2>&1 &
within '[ -s "$scratch/port" ]'
ln -s "$data" "$scratch/data"
wine "$bin/automation_chart.exe" late "sqlite:Z:$scratch/data/pharmacy.db" >"$scratch/chart.out" 2>&1 &
chart=$!
order 11
wait $chart || fail "ended with $?"
event='event 1: "첩약 + 탕전" short:20 short:100 float:3 short:7 short:21 "" long:'
grep -qF "$event" "$scratch/chart.out" || fail 'no event'

case='a script'
cat >"$scratch/chart.vbs" <<'SCRIPT'
Set zelvo = CreateObject("DoctorZELVO.clsZELVOInterface")
answer = zelvo.ZELVOInterface(Nothing, WScript.Arguments(0), "doctor1/$/pass1", 1024, WScript.Arguments(1), "", 41, 2, _
  "01012345678", "", "", "06236", "Seoul", "Clinic", "Lee", "025550123", "", "03045", "Seoul")
WScript.Echo "result " & answer & zelvo.errorText
SCRIPT
wine cscript.exe "Z:$scratch/chart.vbs" "sqlite:Z:$scratch/data/pharmacy.db" 김하늘 >"$scratch/chart.out" 2>&1 &
chart=$!
order 12
wait $chart || fail "ended with $?"
grep -q '^result False.\?$' "$scratch/chart.out" || fail 'no result'
wineserver -k

case='out'
timeout 120 wine "$other/uninstall.exe" /S
state >"$scratch/after"
left=$(diff "$scratch/before" "$scratch/after" | grep '^[<>]' |
  grep -vE "^> file users/$USER/AppData/Local/zelvo(/(support\.log|zelvo_[0-9]+\.htm))?\$") || true
[ -z "$left" ] || fail "$left"
[ "$(find "$data" -name 'zelvo_*.htm' | wc -l)" = 3 ] || fail 'the logs of what was sent are gone'
