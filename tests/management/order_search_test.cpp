#include "support/ManagementWindow.h"

namespace zelvo::management {
namespace {

using testing::ManagementWindow;

/// The orders in the list, from its top: keys with their numbers.
std::string listed(const ManagementWindow& window) {
    std::string all;
    for (int row = 0; row < window.search.tdbCBJ.rowCount(); ++row)
        all += window.search.tdbCBJ.valueAt(row, 0) + ":" + window.search.tdbCBJ.valueAt(row, 1) + " ";
    return all;
}

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

TEST_F(Search, FindsByEachWayAndSaysWhatTheListHolds) {
    struct Case {
        const char *button, *field, *entry, *caption, *found;
    };
    const Case cases[] = {
        {"sscCBJsearchALL", "", "", "발행한 처방전 전체를 검색한 결과", "1:2 2:1 "},
        {"sscCBJcanceled", "", "", "[취소]된 처방전를 검색한 결과", "1:3 "},
        {"sscCBJsearchState", "cboCBJstate", "제 작", "[제작]중인 처방전을 검색한 결과", "1:2 "},
        {"sscCBJsearchState", "cboCBJstate", "완 료", "[완료]된 처방전을 검색한 결과", "1:1 "},
        {"sscCBJsearchIsPay", "cboCBJisPaid", "미지불", "[미지불]된 처방전을 검색한 결과", "1:1 "},
        {"sscCBJsearchPayment", "cboCBJPayMethod", "후불정산", "[후불정산]으로 발행된 처방전을 검색한 결과",
         "1:2 "},
        {"sscCBJsearchBesong", "cboCBJBesong", "미 정", "[미정]으로 발행한 처방전을 검색한 결과", "1:1 "},
        {"sscCBJsearchPatient", "txtCBJsearchPatient", "환'자1", "환자명[환'자1]으로 검색한 결과", "1:1 "},
        {"sscCBJsearchPatient", "txtCBJsearchPatient", "  ", "환자명[환'자1]으로 검색한 결과", "1:1 "},
        {"sscCBJsearchDTR", "txtCBJsearchDTR", "한의", "처방 담당의사[한의]님으로 검색한 결과", "1:2 2:1 "},
        {"sscCBJsearchDTR", "txtCBJsearchDTR", " ", "처방 담당의사[ ]님으로 검색한 결과", ""},
        {"sscCBJsearchALL", "", "", "발행한 처방전 전체를 검색한 결과", "1:2 2:1 "},
    };
    window.run([&] {
        for (const Case& test : cases) {
            SCOPED_TRACE(test.caption);
            screen::Field* field = window.form.field(test.field);
            if (auto* text = dynamic_cast<screen::TextField*>(field)) text->setText(test.entry);
            if (auto* combo = dynamic_cast<screen::ComboList*>(field)) {
                for (int i = 0; i < combo->entryCount(); ++i) {
                    if (combo->entry(i) == test.entry) combo->select(i);
                }
            }
            dynamic_cast<screen::Button&>(*window.form.field(test.button)).onPress();
            EXPECT_EQ(window.search.tdbCBJ.caption(), test.caption);
            EXPECT_EQ(listed(window), test.found);
            EXPECT_EQ(window.desktop.pointer(), screen::Pointer::Normal);
        }
        window.search.cboCBJstate.select(-1);
        window.search.sscCBJsearchState.onPress();
        EXPECT_EQ(window.search.tdbCBJ.caption() + listed(window), cases[0].caption)
            << "nothing chosen: emptied";
    });
}

TEST_F(Search, ANursesDoctorsStandOneBeforeTheOther) {
    window.session.m_IsNurse = true;
    window.session.m_DTRPK = 0;
    window.run([&] {
        window.listAll();
        EXPECT_EQ(listed(window), "") << "without doctors";
        for (const char* entry : {"1/이한의", "nobody", "2/최한의"}) window.search.cbodtrList.addEntry(entry);
        window.listAll();
        EXPECT_EQ(listed(window), "1:5 2:4 1:2 2:1 ");
        EXPECT_EQ(window.detail.shownKey(), 5);
        for (const int failing : {1, 2}) {
            window.line->failAt(failing);
            window.listAll();
            window.line->failAt(0);
            EXPECT_EQ(listed(window), failing == 1 ? "1:5 2:4 " : "") << "the last read counts";
        }
    });
}

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
        EXPECT_GT(nested, 2) << "once a row and more";
        EXPECT_EQ(listed(window), "1:2 2:1 ");
        EXPECT_EQ(window.search.tdbCBJ.caption(), "발행한 처방전 전체를 검색한 결과");
    });
}

/// Sorting moves the rows, not the user: the order in view stays, with what is being typed into it.
TEST_F(Search, HeadsSortTheListUnderTheOrderInView) {
    window.run([&] {
        window.listAll();
        window.search.tdbCBJ.setCurrentRow(1);
        window.detail.Set_CBJmEditable(true);
        window.detail.patient.txtCBJmPatientName.setText("다른 이름");
        const std::pair<int, const char*> heads[] = {
            {3, "2:1 1:2 "}, {3, "1:2 2:1 "}, {2, "2:1 1:2 "}, {0, "1:2 2:1 "}, {0, "2:1 1:2 "}};
        for (const auto& [column, order] : heads) {
            window.search.tdbCBJ.onHeadClick(column);
            EXPECT_EQ(listed(window), order) << column;
            EXPECT_EQ(window.search.tdbCBJ.value("CBJ_PK"), "1");
            EXPECT_EQ(window.detail.patient.txtCBJmPatientName.text(), "다른 이름");
        }
    });
}

}  // namespace
}  // namespace zelvo::management
