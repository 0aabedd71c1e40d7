# call: doctor --account doctor1/$/forgotten --patient-pk 1024 --patient-name 김하늘 --patient-age 41 --patient-sex 2 --patient-cell 01012345678 --patient-zip 06236 --patient-address 서울특별시_강남구_테헤란로_152 --hospital-name 하늘한의원
# exit: 0
# The account that the chart hands over is an old one. The doctor logs in by hand, brings the own record up to date,
# looks at the balance, and sends an order with a sheet that was written for the patient.

expect message "한약국 로그인" "입력된 아이디와 암호에 대한 Doctor 정보를 찾을 수 없습니다. [한약국 서버 연결 확인]"
expect txtHospitalName ""

# A dialog that is left changes nothing; a wrong password is told.
press ssrLogIN
expect caption frmLogin "한약국 로그인"
type txtID doctor1
key txtID Enter
expect focus txtPassword
type txtPassword forgotten
key txtPassword Esc
expect no message
press ssrLogIN
type txtID doctor1
type txtPassword forgotten
key txtPassword Enter
expect message "한약국 로그인" "한약국 로그인 실패 -> [ID, PassWord를 확인해 주십시오.]"
expect selectable c1tMain 1 no

press ssrLogIN
type txtID doctor1
press cmdOK
expect message "한약국 로그인" "비밀번호를 입력하여 주십시오."
expect focus txtPassword
type txtPassword pass1
key txtPassword Enter
expect message "한약국 로그인" "한약국 로그인 성공! [ 접속 ID = doctor1 ]"
expect caption frmDoctorOCSmain "ZEL-VO 메인 윈도우 - 한의사(현재 접속 ID : doctor1)"
expect txtHospitalName 보원한의원

# The clinic has moved: the new address is found on the pharmacy's page, and the floor typed behind it.
tab c1tMain 3
expect txtDTRdiscount 5
expect txtDTRbox "1,500"
expect txtDTRvip O
expect item ListVpayment 2 on
press ssrZipCode(4)
type txtFind 없는 길
key txtFind Enter
expect message 우편번호검색 "[없는 길](으)로 찾은 주소가 없습니다."
type txtFind 세종대로
key txtFind Enter
expect rows tdbFound 1
expect cell tdbFound 0 "우편번호" 04524
key tdbFound Enter
expect txtDTRhoszip 04524
expect txtDTRaddress "서울특별시 중구 세종대로 110 "
focus txtDTRaddress
key txtDTRaddress End 3 층
type txtDTRhostel 027771001
expect txtDTRhostel 02-777-1001
press ssrDTRchang
expect message "한의사정보 변경" "한의사 정보를 성공적으로 변경하였습니다."
expect txtBalsongJuso "서울특별시 중구 세종대로 110 3층"
expect txtHospitalTel 02-777-1001

# A new password, which opens the account from now on; and back again.
press ssrPWDchang
type txtOldPassword forgotten
type txtNewPassword 봄 여름
type txtNewPasswordAgain 봄 여름
key txtNewPasswordAgain Enter
expect message "비밀번호 변경" "현재 비밀번호가 맞지 않습니다."
type txtOldPassword pass1
press cmdOK
expect message "비밀번호 변경" "비밀번호 변경 성공! "
tab c1tMain 0
press ssrLogIN
type txtID doctor1
type txtPassword 봄 여름
key txtPassword Enter
expect message "한약국 로그인" "한약국 로그인 성공! [ 접속 ID = doctor1 ]"
tab c1tMain 3
press ssrPWDchang
type txtOldPassword 봄 여름
type txtNewPassword pass1
type txtNewPasswordAgain pass1
key txtNewPasswordAgain Enter
expect message "비밀번호 변경" "비밀번호 변경 성공! "

# The balance, whole and by date.
pharmacy deposit doctor1 30000
press ssrStockView(0)
date dtpStockView(0) 2000-01-01
date dtpStockView(1) 2000-01-31
press ssrStockView(1)
expect rows tdbInStock 0
expect txtGridStock ""

# The order: one herb, decocted, to a patient who has moved as well.
tab c1tMain 1
press ssrZipCode(0)
type txtFind 월드컵북로
key txtFind Enter
press cmdOK
expect txtBesongZip 03925
cellkey tdbDGL "약재명" Enter
cell tdbDGL "약재명" 당귀
cellkey tdbDGL "약재명" Enter
key tdbYakgukDrug Enter
cell tdbDGL "용량(g)" 6
type txtChubsu 20
row tdbTJML 0
cellbutton tdbTJML 0
type txtDayTuyak 3
type txtTuyakilsu 7
type txtPouchAmount 100
choose cboBesongMethod 택배(환자)

# The sheet: left without taking it, then written.
press cmdEatGuide
type rtxSheet 아무것도
answer Yes
key rtxSheet Esc
expect message "복용법작성 - 김하늘 님" "작성한 내용이 반영되지 않습니다. 닫으시겠습니까?"
expect plain rtxEatGuide ""
press cmdEatGuide
type rtxSheet "하루 세 번\n식후 30분에 따뜻하게 드십시오."
type txtHospName 보원한의원
key txtHospName Enter
type txtPhoneNo 027771001
key txtPhoneNo Enter
expect plain rtxEatGuide "하루 세 번\r\n식후 30분에 따뜻하게 드십시오."
expect txtEatGuideHosName 보원한의원
expect txtEatGuideCall 02-777-1001
press cmdEatGuideReg

choose cboPaymentMethod 적립
press ssrCostConfirm
answer No
press ssrCBJSend
expect message "처방전 전송 성공" *
expect events 1
expect no message
close
