# What stands between an order and its price: each fault is told, the focus goes to its field, and the cost page is not asked.
# Reading what an option is selects nothing.
row tdbJobList 1
cellbutton tdbJobList "자세히"
expect caption frmMessage 첩약
expect plain rtxMessage "약재를 구성하여 첩약으로 지어 보내 드립니다. 달이지 않으므로 탕전정보는 입력하지 않습니다."
key rtxMessage Esc
expect value tdbJobList 0 0 -1

# The pharmacy's herbs are looked at; what is chosen there goes nowhere.
press ssrYakGukDrug
key tdbYakgukDrug Enter
expect rows tdbDGL 0

# Enter alone leads from the first field to the price: past the packets, which wait for herbs, and a row that was never
# filled goes with it. Behind the address window it goes on with the field after the address, behind a click with the code.
row tdbJobList 0
key tdbJobList Enter Enter Enter Enter Enter
expect rows tdbDGL 0
expect focus txtDrugPrice
key txtDrugPrice Enter Enter Enter Enter Enter Enter Enter Enter Enter Enter Enter Enter Enter Enter Enter Enter
key ssrZipCode(0) Enter
key txtFind Esc
expect focus txtBesongMsg
key txtBesongMsg Enter Enter Enter Enter Enter Enter Enter Enter
expect focus ssrZipCode(1)
key ssrZipCode(1) Enter
key txtFind Esc
key txtEatGuideHosName Enter Enter Enter Enter
expect focus ssrCostConfirm
expect txtCBJmsg ""
press ssrZipCode(1)
key txtFind Esc
expect focus txtBalsongZip
key tdbDGL Enter Tab
expect rows tdbDGL 0
focus txtChubsu
expect message "약재 정보" "약재를 구성하여 주십시오."
expect focus tdbDGL
# A form change is taken where one goes to it, not on the way; the date is entered only behind its switch.
key tdbTJAL Enter
expect value tdbTJAL 0 0 0
key tdbTJAL Down Up Enter
expect value tdbTJAL 0 0 0
key tdbTJAL Down Enter
expect value tdbTJAL 1 0 -1
check chkBesongDate on
key chkBesongDate Enter Enter
expect focus txtHospitalName
cellbutton tdbTJAL 0

# A herb, by the keyboard alone, and the same once more; without a name no herb is looked for.
key tdbDGL Enter Enter
cell tdbDGL "약재명" 당귀
cellkey tdbDGL "약재명" Enter
key tdbYakgukDrug Enter
expect style tdbDGL 0 styDGLStateRed
key tdbDGL 6 Enter
expect style tdbDGL 0 styDGLStateBlack
expect cell tdbDGL 0 "금액(원)" 192
key tdbDGL Tab
expect focus txtChubsu
cellkey tdbDGL "비고" Enter
cell tdbDGL "약재명" 당
cellkey tdbDGL "약재명" Enter
key tdbYakgukDrug Enter
expect message 약재구성 "이미 [1] 번째 레코드에 같은 한약국약재가 존재 합니다."
expect cell tdbDGL 1 "한약국약재" ""
expect style tdbDGL 1 styDGLStateRed
answer Yes
press sscDrugDelete
expect message 처방약재삭제 *

# Days and packs make the pouches; what is no number is refused.
type txtChubsu 20
row tdbTJML 0
cellbutton tdbTJML 0
type txtTuyakilsu 7
expect txtPouchTotal ""
type txtDayTuyak 2.5
expect txtPouchTotal 17.5
key txtDayTuyak Backspace Backspace Backspace
expect txtPouchTotal ""
paste txtPouchAmount 1x
expect message "탕전 정보" "[1팩 용량]을 숫자로 입력해 주십시오."
paste txtPouchTotal 1x
expect message "탕전 정보" "[총파우치]를 숫자로 입력해 주십시오."
paste txtTuyakilsu 1x
expect message "탕전 정보" "[복용일]을 숫자로 입력해 주십시오."
paste txtDayTuyak 1x
expect message "탕전 정보" "[1일 복용 팩수]를 숫자로 입력해 주십시오."
expect txtDayTuyak ""
type txtTuyakilsu 7
type txtDayTuyak 3
type txtPouchAmount 100
# Past the patient and the sender whom the chart has filled in.
shortcut F10
expect focus cboBesongMethod

# A row behind the last leaves the price as it is until something is written into it; then it stands in the way
# wherever the cursor is.
answer No
press ssrCostConfirm
expect message "처방전 비용확인" "배송방식이 [미정]입니다. 처방전 전송후에 다시 지정 하시겠습니까?\r\n\r\n예(Y) = 비용확인\r\n\r\n아니오(N) = 배송방식 수정"
expect focus cboBesongMethod
expect hidden ssrCBJSend
choose cboBesongMethod 퀵(환자)
press ssrCostConfirm
expect shown ssrCBJSend
cellkey tdbDGL "비고" Enter
expect rows tdbDGL 2
expect shown ssrCBJSend
# One that was never filled goes when the table is left.
press ssrCostConfirm
expect shown ssrCBJSend
expect rows tdbDGL 1
cellkey tdbDGL "비고" Enter
cell tdbDGL "용량(g)" 3
expect hidden ssrCBJSend
row tdbDGL 0
press ssrCostConfirm
expect message "처방전 비용확인" "약재정보 필수항목 [약재구성, 첩수, 약재가격] 오류 또는 누락."
expect focus tdbDGL
expect current tdbDGL 1
answer Yes
press sscDrugDelete
expect message 처방약재삭제 "선택된 약재를 삭제하시겠습니까?"

# Quantities below nothing, and beyond what an order holds.
paste txtChubsu -20
press ssrCostConfirm
expect message "처방전 비용확인" "약재정보 필수항목 [약재구성, 첩수, 약재가격] 오류 또는 누락."
cell tdbDGL "용량(g)" 2000
type txtChubsu 20
press ssrCostConfirm
expect message "처방전 비용확인" "[1] 번째 약재 [당귀]의 [금액 64,000] 값을 주문서에 담을 수 없습니다. (최대 32,767)"
cell tdbDGL "용량(g)" 6
type txtChubsu 20
paste txtPouchTotal -21
press ssrCostConfirm
expect message "처방전 비용확인" "탕전정보 필수항목 [탕전방식, 용량, 파우치] 오류 또는 누락."
type txtPouchTotal 99999
press ssrCostConfirm
expect message "처방전 비용확인" "[총파우치]를 0보다 크고 32,767 이하인 숫자로 입력해 주십시오."
expect focus txtPouchTotal
expect lblSumcost 37774

# A patient that is taken away: the sender stays, and delivery to nobody is told.
answer No
press sscBesongReset
expect message "환자(배송)정보 초기화" *
expect txtPatientName 김하늘
answer Yes
press sscBesongReset
expect message "환자(배송)정보 초기화" "환자(배송)정보를 초기화 하시겠습니까?\r\n\r\n(초기화 되어 작성된 환자는 챠트에서 관리하지 않습니다.)"
expect lblPatientPK 0
expect txtPatientName ""
expect txtPatientCell ""
expect txtBesongJuso ""
expect ssoSex(1) off
expect cboBesongMethod 미정
expect focus txtPatientName
expect txtDoctor 이정민
choose cboBesongMethod 택배(환자)
expect message 배송방식 "[배송주소]를 정확히 입력하여 주십시오."
expect focus txtBesongZip
choose cboBesongMethod 한의원
expect no message
close
