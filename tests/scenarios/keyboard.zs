# From the patient to the send without a mouse: what the chart has filled in is passed over, nothing is in the way.
# keys: 12
shortcut F6
key tdbDGL ㄷ ㄱ Enter Enter
key tdbDGL 6
shortcut F7
expect focus txtChubsu
key txtChubsu 2 0
shortcut F10
expect focus tdbTJML
key tdbTJML Enter
expect value tdbTJML 0 0 -1
expect focus tdbTJAL
shortcut F10
key txtDayTuyak 3 Enter
key txtTuyakilsu 7
shortcut F10
key txtPouchAmount 1 0 0
answer Yes
shortcut F5
expect cell tdbDGL 0 "용량(g)" 6
expect focus tdbCostConfirm
expect message "처방전 비용확인" *
shortcut Ctrl+F5
expect message "처방전 전송 성공" *
expect window none
