#include "services/Notices.h"

#include "data/clsZELVORecordSet.h"

namespace zelvo::services {

Notices::Notices(screen::Window& form, screen::Place noticeTab, session::Session& session)
    : lblGongJiYakGuk{{{form, "lblGongJiYakGuk(0)", noticeTab},
                       {form, "lblGongJiYakGuk(1)", noticeTab},
                       {form, "lblGongJiYakGuk(2)", noticeTab},
                       {form, "lblGongJiYakGuk(3)", noticeTab},
                       {form, "lblGongJiYakGuk(4)", noticeTab}}},
      lblYakGukSvrIP(form, "lblYakGukSvrIP", noticeTab),
      tdbGongJi(form, "tdbGongJi", noticeTab,
                {{.caption = "공지사항PK", .field = "PGJ_PK", .shown = false},
                 {.caption = "공지유형", .field = "PGJ_Type", .shown = false},
                 {.caption = "컨텐츠유형", .field = "PGJ_ContType", .shown = false},
                 {.caption = "제목", .field = "PGJ_Title", .width = 4200},
                 {.caption = "URL", .field = "PGJ_URLCont", .shown = false},
                 {.caption = "RTF TEXT", .field = "PGJ_RTFCont", .shown = false},
                 {.caption = "등록일자", .field = "PGJ_WriteDate", .width = 1800}}),
      session_(session) {
    const char* labels[] = {"한약국명 :", "대표한약사 :", "한약국주소 :", "전화번호 :", "핸드폰 :"};
    for (std::size_t i = 0; i < lblGongJiYakGuk.size(); ++i) lblGongJiYakGuk[i].setLabel(labels[i]);
    tdbGongJi.allowsUpdate = false;
    tdbGongJi.emptyHint = "한약국의 공지사항이 없습니다.";
}

void Notices::Load_GongJi() {
    tdbGongJi.bind(&m_rsGongJi);
    if (data::clsZELVORecordSet().RecordSet_GongJi(session_.connection(), m_rsGongJi) == -1) return;
    tdbGongJi.refresh();
}

}  // namespace zelvo::services
