# A doctor whose account failed reads the pharmacy's notice board all the same: a formatted text, a page with a picture, a
# page of the pharmacy's older site. Then the internet fails.
# call: doctor --account doctor1/$/forgotten --patient-pk 1024 --patient-name 김하늘 --patient-age 41 --patient-sex 2 --patient-cell 01012345678 --hospital-name 하늘한의원

expect message "한약국 로그인" *
expect lblGongJiYakGuk(0) "한들한약국"

# The newest of the first kind is open already.
expect rows tdbGongJi 5
expect current tdbGongJi 0
expect cell tdbGongJi 0 "제목" "처방전 전송 서비스 이용 안내"
expect shown rtxGongJi
expect hidden wbrGongJi

# A page with a picture; the same button shows it in the system's browser.
row tdbGongJi 1
expect cell tdbGongJi 1 "제목" "배송 방식과 비용 안내"
expect hidden rtxGongJi
expect shown wbrGongJi
press sscExplorer

row tdbGongJi 4
expect cell tdbGongJi 4 "제목" "탕전 방식과 제형변화 안내"
expect shown wbrGongJi
expect no message

# A page that can't be opened, and one that never comes: the doctor is told, and reads on.
page failed
row tdbGongJi 1
expect message "공지사항" *
page never
row tdbGongJi 4
expect message "공지사항" *
expect enabled c1eGongJi(0)
expect pointer normal
row tdbGongJi 0
expect shown rtxGongJi
expect no message
close
