# call: nurse --account doctor1/$/pass1#$#doctor2/$/pass2#$#doctor1/$/pass1
# A chart that names one account twice lists its orders twice. A cancellation takes the row away that was in view; the
# row before the last one comes into view, and can be cancelled in turn.
tab c1tCBJmanage 4
choose cboCBJstate "대 기"
press sscCBJsearchState
expect rows tdbCBJ 3
expect cell tdbCBJ 2 3 최수진
row tdbCBJ 2
answer Yes
press ssrCBJmCancel
expect message "처방전 취소" *
expect message "처방전 취소" *
expect rows tdbCBJ 2
expect cell tdbCBJ 0 3 최수진
expect cell tdbCBJ 1 3 오세라
expect txtCBJmPatientName 오세라
check sschkCBJmUpdate on
expect enabled txtEatGuideCall2
answer Yes
press ssrCBJmCancel
expect message "처방전 취소" *
expect message "처방전 취소" *
expect disabled txtEatGuideCall2
# The other row of the first is seen for what has become of it.
expect shown picCBJcancel
expect hidden ssrCBJmCancel
expect no message
close
