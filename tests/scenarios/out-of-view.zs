# What was typed into an order stays until it can be stored; an order that has left the list, and one of a doctor who
# is no longer logged in, can be changed no more.
choose cboPaymentMethod 적립
expect shown lblUsableDeposit
tab c1tMain 2
expect hidden lblUsableDeposit
tab c1tCBJmanage 4
choose cboCBJstate "대 기"
press sscCBJsearchState
expect txtCBJmPatientName 최수진
check sschkCBJmUpdate on
type txtCBJmPatientName 최새봄
type txtCBJmAge 45세
press ssrCBJmUpdate
expect message 처방전수정 "[나이]를 숫자로 입력해 주십시오."
expect focus txtCBJmAge
expect enabled c1eCBJm(3)

# A search that finds nothing takes the order out of the list, but nothing out of the panel.
tab c1tCBJmanage 3
type txtCBJsearchPatient 아무도
key txtCBJsearchPatient Enter
expect rows tdbCBJ 0
expect hidden ssrCBJmCancel
expect txtCBJmPatientName 최새봄
check sschkCBJmUpdate off
expect txtCBJmPatientName 최수진
key txtCBJsearchPatient Backspace Backspace Backspace
type txtCBJsearchPatient 최
key txtCBJsearchPatient Enter
check sschkCBJmUpdate on
type txtCBJmAge 45
press ssrCBJmUpdate
expect message 처방전수정 "처방전 수정 성공!"
expect txtCBJmAge 45

# Cancelled, it is the last to leave the list. The panel keeps it, and says that nothing can be done with it.
answer Yes
press ssrCBJmCancel
expect message "처방전 취소" *
expect message "처방전 취소" *
expect rows tdbCBJ 0
expect txtCBJmPatientName 최수진
key sschkCBJmUpdate " "
expect message 처방전수정 "처방전을 다시 선택해 주십시오.[처방전PK 선택 에러]"
expect sschkCBJmUpdate off

# The same doctor once more keeps the list; another one, or a wrong password, empties it.
tab c1tCBJmanage 4
choose cboCBJstate "제 작"
press sscCBJsearchState
tab c1tMain 0
press ssrLogIN
type txtID doctor1
type txtPassword pass1
key txtPassword Enter
expect message "한약국 로그인" *
tab c1tMain 2
expect rows tdbCBJ 1
expect txtCBJmPatientName 홍길동
tab c1tMain 0
press ssrLogIN
type txtID doctor2
type txtPassword pass2
key txtPassword Enter
expect message "한약국 로그인" *
tab c1tMain 2
expect rows tdbCBJ 0
expect caption tdbCBJ " 발행하신 처방전입니다."
expect txtCBJmPatientName ""
expect hidden ssrCBJmCancel
expect hidden sschkCBJmUpdate
choose cboCBJstate "대 기"
press sscCBJsearchState
expect txtCBJmPatientName 오세라
tab c1tMain 0
press ssrLogIN
type txtID doctor1
type txtPassword forgotten
key txtPassword Enter
expect message "한약국 로그인" *
tab c1tMain 2
expect rows tdbCBJ 0
expect txtCBJmPatientName ""
press sscCBJsearchState
expect rows tdbCBJ 0
expect no message
close
