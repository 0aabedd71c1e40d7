# What a user makes of a table for the eye: columns and rows, what a copy takes of them, and what a table says that is empty.
expect hint tdbDGL "Enter를 누르면 첫 약재를 넣을 수 있습니다."
cellkey tdbDGL "약재명" Enter
cell tdbDGL "약재명" 당귀
key tdbDGL Enter
expect glass tdbYakgukDrug 0 "권장" "✓"
expect glass tdbYakgukDrug 1 "권장" ""
expect cell tdbYakgukDrug 1 "권장" False
mark tdbYakgukDrug
copy tdbYakgukDrug
expect copied "한약국약재\t단가(원)\t권장\n토당귀(국산)\t32\t✓\n일당귀(국산)\t26\t\n당귀(중국)\t14\t\n"
column tdbYakgukDrug "단가(원)" off
expect columns tdbYakgukDrug "한약국약재" "권장"
type txtDrugFind "없는약"
key txtDrugFind Enter
expect hint tdbYakgukDrug "[없는약](으)로 찾은 약재가 없습니다. 오늘 판매하는 약재만 나옵니다."
close
# The next one opens as this one was left; columns that are worked in stay.
cellkey tdbDGL "약재명" Enter
expect columns tdbYakgukDrug "한약국약재" "권장"
column tdbYakgukDrug "단가(원)" on
close
column tdbDGL "단가" off
widths tdbDGL 100 300 100 100 100 50
expect columns tdbDGL "약재명" "한약국약재" "용량(g)" "금액(원)" "순서" "비고"
cell tdbDGL "용량(g)" 6
expect value tdbDGL 0 "단가" 32
copy tdbDGL
expect copied "약재명\t한약국약재\t용량(g)\t금액(원)\t순서\t비고\n당귀\t토당귀(국산)\t6\t192\t1\t\n"
copy tdbTJML
expect copied "선택\t탕전 방식\t자세히\n\t일반탕전\t\n"
# The list of sent orders keeps its sorting under a hidden head.
tab c1tMain 2
expect hint tdbCBJ "위에서 검색하면 발행하신 처방전이 여기에 나타납니다."
expect hint tdbCBJmDGL "목록에서 처방전을 누르면 약재가 여기에 나타납니다."
tab c1tCBJmanage 4
press sscCBJsearchState
expect hint tdbCBJ "찾을 조건을 목록에서 고르고 검색하여 주십시오."
tab c1tCBJmanage 3
type txtCBJsearchPatient "없는 사람"
press sscCBJsearchPatient
expect hint tdbCBJ "찾은 처방전이 없습니다."
type txtCBJsearchPatient "홍길동"
press sscCBJsearchPatient
expect rows tdbCBJ 2
head tdbCBJ "발행날짜"
column tdbCBJ "발행날짜" off
mark tdbCBJ 0
copy tdbCBJ
expect current tdbCBJ 1
expect copied "NO\t환자명\t-\t주문서\n2\t홍길동\t800312\t첩약 + 탕전\n1\t홍길동\t800312\t첩약\n"
close
