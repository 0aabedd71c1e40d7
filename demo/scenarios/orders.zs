# A doctor follows an order through the pharmacy, changes another's delivery with a new price, withdraws a third, and
# starts a new one for another patient from an old one.

# Where the account stands before.
pharmacy deposit doctor1 500000

# An order of today: two herbs for ten packets, to the patient by parcel, from the deposit.
cellkey tdbDGL "약재명" Enter
cell tdbDGL "약재명" 당귀
cellkey tdbDGL "약재명" Enter
key tdbYakgukDrug Enter
cell tdbDGL "용량(g)" 6
cellkey tdbDGL "비고" Enter
cell tdbDGL "약재명" 작약
cellkey tdbDGL "약재명" Enter
key tdbYakgukDrug Enter
cell tdbDGL "용량(g)" 4
type txtChubsu 10
row tdbTJML 0
cellbutton tdbTJML 0
row tdbTJAL 6
cellbutton tdbTJAL 0
type txtDayTuyak 3
type txtTuyakilsu 7
type txtPouchAmount 100
choose cboBesongMethod 택배(환자)
tab c1tCBJmsg 1
type txtCBJmsg 식후 복용
choose cboPaymentMethod 적립
press ssrCostConfirm
# A row that was never filled is no herb of the order.
cellkey tdbDGL "비고" Enter
answer No
press ssrCBJSend
expect message "처방전 전송 성공" *

# It is found by its date, and waits.
tab c1tMain 2
press sscToday
press sscCBJsearchDate
expect rows tdbCBJ 1
expect shown picCBJstate(0)
expect shown ssrCBJmCancel
expect shown sschkCBJmUpdate
expect txtCBJmIsPaid 지불
expect txtCBJmPayMethod 적립
expect txtCBJmPatientName 김하늘
expect ssoCBJmSex(1) on
expect cboCBJmBesongMethod 택배(환자)
expect txtCBJmCBMsg "식후 복용"
expect txtCBJmJobList "첩약 + 탕전"
expect txtCBJmTJML 일반탕전
expect txtCBJmPouchTotal 21
expect txtCBJmChubsu 10
expect txtCBJmDrugCost 2,640
expect rows tdbCBJmDGL 2
expect rows tdbCBJmCost 12
expect cell tdbCBJmCost 0 1 "19,903"

# What its options mean, and how a cost came to be.
press sscCBJmTJALDetail
expect caption frmMessage "* 스파우트 파우치"
expect rtxMessage "마개가 있는 파우치에 담습니다. 1팩 120원."
key rtxMessage Esc
row tdbCBJmCost 9
cellbutton tdbCBJmCost 2
expect caption frmMessage " 택배비용"
key rtxMessage Esc
press sscCBJmJobListDetail
expect caption frmMessage "첩약 + 탕전"
key rtxMessage Esc
press sscCBJmTJMLDetail
expect caption frmMessage 일반탕전
key rtxMessage Esc
cellbutton tdbCBJmDGL 비고
expect caption frmMessage 당귀
key rtxMessage Esc

# The pharmacy moves it on; a press on its row reads it afresh.
pharmacy state 10 1
row tdbCBJ 0
expect shown picCBJstate(1)
expect hidden ssrCBJmCancel
expect hidden sschkCBJmUpdate
pharmacy state 10 3
row tdbCBJ 0
expect shown picCBJstate(3)

# The other ways of searching.
tab c1tCBJmanage 4
choose cboCBJstate "제 작"
press sscCBJsearchState
expect caption tdbCBJ "[제작]중인 처방전을 검색한 결과"
choose cboCBJstate "완 료"
press sscCBJsearchState
row tdbCBJ 1
expect value tdbCBJ 1 1 3
expect lblCBJmPatientPK 102
expect lblCBJmDTRPK 1
expect txtCBJmPaTel 031-780-2202
expect txtCBJmHosPital 보원한의원
expect txtCBJmBesongDate ""
expect entries lstCBJmTJAL "* 한의원 라벨                                                  11"
expect value tdbCBJmCost 0 3 "처방전 합계비용 = 53,498"
expect cell tdbCBJmCost 1 1 "14,000"
expect value tdbCBJmCost 1 3 "한약국에서 직접 입력한 비용입니다.\r\n[VAT] 추가 포장(부가세 포함)\r\n[no VAT] 착불 택배 대납"
expect cell tdbCBJmCost 11 1 "-1,493"
tab c1tCBJmanage 5
choose cboCBJBesong 한의원
press sscCBJsearchBesong
expect caption tdbCBJ "[한의원]으로 발행한 처방전을 검색한 결과"
expect rows tdbCBJ 2
tab c1tCBJmanage 6
choose cboCBJPayMethod 적립
press sscCBJsearchPayment
expect caption tdbCBJ "[적립]으로 발행된 처방전을 검색한 결과"
expect rows tdbCBJ 4
tab c1tCBJmanage 8
press sscCBJcanceled
expect caption tdbCBJ "[취소]된 처방전를 검색한 결과"
expect rows tdbCBJ 1
expect shown picCBJcancel
tab c1tCBJmanage 7
choose cboCBJisPaid 미지불
press sscCBJsearchIsPay
expect caption tdbCBJ "[미지불]된 처방전을 검색한 결과"
expect cell tdbCBJ 0 3 홍길동

# One whose delivery was open is to go by courier: that has a price of its own, taken from the deposit.
tab c1tMain 3
press ssrStockView(0)
expect txtUsableStock 2,057,657
tab c1tMain 2
tab c1tCBJmanage 4
choose cboCBJstate "대 기"
press sscCBJsearchState
expect rows tdbCBJ 1
check sschkCBJmUpdate on
expect shown cmdEatGuideUpdate
type txtCBJmBeZip 34126
type txtCBJmBeJuso 대전광역시 유성구 대학로 99
choose cboCBJmBesongMethod 퀵(환자)
type txtCBJmPaTel 0423501234
check chkCBJmBesongDate on
date dtpCBJmBesongDate 2030-05-06
press ssrCBJmUpdate
expect message "처방전수정" "처방전 수정 성공! [처방전비용 변경됨]"
expect disabled c1eCBJm(3)
expect cboCBJmBesongMethod 퀵(환자)
expect txtCBJmPaTel 042-350-1234
expect txtCBJmBesongDate 2030-05-06
expect cell tdbCBJmCost 9 1 "45,000"
tab c1tMain 3
expect txtUsableStock ""
press ssrStockView(0)
expect txtUsableStock 2,006,991

# An old order becomes a new one for another patient, at today's prices.
tab c1tMain 2
tab c1tCBJmanage 3
type txtCBJsearchPatient 홍길동
press sscCBJsearchPatient
expect rows tdbCBJ 2
row tdbCBJ 1
answer Yes
press ssrCBJreuse
expect message "처방전 재사용" "현재의 처방전 내용을 [처방전 작성 및 전송]에서 다시 사용하시겠습니까?"
expect tab c1tMain 1
expect rows tdbDGL 9
expect txtChubsu 20
expect txtDrugPrice 13,860
expect txtPatientName 김하늘
expect hidden ssrCBJSend
type txtPatientName 박새로
press ssrCostConfirm
answer No
press ssrCBJSend
expect message "처방전 전송 성공" *
tab c1tMain 3
press ssrStockView(0)
expect txtUsableStock 1,973,595

# It is withdrawn before the pharmacy begins: the list closes up, the deposit has its money back.
tab c1tMain 2
tab c1tCBJmanage 4
press sscCBJsearchState
expect rows tdbCBJ 2
press ssrCBJmCancel
expect message "처방전 취소" *
expect rows tdbCBJ 2
answer Yes
press ssrCBJmCancel
expect message "처방전 취소" *
expect message "처방전 취소" *
expect rows tdbCBJ 1
expect cell tdbCBJ 0 0 1
expect hidden ssrCBJmCancel
expect focus tdbCBJ
# The panel still shows it. What is pressed there brings the list's row, and nothing else.
expect txtCBJmPatientName 박새로
key sschkCBJmUpdate " "
expect txtCBJmPatientName 최수진
tab c1tMain 3
press ssrStockView(0)
expect txtUsableStock 2,006,991
expect events 2
expect no message
close
