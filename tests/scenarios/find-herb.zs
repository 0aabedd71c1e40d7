# A herb is found as its name is typed: by what it holds, by initial consonants, with the keyboard in the wrong language.
cellkey tdbDGL "약재명" Enter
key tdbDGL 당 귀
expect entries tdbDGL "당귀  토당귀(국산)  32원  권장" "당귀  일당귀(국산)  26원" "당귀  당귀(중국)  14원"
expect selected tdbDGL -1
key tdbDGL Down Down Up
expect selected tdbDGL 0
key tdbDGL Down Enter
expect entries tdbDGL
expect value tdbDGL 0 "한약국약재" "일당귀(국산)"
expect value tdbDGL 0 "단가" 26
# The cursor stands in the grams; Enter behind the last cell adds a row.
key tdbDGL 6 Enter Enter
key tdbDGL ㄱ ㅊ
expect entries tdbDGL "감초  감초(중국)  11원  권장" "구척  구척(중국)  10원  권장" "감초  감초(우즈베키스탄)  9원" "감초  자감초(중국)  14원"
key tdbDGL Esc
expect rows tdbDGL 2
# What the picker could not find is marked by Enter, and taken by the next; what it finds opens it, as ever.
cell tdbDGL "약재명" ""
key tdbDGL r k a c h Enter
expect selected tdbDGL 0
key tdbDGL Enter
key tdbDGL 4
# Deleted and reset lines come back, step by step, with their packets.
type txtChubsu 10
answer Yes
press sscDrugReset
expect rows tdbDGL 0
shortcut Ctrl+Z
expect rows tdbDGL 2
row tdbDGL 0
answer Yes
press sscDrugDelete
expect rows tdbDGL 1
shortcut Ctrl+Z
expect rows tdbDGL 2
expect cell tdbDGL 0 "용량(g)" 6
# A new row is one that is still to be filled; a line that is deleted by its keys leaves them in the table.
shortcut Ctrl+N
shortcut Ctrl+N
expect rows tdbDGL 3
shortcut F7
expect rows tdbDGL 2
shortcut F6
shortcut Ctrl+Delete
expect focus tdbDGL
row tdbDGL 0
# Another name takes the grams of the former one away; that comes back too.
cellkey tdbDGL "약재명" Left
key tdbDGL 감 초 Down Enter
expect cell tdbDGL 0 "용량(g)" ""
expect txtChubsu ""
shortcut Ctrl+Z
shortcut Ctrl+Z
expect cell tdbDGL 0 "용량(g)" 6
expect txtChubsu 10
# The keys of the daily road, and a price that no longer holds.
shortcut F7
expect focus txtChubsu
shortcut F6
expect focus tdbDGL
shortcut F8
expect focus tdbTJML
pharmacy deposit doctor1 12000
choose cboPaymentMethod 적립
expect lblUsableDeposit "사용 가능: 1,589,162원"
choose cboPaymentMethod 후불
expect hidden lblUsableDeposit
row tdbJobList 1
cellbutton tdbJobList 0
expect hidden lblCostOutdated
shortcut F5
expect shown ssrCBJSend
expect focus tdbCostConfirm
shortcut Ctrl+Tab
expect tab c1tMain 2
expect focus dtpCBJsearch(0)
shortcut Ctrl+F
expect focus txtCBJsearchPatient
shortcut F7
expect tab c1tMain 1
expect hidden ssrCBJSend
shortcut F5
type txtChubsu 11
expect shown lblCostOutdated
expect style tdbCostConfirm 3 styCostOutdated
shortcut F5
expect hidden lblCostOutdated
expect style tdbCostConfirm 3 ""
close
