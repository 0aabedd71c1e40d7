#include "management/OrderDetail.h"

#include "data/Words.h"

namespace zelvo::management {

OrderDetail::OrderDetail(screen::Window& form, screen::Place managementTab)
    : ssrCBJmCancel(form, "ssrCBJmCancel", managementTab, "처방전취소"),
      ssrCBJreuse(form, "ssrCBJreuse", managementTab, "처방전 재사용"),
      cboCBJmBesongMethod(form, "cboCBJmBesongMethod", managementTab),
      tdbCBJmDGL(form, "tdbCBJmDGL", managementTab,
                 {{.caption = "DET_PK", .field = "DET_PK", .shown = false},
                  {.caption = "CBJ_PK", .field = "CBJ_PK", .shown = false},
                  {.caption = "한약국약재PK", .field = "DGL_PK", .shown = false},
                  {.caption = "약재명", .field = "DGL_CallSign", .width = 1700},
                  {.caption = "한약국약재", .field = "DGL_Internal", .width = 2200},
                  {.caption = "용량(g)", .field = "DET_Weight", .alignRight = true, .width = 1000},
                  {.caption = "단가",
                   .field = "DET_Danga",
                   .alignRight = true,
                   .format = basics::NumberPicture::SeparatedZero},
                  {.caption = "금액",
                   .field = "DET_Money",
                   .alignRight = true,
                   .format = basics::NumberPicture::SeparatedZero},
                  {.caption = "비고", .field = "DET_Note"}}),
      tdbCBJmCost(form, "tdbCBJmCost", managementTab,
                  {{.caption = "비용 항목", .width = 2400},
                   {.caption = "비용(원)", .alignRight = true, .width = 1300},
                   {.caption = "자세히", .button = true, .width = 700},
                   {.caption = "비용세부항목", .shown = false}}) {
    tdbCBJmDGL.allowsUpdate = false;
    tdbCBJmCost.allowsUpdate = false;
}

void OrderDetail::Form_Load() {
    using namespace data::delivery;
    for (const std::string_view method : {undecided, parcel, courier, clinic})
        cboCBJmBesongMethod.addEntry(method);
    cboCBJmBesongMethod.select(0);
    tdbCBJmCost.addStyle("styCBJmCost", {0, 0, 192});
}

void OrderDetail::bindHerbs() {
    tdbCBJmDGL.bind(&m_rsCBJmDGL);
}

void OrderDetail::Clear_CBJmDetail() {
    m_rsCBJmDGL.close();
    tdbCBJmDGL.refresh();
    m_xaCBJmCost.reDim(-1, 3);
    tdbCBJmCost.refresh();
    cboCBJmBesongMethod.select(-1);
    ssrCBJmCancel.setVisible(false);
}

}  // namespace zelvo::management
