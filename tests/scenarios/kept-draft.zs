# The program is killed in the middle of an order; the next call for the patient offers what was composed, once.
cellkey tdbDGL "약재명" Enter
cell tdbDGL "약재명" 당귀
cellkey tdbDGL "약재명" Enter
key tdbYakgukDrug Enter
cell tdbDGL "용량(g)" 6
type txtChubsu 20
row tdbTJML 1
cellbutton tdbTJML 0
row tdbTJAL 0
cellbutton tdbTJAL 0
type txtDayTuyak 3
type txtTuyakilsu 7
type txtPouchTotal 20
type txtPouchAmount 100
type txtBesongMsg 조심
choose cboBesongMethod 택배(환자)
choose cboPaymentMethod 적립
cellkey tdbDGL "비고" Enter
# killed
expect shown c1eDraft
expect lblDraft "이 환자의 작성 중이던 처방전이 있습니다. (방금 전, 약재 1가지)"
expect rows tdbDGL 0
# What has been begun meanwhile is not lost either: it is offered in its turn.
type txtDayTuyak 9
press cmdDraftTake
expect shown c1eDraft
expect lblDraft "이 환자의 작성 중이던 처방전이 있습니다. (방금 전, 약재 0가지)"
press cmdDraftDrop
expect hidden c1eDraft
expect cell tdbDGL 0 "용량(g)" 6
expect txtChubsu 20
expect txtDrugPrice "3,840"
expect txtPouchTotal 20
expect value tdbTJML 1 0 -1
expect value tdbTJAL 0 0 -1
expect txtBesongMsg 조심
expect cboBesongMethod 택배(환자)
expect cboPaymentMethod 적립
expect txtDayTuyak 3
pharmacy deposit doctor1 30000
press ssrCostConfirm
answer No
press ssrCBJSend
expect message "처방전 전송 성공" *
# An order that was sent is offered to nobody.
close
