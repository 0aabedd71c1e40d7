#include "support/Killing.h"
#include "support/ManagementWindow.h"

namespace zelvo::management {
namespace {

using testing::ManagementWindow;

const std::string saved = "처방전수정: 처방전 수정 성공!", savedWithPrice = saved + " [처방전비용 변경됨]";
const char *saveButton = "ssrCBJmUpdate", *cancelButton = "ssrCBJmCancel", *editSwitch = "sschkCBJmUpdate";
/// What the orders say of name, delivery and its cost and notes; whether they and their mileage are
/// cancelled, whose it is; the clinic on the sheet.
const std::string orders =
    "SELECT group_concat(Patient_Name || coalesce(Patient_Age, Patient_Sex, '-') || ' ' || ifnull(CBJ_BesongMethod, '-') || ' ' || CBJ_Reci_Date || ' ' ||"
    " CBJ_BesongCost || CCD_BesongCost || CBJ_ElseCost || ' ' || CBJ_VATCost || ' ' || a.CBJ_IsCanceled || ' ' ||"
    " ifnull((SELECT STK_Money || CBJ_IsCanceled || c.DTR_PK FROM t_Stock c WHERE c.CBJ_PK = a.CBJ_PK), '') ||"
    " ifnull((SELECT HospName FROM t_EatGuide d WHERE d.CBJ_PK = a.CBJ_PK), '-')) FROM t_ChubangJun a,"
    " t_CBJcostDetail b WHERE a.CBJ_PK = b.CBJ_PK AND a.CBJ_PK > ";
const std::string untouched = "환자232 2 1900-01-01 4000택배-2 1000 0 50001우리 2",
                  changed = "오'닐32 3 1900-01-01 9000note 9\r\nmore0 1000 0 7701새 의원",
                  canceled = "환자232 2 1900-01-01 4000택배-2 1000 1 50011우리 2";

/// A whole answer of the page: delivery 9,000, other 0, the pharmacy's own 100 and 20, mileage as told.
std::string priced(int mileage) {
    std::string answer = "[START]1/*/20000&total";
    for (int row = 2; row <= 11; ++row)
        answer += "/*/" + std::to_string(row == 9 ? 9000 : 0) + "&note " + std::to_string(row) + "vbCrLfmore";
    return answer + "/*/100&with/*/20&amp;without/*/" + std::to_string(mileage) + "[END]";
}

/// Two orders; the second is being edited.
class Modifying : public ManagementWindow {
public:
    explicit Modifying(std::shared_ptr<testing::OrderPharmacy> shared = fresh())
        : ManagementWindow(std::move(shared)) {
        page.answer = priced(77);
    }
    static std::shared_ptr<testing::OrderPharmacy> fresh() {
        const auto pharmacy = std::make_shared<testing::OrderPharmacy>();
        for (const int key : {1, 2}) put(*pharmacy, key);
        return pharmacy;
    }
    void edit(bool otherDelivery) {
        listAll();
        user.check("sschkCBJmUpdate", true);
        detail.patient.txtCBJmPatientName.setText(" 오'닐 ");
        detail.sheet.txtCBJmCBMsg.setText("새 메세지");
        detail.sheet.txtEatGuideHosName2.setText("새 의원");
        if (otherDelivery) user.choose("cboCBJmBesongMethod", "퀵(환자)");
        line->statements.clear();
    }
    void save() { user.press(saveButton); }
    /// Works a button of the panel, Yes to a cancellation's question: what is told, under which caption.
    std::string told(const std::string& button) {
        if (button == cancelButton) desktop.answer(screen::Answer::Yes);
        button == editSwitch ? detail.state.sschkCBJmUpdate.userClick() : user.press(button);
        if (button == cancelButton) box();
        return box();
    }
    bool editing() const { return detail.frames.c1eCBJm3.enabled(); }
};

TEST(OrderModification, StoresWhatIsTypedAndAsksAPriceForAnotherDeliveryOnly) {
    struct Case {
        const char *name, *before;
        bool otherDelivery, chosenDate;
        int mileage;
        std::string stored;
        const char* meanwhile = "";  ///< another desk, between the last look at the state and the update
    };
    const std::string today = "UPDATE t_ChubangJun SET CBJ_Reci_Date = '2030-01-02';",
                      none = "DELETE FROM t_Stock;", sheet = "새 의원",
                      kept = "1900-01-01 4000택배-2 1000 0 50001" + sheet,
                      cost = "9000note 9\r\nmore0 1000 0 ";
    const Case cases[] = {
        {"no other price", "", false, false, 77, "오'닐32 2 " + kept},
        {"another price", "", true, false, 77, changed},
        {"a date stays, the mileage goes", today.c_str(), true, false, 0,
         "오'닐32 3 2030-01-02 " + cost + "001" + sheet},
        {"a date comes, no mileage", none.c_str(), true, true, 0, "오'닐32 3 2031-03-04 " + cost + sheet},
        {"the first mileage", none.c_str(), true, false, 9, "오'닐32 3 1900-01-01 " + cost + "901" + sheet},
        {"no method", "UPDATE t_ChubangJun SET CBJ_BesongMethod = NULL", false, false, 0,
         "오'닐32 - " + kept},
        {"an unknown method", "UPDATE t_ChubangJun SET CBJ_BesongMethod = 9", false, false, 0,
         "오'닐32 9 " + kept},
        {"no sex or age", "UPDATE t_ChubangJun SET Patient_Sex = NULL, Patient_Age = NULL", false, false, 0,
         "오'닐- 2 " + kept},
        {"another desk's method and price", "", false, false, 0,
         "오'닐32 4 1900-01-01 5택배-2 1000 0 50001" + sheet,
         "UPDATE t_ChubangJun SET CBJ_BesongMethod = 4, CBJ_BesongCost = 5"},
        {"another desk cancels", none.c_str(), true, false, 9,
         "오'닐32 3 1900-01-01 9000note 9\r\nmore0 1000 1 " + sheet,
         "UPDATE t_ChubangJun SET CBJ_IsCanceled = 1"},
        {"no sheet yet", "DELETE FROM t_EatGuide", false, false, 0, "오'닐32 2 " + kept}};
    for (const Case& test : cases) {
        SCOPED_TRACE(test.name);
        Modifying window;
        window.pharmacy->run(test.before);
        window.page.answer = priced(test.mileage);
        window.run([&] {
            window.edit(test.otherDelivery);
            window.session.m_DTRPK = 2;  // the money is the order's doctor's
            window.balance.txtUsableStock.setText("old");
            EXPECT_FALSE(window.detail.patient.dtpCBJmBesongDate.enabled());
            EXPECT_EQ(window.says({"dtpCBJmBesongDate"}) == "2030-01-02", test.before == today);
            if (test.chosenDate) {
                window.user.check("chkCBJmBesongDate", true);
                window.user.date("dtpCBJmBesongDate", "2031-03-04");
            }
            window.line->before = [&](const std::string& statement) {
                if (statement == "BEGIN") window.pharmacy->run(test.meanwhile);
            };
            window.save();
            EXPECT_EQ(window.box(), test.otherDelivery ? savedWithPrice : saved);
            EXPECT_EQ(window.pharmacy->value(orders + "1"), test.stored);
            EXPECT_EQ(window.balance.txtUsableStock.text(), test.otherDelivery ? "" : "old");
            EXPECT_FALSE(window.editing() || window.detail.state.ssrCBJmUpdate.visible());
        });
        ASSERT_EQ(window.page.updates.size(), test.otherDelivery ? 1U : 0U);
        for (const auto& asked : window.page.updates) {
            EXPECT_EQ(asked.doctorKey + asked.orderKey + asked.value5 + asked.value8 + asked.besongMethod +
                          asked.besongZip + asked.besongJuso + asked.payMethod,
                      "12306002강남 21");
        }
    }
}

TEST(OrderModification, APriceThatCannotBeHadStoresNothing) {
    struct Case {
        const char *address, *answer, *fault, *told;
    };
    const std::string ofANewOrder = testing::CostPage::priced(1000);
    const Case cases[] = {
        {" ", "", "", "처방전 수정: 처방전 수정 ASP URL을 찾을 수 없습니다."},
        {"u", "<h1>500</h1>", "", "처방전수정: <h1>500</h1>"},
        {"u", "[START]1/*/", "", "처방전 수정: 비용계산 서버 웹페이지 오류([END] 문자열 찾기 실패)"},
        {"u", "[START]1[END]", "", "처방전 수정: 비용계산 서버 웹페이지 오류(/*/ 문자열 찾기 실패)"},
        {"u", "[START]0/*/no[END]", "", "처방전 수정: 비용계산 실패(0/*/no)"},
        {"u", "", "끊겼습니다.", "처방전 비용확인 에러: 끊겼습니다."},
        {"u", ofANewOrder.c_str(), "",
         "처방전 비용확인 에러: 비용계산 서버의 답변에 빠진 항목이 있습니다. (15개 중 13개)"},
    };
    for (const Case& test : cases) {
        Modifying window;
        window.price.lblCBJcostUpAspURL.setCaption(test.address);
        window.page.answer = test.answer;
        if (*test.fault) window.page.fault = test.fault;
        const std::string before = window.stored();
        window.run([&] {
            window.edit(true);
            window.save();
            EXPECT_EQ(window.box(), test.told);
            EXPECT_FALSE(window.editing());
            EXPECT_EQ(window.says({"cboCBJmBesongMethod"}), "택배(환자)");
        });
        EXPECT_EQ(window.stored(), before);
    }
}

/// Each call of a change fails in turn: nothing is written, it is told, and the panel is not half edited.
TEST(OrderModification, EveryFailedStatementLeavesTheOrderAsItWas) {
    struct Change {
        const char* button;
        bool otherDelivery;
        int reads,
            calls;  ///< of the state; then begin, order, [notes, mileage's row,] mileage, sheet, commit
        const char *caption, *refused;
    };
    const char* notStored = "처방전수정: 처방전수정 실패. [한약국으로 직접 연락] 바랍니다.";
    const Change changes[] = {{editSwitch, false, 1, 1, "처방전수정", ""},
                              {saveButton, false, 2, 6, "처방전수정", notStored},
                              {saveButton, true, 2, 9, "처방전수정", notStored},
                              {cancelButton, false, 1, 5, "처방전취소",
                               "처방전 취소: [처방전 취소] 실패. (한약국 서버 연결 확인)"}};
    for (const Change& change : changes) {
        for (int failing = 1; failing <= change.calls; ++failing) {
            SCOPED_TRACE(std::string(change.button) + " failing at " + std::to_string(failing));
            Modifying window;
            const std::string before = window.stored();
            window.run([&] {
                window.listAll();
                const std::string costs = testing::rowsOf(window.detail.costs.m_xaCBJmCost, 0);
                const bool saving = change.button == saveButton, unread = failing <= change.reads;
                if (saving) window.edit(change.otherDelivery);
                window.line->failAt(failing);
                EXPECT_EQ(
                    window.told(change.button),
                    unread ? std::string(change.caption) + ": 처방전의 진행상태 항목을 가져오는 중 에러 발생."
                           : change.refused);
                EXPECT_EQ(window.stored() + window.listed(), before + "1:2 2:1 ");
                EXPECT_EQ(window.editing(), saving && unread) << "there, what was typed stays";
                EXPECT_EQ(window.detail.state.sschkCBJmUpdate.value(), window.editing());
                EXPECT_TRUE(window.detail.state.ssrCBJmCancel.visible());
                EXPECT_EQ(testing::rowsOf(window.detail.costs.m_xaCBJmCost, 0), costs)
                    << "no price of the page";
            });
        }
    }
}

/// The pharmacy begins before each call: until the last look at the state that is seen, and nothing is
/// written.
TEST(OrderModification, ThePharmacyMovesTheOrderOnAtAnyMoment) {
    for (const char* move :
         {"UPDATE t_ChubangJun SET CBJ_State = 1", "UPDATE t_ChubangJun SET CBJ_IsCanceled = 1",
          "DELETE FROM t_ChubangJun WHERE CBJ_PK = 2"}) {
        for (const char* button : {editSwitch, saveButton, "the page", cancelButton}) {
            SCOPED_TRACE(std::string(move) + " before " + button);
            Modifying window;
            window.run([&] {
                const bool asking = std::string_view(button) == "the page", saving = button == saveButton;
                saving || asking ? window.edit(true) : window.listAll();
                if (!asking) window.pharmacy->run(move);
                window.page.whileAsked = [&] { window.pharmacy->run(move); };
                EXPECT_EQ(window.told(asking ? saveButton : button),
                          std::string(button == cancelButton ? "처방전취소" : "처방전수정") +
                              ": 선택하신 처방전은 대기상태가 아닙니다. [한약국으로 직접 연락] 바랍니다.");
                EXPECT_FALSE(window.editing() || window.detail.state.sschkCBJmUpdate.visible() ||
                             window.detail.state.ssrCBJmCancel.visible() || window.detail.state.waiting());
                EXPECT_EQ(window.search.tdbCBJ.rowCount(), 2);
            });
            EXPECT_EQ(window.pharmacy->value(orders + "1").find("오'닐"), std::string::npos);
        }
    }
}

/// The list's row changes before any call and while the page is asked: the order that was edited is stored
/// with its own values, the other one is shown whole.
TEST(OrderModification, ARowChangeMeanwhileWritesNoMixture) {
    for (int moment = 0; moment <= 9; ++moment) {
        SCOPED_TRACE(moment);
        Modifying window;
        window.run([&] {
            window.edit(true);
            const auto move = [&] { window.search.tdbCBJ.setCurrentRow(1); };
            if (moment == 0) window.page.whileAsked = move;
            window.line->before = [&, left = moment](const std::string&) mutable {
                if (left > 0 && --left == 0) move();
            };
            window.save();
            window.line->before = [](const std::string&) {};
            EXPECT_EQ(window.box(), savedWithPrice);
            EXPECT_EQ(window.detail.shownKey(), 1);
            EXPECT_EQ(window.says({"txtCBJmPatientName"}), "환자1");
        });
        EXPECT_EQ(window.pharmacy->value(orders + "0"),
                  "환자131 2 1900-01-01 4000택배-1 1000 0 50001우리 1," + changed);
    }
}

TEST(OrderModification, WhatStandsInTheWayIsToldAndNothingIsWritten) {
    struct Case {
        std::function<void(Modifying&)> before;
        const char *told, *button = nullptr;  ///< without one: both
        bool typedStays = true;
    };
    const auto aged = [](const char* age) {
        return [age](Modifying& window) { window.detail.patient.txtCBJmAge.setText(age); };
    };
    const char *again = "처방전을 다시 선택해 주십시오.[처방전PK 선택 에러]",
               *number = "[나이]를 숫자로 입력해 주십시오.";
    const Case cases[] = {
        {[](Modifying& window) { window.session.m_DTRPK = 0; }, "로그인 후에 사용하십시오.(m_DTRPK = 0)"},
        {[](Modifying& window) { window.search.forget(); }, again},
        {[](Modifying& window) {
             window.search.m_xaCBJ.deleteRows(0);  // the edited order left the list
             window.search.tdbCBJ.refresh();
         },
         again, nullptr, false},
        {aged("45세"), number, saveButton},
        {aged("40000"), number, saveButton},
        {aged("-1"), number, saveButton},
        {&Modifying::knowLengths,
         "[복용법 한의원명] 내용이 저장할 수 있는 길이보다 2자 깁니다. 줄여서 입력해 주십시오.", saveButton}};
    for (const Case& test : cases) {
        for (const char* button : {saveButton, cancelButton}) {
            if (test.button && test.button != button) continue;
            Modifying window;
            const std::string before = window.stored();
            window.run([&] {
                window.edit(true);
                test.before(window);
                dynamic_cast<screen::TwoStateButton&>(*window.form.field(button)).setValue(true);
                EXPECT_EQ(window.box(),
                          (button == saveButton ? "처방전수정: " : "처방전 취소: ") + std::string(test.told));
                EXPECT_EQ(window.says({"txtCBJmPatientName"}), test.typedStays ? " 오'닐 " : "환자1");
                EXPECT_EQ(window.editing(), test.typedStays);
            });
            EXPECT_EQ(window.stored(), before);
        }
    }
}

/// A change whose commit got no answer: another connection is asked, and what it says, or that there is none,
/// is told.
TEST(OrderModification, AChangeWithoutAnAnswerIsAskedAfter) {
    const std::string unread = "처방전관리: 처방전상세정보 읽는 중 에러 발생";
    for (int i = 0; i < 8; ++i) {
        const bool canceling = i & 1, stands = i & 2, answers = i & 4;
        SCOPED_TRACE(i);
        Modifying window;
        window.line->another = [&]() -> std::unique_ptr<data::Connection> {
            if (!answers) throw basics::Fault("nobody there");
            auto other = std::make_unique<testing::FaultyConnection>(window.pharmacy->connect());
            other->before = [](const std::string& question) {
                if (question.find("CBJ_Msg = ") != std::string::npos)
                    throw basics::Fault("text and varchar are incompatible in the equal to operator");
            };
            return other;
        };
        window.run([&] {
            canceling ? window.listAll() : window.edit(true);
            window.balance.txtUsableStock.setText("old");
            if (stands) window.line->nextCommit = data::CommitOutcome::Unknown;
            window.line->staysBroken = true;
            window.line->failAt(stands ? 0 : canceling ? 5 : 9);
            const std::string told = window.told(canceling ? cancelButton : saveButton);
            EXPECT_EQ(told.find("성공") != std::string::npos, answers && stands) << told;
            EXPECT_EQ(told.find("실패") != std::string::npos, answers && !stands) << told;
            EXPECT_EQ(told.find("ZELVO를 다시 시작") != std::string::npos, !answers && !stands)
                << "nothing can be looked up over a line that is gone";
            EXPECT_EQ(window.balance.txtUsableStock.text(), answers && !stands ? "old" : "");
            if (!stands && !(canceling && answers)) {
                EXPECT_EQ(window.box(), unread) << "the line is gone";
            }
        });
        EXPECT_EQ(window.pharmacy->value(orders + "1"), !stands ? untouched : canceling ? canceled : changed);
    }
}

/// Killed before each call of the two units of work, and behind them: whole or nothing.
TEST(OrderModification, AKillLeavesAllOrNothing) {
    if (!testing::canDie()) GTEST_SKIP();
    for (const bool canceling : {false, true}) {
        const int calls = canceling ? 5 : 9;
        for (int at = 1; at <= calls + 1; ++at) {
            SCOPED_TRACE((canceling ? "cancel, " : "modification, ") + std::to_string(at));
            const auto pharmacy = Modifying::fresh();
            ASSERT_TRUE(testing::diesIn([&] {
                Modifying window(pharmacy);
                window.desktop.answer(screen::Answer::Yes);
                window.desktop.onBox = [](const screen::MessageBox& box) {
                    if (box.icon != screen::BoxIcon::Question) testing::die();
                };
                window.run([&] {
                    canceling ? window.listAll() : window.edit(true);
                    testing::dieAt(*window.line, at);
                    window.user.press(canceling ? cancelButton : saveButton);
                });
            }));
            EXPECT_EQ(pharmacy->value(orders + "1"), at <= calls ? untouched
                                                     : canceling ? canceled
                                                                 : changed);
        }
    }
}

}  // namespace
}  // namespace zelvo::management
