#include "management/OrderSearch.h"

#include "basics/Dates.h"
#include "data/Words.h"

namespace zelvo::management {

namespace {

enum Page { all, issueDate, doctor, patient, progress, delivery, payMethod, paid, canceled };

void addEntries(screen::ComboList& list, std::initializer_list<std::string_view> entries) {
    for (const std::string_view entry : entries) list.addEntry(entry);
}

}  // namespace

OrderSearch::OrderSearch(screen::Window& form, screen::Place managementTab)
    : c1tCBJmanage(form, "c1tCBJmanage",
                   {"전체처방전", "발행날짜", "담당의사 ", "환자명", "진행상태", "배송방식", "지불방식",
                    "지불여부", "취소된 처방전"},
                   managementTab),
      dtpCBJsearch0(form, "dtpCBJsearch(0)", c1tCBJmanage.page(issueDate)),
      dtpCBJsearch1(form, "dtpCBJsearch(1)", c1tCBJmanage.page(issueDate)),
      cboCBJstate(form, "cboCBJstate", c1tCBJmanage.page(progress)),
      cboCBJBesong(form, "cboCBJBesong", c1tCBJmanage.page(delivery)),
      cboCBJPayMethod(form, "cboCBJPayMethod", c1tCBJmanage.page(payMethod)),
      cboCBJisPaid(form, "cboCBJisPaid", c1tCBJmanage.page(paid)),
      cbodtrList(form, "cbodtrList", managementTab),
      tdbCBJ(form, "tdbCBJ", managementTab,
             {{.caption = "NO", .width = 688},
              {.caption = "CBJ_PK", .shown = false},
              {.caption = "발행날짜", .width = 3493},
              {.caption = "환자명", .width = 1244},
              {.caption = " - ", .width = 741},
              {.caption = "주문서", .width = 1508},
              {.caption = "담당의", .shown = false, .width = 1111}}) {
    dtpCBJsearch0.setLabel("발행한 날짜로 검색");
    dtpCBJsearch1.setLabel("발행한 날짜로 검색");
    cboCBJstate.setLabel("처방전 진행상태로 검색:");
    cboCBJBesong.setLabel("처방전 배송방식으로 검색:");
    cboCBJPayMethod.setLabel("처방전 지불방식으로 검색:");
    cboCBJisPaid.setLabel("처방전 지불여부로 검색:");
    cbodtrList.setVisible(false);
    tdbCBJ.allowsUpdate = false;
    tdbCBJ.emptyHint = "위에서 검색하면 발행하신 처방전이 여기에 나타납니다.";
    tdbCBJ.setCaption(" 발행하신 처방전입니다.");
}

void OrderSearch::Form_Load() {
    dtpCBJsearch0.setValue(basics::today());
    dtpCBJsearch1.setValue(basics::today());
    for (const std::string_view word : data::state::words) cboCBJstate.addEntry(word);
    addEntries(cboCBJisPaid, {"미지불", "지 불"});
    addEntries(cboCBJPayMethod, {data::pay::deposit, data::pay::later, data::pay::settled});
    addEntries(cboCBJBesong, {"미 정", "택배(환자)", "퀵(환자)", "한의원"});
    c1tCBJmanage.select(issueDate);
    c1tCBJmanage.setSelectable(all, false);
}

void OrderSearch::Init_CBJGrid() {
    m_xaCBJ.reDim(-1, 6);
    tdbCBJ.bind(&m_xaCBJ);
}

void OrderSearch::showDoctorColumn() {
    tdbCBJ.setColumnShown(6, true);
    tdbCBJ.setColumnWidth(2, 1400);
    tdbCBJ.setColumnWidth(5, 1300);
}

}  // namespace zelvo::management
