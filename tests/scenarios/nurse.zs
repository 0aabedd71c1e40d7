# call: nurse --account doctor1/$/pass1#$#nobody/$/x#$#doctor2/$/pass2
# A nurse sees the orders of her doctors and no way to write one.
expect caption frmDoctorOCSmain "ZEL-VO 메인 윈도우 - 간호사"
expect tab c1tMain 2
expect selectable c1tMain 1 no
expect selectable c1tMain 3 no
expect selectable c1tCBJmanage 2 yes
expect entries cbodtrList "1/김보원" "2/이청담"
expect hidden ssrCBJreuse
expect panel stbMain 2 "간호사용 zelvo"
expect no message
close
expect window none
expect events 0
