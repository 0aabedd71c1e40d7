# Two orders in one session, each confirmed on its own; what changes the price shuts the gate, and an order that the
# deposit does not cover is not sent.
row tdbJobList 3
cellbutton tdbJobList 0
expect hidden c1eDrug
answer Yes
press ssrCostConfirm
expect message "처방전 비용확인" "기타구입에 대한 내용을 [처방 메시지에 입력]해 주십시오."
expect focus txtCBJmsg
expect tab c1tCBJmsg 1
type txtCBJmsg "약봉투 200장\r\n스티커"
choose cboPaymentMethod 후불
press ssrCostConfirm
expect message "처방전 비용확인" *
expect shown ssrCBJSend
resize
expect hidden ssrCBJSend
answer Yes No
press ssrCostConfirm
expect message "처방전 비용확인" *
press ssrCBJSend
expect message "처방전 전송 성공" *
expect event 2 0
expect event 7 "약봉투 200장\r\n스티커"
expect event 9 ""
expect focus tdbJobList
tab c1tMain 1
press ssrCostConfirm
expect message "처방전 비용확인" *
tab c1tMain 1
expect hidden ssrCBJSend
press ssrCostConfirm
expect message "처방전 비용확인" *
answer Yes
press ssrCBJSend
expect message "처방전 전송 성공" *
expect window none
expect events 2
expect no message
