#!/usr/bin/env bash
# Whatever fails on the way to the pharmacy's server leaves its cause in the support record, and nothing of anybody: in each
# case the program works over a desk that fails at one statement, and all that is left behind is looked through. record.sh BIN_DIR
set -euo pipefail
bin=$1
scratch=$(mktemp -d)
server=
trap '[ -z "$server" ] || { kill "$server"; wait "$server"; } 2>/dev/null || true; rm -rf "$scratch"' EXIT
db="$scratch/pharmacy.db"
"$bin/zelvo-pharmacy" --db "$db" init >/dev/null
"$bin/zelvo-pharmacy" --db "$db" serve --parent $$ --ready-file "$scratch/port" >/dev/null &
server=$!
until [ -s "$scratch/port" ]; do sleep 0.05; done
export XDG_CONFIG_HOME="$scratch/config" ZELVO_DB_PASSWORD_1=door-key ZELVO_ODBC_LOGIN_SECONDS=2
# Nobody else bears them: what stands nowhere but in the database, and what may stand in an order's own log and mark.
words='pass1|new-word|door-key' others='doctor1|이정민|남모름|010-9988-7766|남모를메모'
time='[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9:]{8}'
line="^$time (session of .*|database login \[.*\] [0-9]+ ms|database [A-Za-z_]+ [A-Z]+( t_[A-Za-z]+)? \[[A-Za-z0-9/ ]*\] [0-9]+ ms)$"

# with CASE TROUBLE-OF-THE-DESK... : what the user does comes by the standard input.
with() {
  export XDG_DATA_HOME="$scratch/data"
  name=$1
  shift
  rm -rf "$scratch/data" "$scratch/ready" "$scratch/end"
  cp "$db" "$scratch/now.db"
  mkfifo "$scratch/end"
  "$bin/tds-desk" "$scratch/now.db" "$scratch/ready" 0 "$@" <"$scratch/end" &
  exec 9>"$scratch/end"
  until [ -s "$scratch/ready" ]; do sleep 0.05; done
  cat >"$scratch/script"
  encrypt=off seconds=4
  [ "$1" != tls ] || encrypt=on
  [ "$1" != late ] || seconds=1
  ZELVO_ODBC_ENCRYPT=$encrypt ZELVO_ODBC_QUERY_SECONDS=$seconds ZELVO_DEMO_PHARMACY="$scratch/now.db" timeout 30 "$bin/zelvo" doctor --console --values - \
    --patient-pk 7 --patient-name 남모름 --patient-age 41 --patient-sex 2 --patient-cell 010-9988-7766 --patient-zip 06236 \
    --patient-address 서울 --hospital-name 하늘 --doctor-name 이정민 --hospital-tel 025550123 --hospital-zip 03045 \
    --hospital-address 서울 --script "$scratch/script" <<<"server $(cat "$scratch/ready")
account doctor1/\$/pass1" >"$scratch/out" 2>"$scratch/err" || true
  exec 9>&-
  wait $!
  grep -a '^\[' "$scratch/out" >"$scratch/boxes" || true
}
wrong() {
  echo "$name: $1" >&2
  head -50 "$scratch/out" "$scratch/err" "$scratch/data/zelvo/support.log" >&2
  exit 1
}
# leaves NOTED TOLD: what the record and the boxes hold.
leaves() {
  record="$scratch/data/zelvo/support.log"
  grep -qF -- "$1" "$record" || wrong "not noted: $1"
  [ -z "$2" ] || grep -qF -- "$2" "$scratch/boxes" || wrong "not told: $2"
  ! grep -vE "$line" "$record" || wrong "a line that tells too much or too little"
  ! grep -E "$words|$others" "$record" "$scratch/err" || wrong "somebody's"
  ! grep -rE "$words" "$scratch/boxes" "$scratch/data" || wrong "a password"
}
search='tab c1tMain 2
tab c1tCBJmanage 4
choose cboCBJstate "대 기"
press sscCBJsearchState'
order='cellkey tdbDGL "약재명" Enter
cell tdbDGL "약재명" 당귀
cellkey tdbDGL "약재명" Enter
key tdbYakgukDrug Enter
cell tdbDGL "용량(g)" 6
type txtChubsu 20
row tdbTJML 1
cellbutton tdbTJML 0
type txtDayTuyak 3
type txtTuyakilsu 7
type txtPouchAmount 100
tab c1tCBJmsg 1
type txtCBJmsg 남모를메모
choose cboBesongMethod 택배(환자)
choose cboPaymentMethod 후불
press ssrCostConfirm
press ssrCBJSend'
change="$search
check sschkCBJmUpdate on
paste txtCBJmPaCell 010-9988-7766
press ssrCBJmUpdate"
cancel="$search
answer Yes
press ssrCBJmCancel"
profile='tab c1tMain 3
paste txtDTRcell 010-9988-7766
press ssrDTRchang'
password='tab c1tMain 3
press ssrPWDchang
type txtOldPassword pass1
type txtNewPassword new-word
type txtNewPasswordAgain new-word
press cmdOK'
# FreeTDS's word for a line that has ended.
ended='[01000/20017]'

with "a login that is cut" cut LOGIN7 </dev/null
leaves 'database login [' '접속에 실패'
with "a certificate of nobody's" tls </dev/null
leaves "database login [the server's certificate is none of those to trust, or out of date]" '접속에 실패'
with "a line that is cut" cut t_ChubangJun <<<"$search"
leaves "database RecordSet_CBJmInfo SELECT t_ChubangJun $ended" ''
with "a time-out" late t_ChubangJun <<<"$search"
leaves 'database RecordSet_CBJmInfo SELECT t_ChubangJun [HYT00/' ''
with "a slow server" slow t_DrugList <<<"$order"
leaves 'database RecordSet_YakGukDrugList SELECT t_DrugList [slow]' '전송을 성공'
with "a deadlock" deadlock 'Insert into t_CBJDetail' <<<"$order"
leaves 'database Insert_ChubangJun_Detail INSERT t_CBJDetail [42000/1205]' 't_CBJDetail'
with "a constraint" constraint 'Insert into t_ChubangJun' <<<"$order"
leaves 'database Insert_ChubangJun INSERT t_ChubangJun [23000/2627]' 't_ChubangJun'
with "a lost commit" lost COMMIT <<<"$order"
leaves " COMMIT $ended" '전송을 성공'
with "one that nobody answers for" lost COMMIT alone <<<"$order"
leaves " COMMIT $ended" '다시 전송하지 마십시오'
with "a lost change" lost COMMIT alone <<<"$change"
leaves " COMMIT $ended" 'ZELVO를 다시 시작한 후 다시 검색'
with "a lost cancellation" lost COMMIT alone <<<"$cancel"
leaves " COMMIT $ended" 'ZELVO를 다시 시작한 후 [취소된'
with "a lost record" lost 'UPDATE t_Doctor' alone <<<"$profile"
leaves "database Update_DoctorInfo UPDATE t_Doctor $ended" 'ZELVO를 다시 시작한 후 [MY'
with "a lost password" lost 'UPDATE t_Doctor' alone <<<"$password"
leaves "database Update_DoctorPassword UPDATE t_Doctor $ended" 'ZELVO를 다시 시작한 후 새 비밀번호로'
