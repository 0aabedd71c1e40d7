# call: nurse --account doctor1/$/pass1#$#nobody/$/x#$#doctor2/$/pass2
# A nurse sees the orders of her doctors, finds and modifies one of each, and has no way to write a new one.
expect tab c1tMain 2
expect selectable c1tMain 1 no
expect selectable c1tMain 3 no
expect entries cbodtrList "1/김보원" "2/이청담"
expect hidden ssrCBJreuse
expect panel stbMain 2 "간호사용 zelvo"
tab c1tCBJmanage 4
press sscCBJsearchState
choose cboCBJstate "대 기"
press sscCBJsearchState
expect rows tdbCBJ 2
expect cell tdbCBJ 0 6 이청담
expect cell tdbCBJ 1 0 1
expect cell tdbCBJ 1 6 김보원
expect txtCBJmPatientName 오세라
check sschkCBJmUpdate on
choose cboCBJmBesongMethod 한의원
press ssrCBJmUpdate
expect message "처방전수정" "처방전 수정 성공! [처방전비용 변경됨]"
expect cell tdbCBJmCost 9 1 "3,500"
row tdbCBJ 1
expect txtCBJmPatientName 최수진
check sschkCBJmUpdate on
type txtCBJmDTRTel 025551234
press ssrCBJmUpdate
expect message "처방전수정" "처방전 수정 성공!"
expect txtCBJmDTRTel 02-555-1234
expect cell tdbCBJmCost 9 1 ""
tab c1tCBJmanage 2
type txtCBJsearchDTR 이청
key txtCBJsearchDTR Enter
expect caption tdbCBJ "처방 담당의사[이청]님으로 검색한 결과"
expect rows tdbCBJ 2
# An apostrophe is searched without; a blank name of a patient searches nothing, one of a doctor finds nobody.
tab c1tCBJmanage 3
type txtCBJsearchPatient 오'세
key txtCBJsearchPatient Enter
expect caption tdbCBJ "환자명[오'세]으로 검색한 결과"
expect rows tdbCBJ 1
key txtCBJsearchPatient Backspace Backspace Backspace
paste txtCBJsearchPatient "  "
press sscCBJsearchPatient
expect rows tdbCBJ 1
tab c1tCBJmanage 2
key txtCBJsearchDTR Backspace Backspace
paste txtCBJsearchDTR " "
press sscCBJsearchDTR
expect caption tdbCBJ "처방 담당의사[ ]님으로 검색한 결과"
expect rows tdbCBJ 0
expect no message
close
