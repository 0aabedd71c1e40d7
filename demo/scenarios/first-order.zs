# A whole order: a doctor composes three herbs for twenty packets, has them decocted and priced, and sends the order
# to be paid from the deposit. The chart has handed over the patient and the clinic.

expect window frmDoctorOCSmain
expect tab c1tMain 1
expect hidden ssrCBJSend
expect cell tdbJobList 0 2 "첩약 + 탕전"

# The deposit pays for it, however often this has run.
pharmacy deposit doctor1 30000

# The herbs of one packet. Enter in the empty table adds its first row; Enter on a name opens the pharmacy's herbs.
cellkey tdbDGL "약재명" Enter
cell tdbDGL "약재명" 당귀
cellkey tdbDGL "약재명" Enter
expect window frmYakGukDrug
row tdbYakgukDrug 0
key tdbYakgukDrug Enter
cell tdbDGL "용량(g)" 6
expect style tdbDGL 0 styDGLStateBlack

cellkey tdbDGL "비고" Enter
cell tdbDGL "약재명" 작약
cellkey tdbDGL "약재명" Enter
key tdbYakgukDrug Enter
cell tdbDGL "용량(g)" 4

cellkey tdbDGL "비고" Enter
cell tdbDGL "약재명" 감초
cellkey tdbDGL "약재명" Enter
key tdbYakgukDrug Enter
cell tdbDGL "용량(g)" 2
expect rows tdbDGL 3
expect caption tdbDGL " 1첩 기준의 약재 구성 [3]"

# Twenty packets; decoction: three packs a day for seven days, 100 ml each.
type txtChubsu 20
row tdbTJML 0
cellbutton tdbTJML 0
type txtDayTuyak 3
type txtTuyakilsu 7
expect txtPouchTotal 21
type txtPouchAmount 100

# To the patient by parcel, with a note to the pharmacy.
choose cboBesongMethod 택배(환자)
type txtEatGuideHosName 하늘한의원
type txtEatGuideCall 025550123
expect txtEatGuideCall 02-555-0123
press cmdEatGuide
type rtxSheet "하루 세 번, 식후 30분에 따뜻하게 데워 드십시오.\n남은 약은 냉장 보관하십시오.\n찬 음식과 기름진 음식, 술은 삼가십시오."
press cmdOK
tab c1tCBJmsg 1
type txtCBJmsg 식후 30분에 복용하도록 안내 부탁드립니다.
choose cboPaymentMethod 적립

press ssrCostConfirm
expect shown ssrCBJSend
expect rows tdbCostConfirm 11
dump tdbCostConfirm

answer No
press ssrCBJSend
expect message "처방전 전송 성공" *
expect events 1
expect event 1 "첩약 + 탕전"
expect event 2 20
expect hidden ssrCBJSend
expect no message
close
