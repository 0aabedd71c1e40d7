#include "support/ManagementWindow.h"

namespace zelvo::management {
namespace {

using testing::ManagementWindow;

struct Search : ::testing::Test {
    Search() {
        window.put(1, "CBJ_State = 3, CBJ_PayMethod = 2, CBJ_BesongMethod = 1, CBJ_IsPaid = 0");
        window.put(2, "CBJ_State = 1, CBJ_PayMethod = 3, CBJ_BesongMethod = 4");
        window.put(3, "CBJ_IsCanceled = 1");
        window.put(4, "DTR_PK = 2, Patient_Name = '김''영희'");
        window.put(5, "DTR_PK = 2");
    }
    ManagementWindow window;
};

TEST_F(Search, ANursesDoctorsStandOneBeforeTheOther) {
    window.session.m_IsNurse = true;
    window.session.m_DTRPK = 0;
    window.run([&] {
        window.listAll();
        EXPECT_EQ(window.listed() + window.search.tdbCBJ.emptyHint, "담당의가 없어 찾을 처방전이 없습니다.")
            << "without doctors";
        for (const char* entry : {"1/이한의", "nobody", "2/최한의"}) window.search.cbodtrList.addEntry(entry);
        for (const char* found : {"1:5 2:4 1:2 2:1 ", "1:5 2:4 ", ""}) {
            window.listAll();
            EXPECT_EQ(window.listed(), found) << "the last read counts";
            EXPECT_EQ(window.search.tdbCBJ.emptyHint == "찾은 처방전이 없습니다.", *found != 0);
            window.line->failAt(*found ? (window.listed().size() > 9 ? 1 : 2) : 0);
        }
    });
}

/// Neither another search nor a click on a head comes between the rows of a search.
TEST_F(Search, AnotherSearchMeanwhileMixesNothingIn) {
    window.run([&] {
        int nested = 0;
        window.desktop.onEvents = [&] {
            if (++nested > 2) return;
            window.search.sscCBJcanceled.onPress();
            window.search.tdbCBJ.onHeadClick(3);
        };
        window.listAll();
        window.desktop.onEvents = nullptr;
        EXPECT_EQ(window.listed(), "1:2 2:1 ");
        EXPECT_EQ(window.search.tdbCBJ.caption(), "발행한 처방전 전체를 검색한 결과");
    });
}

/// Sorting moves the rows, not the user: the order in view stays, with what is being typed into it.
TEST_F(Search, HeadsSortTheListUnderTheOrderInView) {
    window.run([&] {
        window.listAll();
        window.search.tdbCBJ.setCurrentRow(1);
        window.detail.patient.txtCBJmPatientName.setText("다른 이름");
        const std::pair<int, const char*> heads[] = {
            {3, "2:1 1:2 "}, {3, "1:2 2:1 "}, {2, "2:1 1:2 "}, {0, "1:2 2:1 "}, {0, "2:1 1:2 "}};
        for (const auto& [column, order] : heads) {
            window.search.tdbCBJ.onHeadClick(column);
            EXPECT_EQ(window.listed(), order) << column;
            EXPECT_EQ(window.search.tdbCBJ.sortedColumn(), column);
            EXPECT_EQ(window.search.tdbCBJ.value("CBJ_PK") + window.says({"txtCBJmPatientName"}),
                      "1다른 이름");
        }
        EXPECT_TRUE(window.search.tdbCBJ.sortedDescending());
        window.listAll();
        EXPECT_EQ(window.search.tdbCBJ.sortedColumn(), -1) << "a search brings its own order";
    });
}

}  // namespace
}  // namespace zelvo::management
