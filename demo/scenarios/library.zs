# A doctor takes a prescription of the pharmacy's, merges one of his own over it, keeps the result under a new name,
# writes on another, and deletes a third.

# The library opens empty: what is not searched for is not shown.
press sscCBJRead
expect caption frmChubangRead "처방 읽어오기"
expect rows tdbMyChubang 0
expect rtxMyCBMemo "사용자 메모 내용"
expect sscConfirm(0) "닫 기"

# The pharmacy's, by name.
tab c1tabChubangRead 1
type txtYakGukChubang 사물
key txtYakGukChubang Enter
expect caption tdbYakGukChubang "처방명 = '사물' 검색결과"
expect rows tdbYakGukChubang 1
expect caption tdbYakGukChubangDetail "[ 사물탕 ]의 구성약재"
expect rows tdbYakGukChubangDetail 4
expect rtxYakGukCBRefer "혈허를 다스리는 기본방. 월경불순, 빈혈, 산후 허약"

# Into an empty table it is copied, and the library is back at once.
check sschkChubangRead(1) on
expect sscConfirm(1) "합 방"
press sscConfirm(1)
expect window frmChubangRead
expect tab c1tabChubangRead 1
expect sschkChubangRead(1) off
expect sscConfirm(1) "닫 기"

# His own: all of them, by name downwards and upwards.
tab c1tabChubangRead 0
press sscMyCBsearch
expect caption tdbMyChubang " 내약속처방"
expect rows tdbMyChubang 4
head tdbMyChubang 처방명
expect cell tdbMyChubang 0 처방명 "옛 산후방"
head tdbMyChubang 처방명
expect cell tdbMyChubang 3 처방명 "옛 산후방"
head tdbMyChubang 등록날짜
expect cell tdbMyChubang 0 처방명 "옛 산후방"
expect rtxMyCBMemo "예전 처방. 천산갑은 더 들어오지 않으니 빼고 다시 구성할 것"
expect rows tdbMyChubangDetail 6

# Merged over the first: of two amounts the larger stands, and what the merge touched is green.
check sschkChubangRead(0) on
press sscConfirm(0)
press sscConfirm(0)
expect window frmDoctorOCSmain
expect focus tdbDGL
expect caption tdbDGL " 1첩 기준의 약재 구성 [8]"
expect cell tdbDGL 1 약재명 작약
expect cell tdbDGL 1 "용량(g)" 5
expect cell tdbDGL 2 약재명 당귀
expect cell tdbDGL 2 "용량(g)" 8
# The pharmacy has this one no more.
expect cell tdbDGL 6 약재명 천산갑
expect cell tdbDGL 6 한약국약재 ""
expect style tdbDGL 6 styDGLStateRed

# A red row is not stored: it is taken out first. Then the name is asked for.
press sscMyChubangReg
expect message "내약속처방으로 등록" "구성한 약재정보에 오류가 있습니다. 확인 바랍니다."
expect current tdbDGL 6
answer Yes
press sscDrugDelete
expect message "처방약재삭제" *
expect caption tdbDGL " 1첩 기준의 약재 구성 [7]"
press sscMyChubangReg
type txtCBName 산후방 '새' 50%
type rtxNote 사물탕에 옛 산후방을 합함
press cmdSave
expect message "내약속처방등록" "내약속처방에 등록되었습니다."
expect window frmDoctorOCSmain

# It stands in the library, with its memo.
press sscCBJRead
type txtMyChubangMemo 사물탕
press sscMemosearch
expect caption tdbMyChubangDetail "[ 산후방 '새' 50% ]의 구성약재"
expect rows tdbMyChubangDetail 7
expect cell tdbMyChubangDetail 2 "용량(g)" 8

# Another gets a new memo, and one of its herbs a note.
type txtMyChubang 쌍화
key txtMyChubang Enter
expect rows tdbMyChubang 1
row tdbMyChubangDetail 7
expect rtxMyCBBigo 분골
key rtxMyCBMemo End
type rtxMyCBMemo ". 여름에는 쓰지 않음"
key rtxMyCBBigo End
type rtxMyCBBigo " 1.5g까지"
press sscMemoSave
expect cell tdbMyChubang 0 사용자메모 "겨울철 어르신 보약. 녹용은 1.5g을 넘기지 않음. 여름에는 쓰지 않음"
expect cell tdbMyChubangDetail 7 비고 "분골 1.5g까지"

# The old one is not needed any more. A slip of the hand deletes nothing.
key txtMyChubang Backspace Backspace
press sscMyCBsearch
expect rows tdbMyChubang 5
head tdbMyChubang 처방명
expect cell tdbMyChubang 0 처방명 "옛 산후방"
press sscDelete
expect message "내약속처방 삭제" *
expect rows tdbMyChubang 5
answer Yes
press sscDelete
expect message "내약속처방 삭제" "내약속처방 [옛 산후방] 을 삭제 하시겠습니까?"
expect rows tdbMyChubang 4
expect current tdbMyChubang 0
expect caption tdbMyChubangDetail "[ 쌍화탕 가녹용 ]의 구성약재"
key tdbMyChubang Esc
expect no message
close
