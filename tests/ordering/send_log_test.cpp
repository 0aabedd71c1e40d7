#include "ordering/SendLog.h"

#include "support/OrderWindow.h"

namespace zelvo::ordering {
namespace {

using testing::OrderWindow;

TEST(SendLog, SaysWhatWasOrdered) {
    testing::TestDatabase pharmacy(false);
    OrderWindow::stock(pharmacy);
    OrderWindow window(pharmacy);
    window.compose();
    tables::XArrayDB costs;
    costs.reDim(2, 3);
    const char* notes[] = {"한 줄", "첫 줄\r\n둘째\r\n끝", "\r\n끝"};
    for (int row = 0; row < 3; ++row) {
        costs.set(row, 0, " 조제비용");
        costs.set(row, 1, "1,000");
        costs.set(row, 3, notes[row]);
    }
    const std::string time = "2024-05-06 09:08:07";
    const std::string text = sendLogText(window.desktop, window.draft, costs, time);
    const std::string expected[] = {
        "</style><font color=red>[2024-05-06 09:08:07] 전송한 처방전 입니다. </font><BR><BR>[환자NO]= 4711, [환자이름]= 김 "
        "환자 [환자주소]= 06000 서울 강남구 1<BR><BR>[배송방식]= 택배(환자), [받을날짜]= ..<BR><BR>[한의원명]= 우리 "
        "한의원, [한의사]= 이한의 [발송주소]= 03000 서울 종로구 2<BR><BR>[처방전 주문서]= 탕전<BR><BR>[약재정보]<BR><table ",
        "<tr><td>작약&nbsp;</td><td>한약국 작약&nbsp;</td><td>3.5&nbsp;</td><td>1,000&nbsp;</td><td>3,500&nbsp;</td>"
        "<td>볶은 것&nbsp;</td></tr></table><BR>[첩수]= 20, [약재가격]= 72,040<BR><BR>[탕전정보]= 압력탕전<BR>[제형변화]= "
        "녹용<BR>[1일 복용팩수]= 3, [복용일]= 7, [총파우치]= 21, [1팩용량]= 100<BR><BR>[처방메세지]<BR><table border=1 "
        "cellspacing=0 cellpadding=2><tr><td> 잘 부탁합니다 </td></tr></table><BR>[복용법]<BR>",
        window.sheet.rtxEatGuide.rtf().substr(0, 5),
        "[지불방식]= 후불<BR><BR><table border=1 cellspacing=0 cellpadding=2><tr><td>조제비용&nbsp;</td><td>1,000&nbsp;</td>"
        "<td>&nbsp;</td></tr><tr><td>조제비용&nbsp;</td><td>1,000&nbsp;</td><td>첫 줄<BR>둘째&nbsp;</td></tr>",
    };
    std::size_t from = 0;
    for (const std::string& piece : expected) {
        const std::size_t at = text.find(piece, from);
        ASSERT_NE(at, std::string::npos) << piece << "\nnot in\n" << text.substr(from);
        from = at + piece.size();
    }
    EXPECT_EQ(text.find("\r\n"), std::string::npos);

    window.chooseJob(2);
    window.patient.chkBesongDate.setValue(true);
    EXPECT_TRUE(Write_SendLog(window.desktop, window.draft, costs, time));
    const std::string& bare = window.logs.at("/logs/zelvo/zelvo_20240506090807.htm");
    EXPECT_NE(bare.find("기타구입<BR><BR>[약재정보]<BR><BR>[탕전정보]<BR>[제형변화]<BR><BR>[처방메세지]"),
              std::string::npos);
    EXPECT_NE(bare.find("[받을날짜]= " + window.patient.dtpBesongDate.text()), std::string::npos);
    window.diskFull = true;
    EXPECT_FALSE(Write_SendLog(window.desktop, window.draft, costs, time));
}

}  // namespace
}  // namespace zelvo::ordering
