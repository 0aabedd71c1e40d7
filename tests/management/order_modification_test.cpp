#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "support/ManagementWindow.h"

namespace zelvo::management {
namespace {

using screen::BoxIcon;
using testing::ManagementWindow;
using Box = std::pair<std::string, std::string>;

const Box saved = {"처방전수정", "처방전 수정 성공!"},
          savedWithPrice = {"처방전수정", "처방전 수정 성공! [처방전비용 변경됨]"},
          refused = {"처방전수정", "처방전수정 실패. [한약국으로 직접 연락] 바랍니다."},
          movedOn = {"처방전수정", "선택하신 처방전은 대기상태가 아닙니다. [한약국으로 직접 연락] 바랍니다."},
          unreadable = {"처방전수정", "처방전의 진행상태 항목을 가져오는 중 에러 발생."};
const std::string orderTexts =
    "SELECT Patient_Name, Patient_Sex, Patient_Age, CBJ_Reci_Tel, CBJ_BesongMethod, CBJ_Reci_Date, CBJ_Send_Name,"
    " CBJ_Msg, CBJ_BesongCost, CBJ_ElseCost, CBJ_VATCost FROM t_ChubangJun WHERE CBJ_PK = 2";

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
        if (otherDelivery) user.choose("cboCBJmBesongMethod", "퀵(환자)");
        line->statements.clear();
    }
    void save() { user.press("ssrCBJmUpdate"); }
    Box box() {
        const screen::MessageBox shown = desktop.takeBox();
        return {shown.caption, shown.text};
    }
    bool editing() const { return detail.frames.c1eCBJm3.enabled(); }
};

TEST(OrderModification, StoresWhatIsTypedAndAsksAPriceForAnotherDeliveryOnly) {
    struct Case {
        bool otherDelivery;
        std::vector<std::string> stored;
        const char* mileage;
        Box told;
    };
    const Case cases[] = {
        {false,
         {"오'닐", "0", "32", "02-800-0002", "2", "1900-01-01", "이한의2", "새 메세지", "4000", "-2", "1000"},
         "500",
         saved},
        {true,
         {"오'닐", "0", "32", "02-800-0002", "3", "1900-01-01", "이한의2", "새 메세지", "9000", "0", "1000"},
         "77",
         savedWithPrice}};
    for (const Case& test : cases) {
        Modifying window;
        window.run([&] {
            window.edit(test.otherDelivery);
            window.balance.txtUsableStock.setText("old");
            window.save();
            EXPECT_EQ(window.box(), test.told);
            EXPECT_EQ(window.pharmacy->rows(orderTexts).front(), test.stored);
            EXPECT_EQ(window.pharmacy->value("SELECT STK_Money FROM t_Stock WHERE CBJ_PK = 2"), test.mileage);
            EXPECT_EQ(window.page.updates.size(), test.otherDelivery ? 1U : 0U);
            EXPECT_EQ(window.balance.txtUsableStock.text(), test.otherDelivery ? "" : "old");
            EXPECT_FALSE(window.editing() || window.detail.state.ssrCBJmUpdate.visible());
            EXPECT_EQ(window.say("txtCBJmPatientName"), "오'닐");
        });
        if (!test.otherDelivery) continue;
        const screen::OrderCostText::UpdateRequest& asked = window.page.updates.front();
        EXPECT_EQ(asked.doctorKey + asked.orderKey + asked.value5 + asked.value8 + asked.besongMethod +
                      asked.besongZip + asked.besongJuso + asked.payMethod,
                  "12306002강남 21");
        EXPECT_EQ(window.pharmacy->value("SELECT CCD_BesongCost FROM t_CBJcostDetail WHERE CBJ_PK = 2"),
                  "note 9\r\nmore");
    }
}

TEST(OrderModification, DatesAndMileageAreWhatTheOrderHasOrGets) {
    struct Case {
        const char *name, *before, *date;
        bool chosen;
        int mileage;
        const char *storedDate, *storedMileage;
    };
    const Case cases[] = {
        {"no date stays none", "", "1900-01-01", false, 0, "1900-01-01", "0"},
        {"a date stays", "", "2030-01-02", false, 5, "2030-01-02", "5"},
        {"a date is chosen", "DELETE FROM t_Stock;", "1900-01-01", true, 0, "2031-03-04", ""},
        {"first mileage", "DELETE FROM t_Stock;", "2030-01-02", true, 9, "2031-03-04", "9"}};
    for (const Case& test : cases) {
        SCOPED_TRACE(test.name);
        Modifying window;
        window.pharmacy->run(std::string(test.before) + "UPDATE t_ChubangJun SET CBJ_Reci_Date = '" +
                             test.date + "'");
        window.page.answer = priced(test.mileage);
        window.run([&] {
            window.edit(true);
            EXPECT_FALSE(window.detail.patient.dtpCBJmBesongDate.enabled());
            if (std::string(test.date) != "1900-01-01") {
                EXPECT_EQ(window.detail.patient.dtpCBJmBesongDate.text(), test.date);
            }
            if (test.chosen) {
                window.user.check("chkCBJmBesongDate", true);
                window.user.date("dtpCBJmBesongDate", "2031-03-04");
            }
            window.save();
            EXPECT_EQ(window.box(), savedWithPrice);
        });
        EXPECT_EQ(window.pharmacy->value("SELECT CBJ_Reci_Date FROM t_ChubangJun WHERE CBJ_PK = 2"),
                  test.storedDate);
        EXPECT_EQ(window.pharmacy->value("SELECT STK_Money FROM t_Stock WHERE CBJ_PK = 2"),
                  test.storedMileage);
    }
}

TEST(OrderModification, APriceThatCannotBeHadStoresNothing) {
    struct Case {
        const char *name, *address, *answer, *fault;
        Box told;
    };
    const Case cases[] = {
        {"no address", " ", "", "", {"처방전 수정", "처방전 수정 ASP URL을 찾을 수 없습니다."}},
        {"no start", "u", "<h1>500</h1>", "", {"처방전수정", "<h1>500</h1>"}},
        {"no end",
         "u",
         "[START]1/*/",
         "",
         {"처방전 수정", "비용계산 서버 웹페이지 오류([END] 문자열 찾기 실패)"}},
        {"no parts",
         "u",
         "[START]1[END]",
         "",
         {"처방전 수정", "비용계산 서버 웹페이지 오류(/*/ 문자열 찾기 실패)"}},
        {"refused", "u", "[START]0/*/no[END]", "", {"처방전 수정", "비용계산 실패(0/*/no)"}},
        {"fault", "u", "", "끊겼습니다.", {"처방전 비용확인 에러", "끊겼습니다."}},
        {"an answer for a new order", "u", "", "", {"처방전 비용확인 에러", ""}},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.name);
        Modifying window;
        window.price.lblCBJcostUpAspURL.setCaption(test.address);
        window.page.answer = *test.answer ? test.answer : testing::CostPage::priced(1000);
        if (*test.fault) window.page.fault = test.fault;
        const std::string before = window.stored();
        window.run([&] {
            window.edit(true);
            window.save();
            const Box told = window.box();
            EXPECT_EQ(told.first, test.told.first);
            if (!test.told.second.empty()) {
                EXPECT_EQ(told.second, test.told.second);
            }
            EXPECT_FALSE(window.editing());
            EXPECT_EQ(window.say("cboCBJmBesongMethod"), "택배(환자)");
        });
        EXPECT_EQ(window.stored(), before);
    }
}

/// Each call of a modification fails in turn: nothing is written, it is told, and the panel is not half
/// edited.
TEST(OrderModification, EveryFailedStatementLeavesTheOrderAsItWas) {
    for (const bool otherDelivery : {false, true}) {
        // Two reads of the state; begin, order, [notes, mileage's row, mileage,] sheet, commit.
        const int calls = otherDelivery ? 9 : 6;
        for (int failing = 1; failing <= calls; ++failing) {
            SCOPED_TRACE(std::to_string(otherDelivery) + " failing at " + std::to_string(failing));
            Modifying window;
            const std::string before = window.stored();
            window.run([&] {
                window.edit(otherDelivery);
                window.line->failAt(failing);
                window.save();
                EXPECT_EQ(window.box(), failing <= 2 ? unreadable : refused);
                EXPECT_EQ(window.stored(), before);
                EXPECT_EQ(window.editing(), failing <= 2)
                    << "what was typed stays where the state can't be read";
                EXPECT_EQ(window.desktop.pointer(), screen::Pointer::Normal);
            });
        }
    }
}

/// The pharmacy begins before each call: until the last look at the state that is seen, and nothing is
/// written.
TEST(OrderModification, ThePharmacyMovesTheOrderOnAtAnyMoment) {
    const char* moves[] = {"UPDATE t_ChubangJun SET CBJ_State = 1",
                           "UPDATE t_ChubangJun SET CBJ_IsCanceled = 1",
                           "DELETE FROM t_ChubangJun WHERE CBJ_PK = 2"};
    for (const char* move : moves) {
        for (int moment = 0; moment <= 2; ++moment) {
            SCOPED_TRACE(std::string(move) + " at " + std::to_string(moment));
            Modifying window;
            window.run([&] {
                if (moment == 0) {
                    window.listAll();
                    window.pharmacy->run(move);
                    window.user.focus("sschkCBJmUpdate");
                    window.detail.state.sschkCBJmUpdate.userClick();
                } else {
                    window.edit(true);
                    if (moment == 1) window.pharmacy->run(move);
                    window.page.whileAsked = [&] { window.pharmacy->run(move); };
                    window.save();
                }
                EXPECT_EQ(window.box(), movedOn);
                EXPECT_FALSE(window.editing() || window.detail.state.sschkCBJmUpdate.visible() ||
                             window.detail.state.picCBJstate[0].visible());
            });
            EXPECT_EQ(
                window.pharmacy->value("SELECT count(*) FROM t_ChubangJun WHERE Patient_Name = '오''닐'"),
                "0");
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
            EXPECT_EQ(window.say("txtCBJmPatientName"), "환자1");
        });
        EXPECT_EQ(
            window.pharmacy->value("SELECT group_concat(Patient_Name || CBJ_BesongCost) FROM t_ChubangJun"),
            "환자14000,오'닐9000");
    }
}

TEST(OrderModification, AnotherOrderInTheListIsShownAndNothingElseHappens) {
    Modifying window;
    const std::string before = window.stored();
    window.run([&] {
        window.edit(false);
        window.search.m_xaCBJ.deleteRows(0);  // the edited order left the list
        window.search.tdbCBJ.refresh();
        EXPECT_EQ(window.detail.shownKey(), 2);
        window.save();
        EXPECT_EQ(window.detail.shownKey(), 1);
        EXPECT_FALSE(window.editing());
        window.search.txtCBJsearchPatient.setText("nobody");
        window.user.check("sschkCBJmUpdate", true);
        window.search.sscCBJsearchPatient.onPress();
        window.save();
        EXPECT_FALSE(window.editing());
        EXPECT_EQ(window.say("txtCBJmPatientName"), "") << "its order is not in the list any more";
    });
    EXPECT_EQ(window.stored(), before);
}

TEST(OrderModification, UncheckingDropsWhatWasTyped) {
    Modifying window;
    window.run([&] {
        window.edit(true);
        window.user.check("sschkCBJmUpdate", false);
        EXPECT_FALSE(window.editing());
        EXPECT_EQ(window.say("txtCBJmPatientName") + window.say("cboCBJmBesongMethod"), "환자2택배(환자)");
        window.line->failAt(1);
        window.detail.state.sschkCBJmUpdate.userClick();
        EXPECT_EQ(window.box(), unreadable);
        EXPECT_FALSE(window.editing() || window.detail.state.sschkCBJmUpdate.value());
    });
}

TEST(OrderModification, ANurseActsForTheOrdersDoctor) {
    Modifying window;
    window.pharmacy->run("UPDATE t_ChubangJun SET DTR_PK = 2; DELETE FROM t_Stock");
    window.session.m_IsNurse = true;
    window.session.m_DTRPK = 0;
    window.search.cbodtrList.addEntry("2/최한의");
    window.run([&] {
        window.edit(true);
        window.save();
        EXPECT_EQ(window.box(), savedWithPrice);
    });
    EXPECT_EQ(window.session.m_DTRPK, 2);
    EXPECT_EQ(window.page.updates.front().doctorKey, "2");
    EXPECT_EQ(window.pharmacy->value("SELECT DTR_PK || ' ' || CBJ_PK || ' ' || STK_Money FROM t_Stock"),
              "2 2 77");
}

/// Killed before each call of the two units of work: whole or nothing.
TEST(OrderModification, AKillLeavesAllOrNothing) {
    constexpr int saveCalls = 9, cancelCalls = 5;
    for (const bool canceling : {false, true}) {
        const int calls = canceling ? cancelCalls : saveCalls;
        const auto act = [&](const std::shared_ptr<testing::OrderPharmacy>& pharmacy, int at) {
            Modifying window(pharmacy);
            window.desktop.answer(screen::Answer::Yes);
            window.desktop.onBox = [&](const screen::MessageBox& box) {
                if (box.icon != BoxIcon::Question) ::kill(::getpid(), SIGKILL);
            };
            window.run([&] {
                canceling ? window.listAll() : window.edit(true);
                window.line->before = [&, left = at](const std::string&) mutable {
                    if (--left == 0) ::kill(::getpid(), SIGKILL);
                };
                window.user.press(canceling ? "ssrCBJmCancel" : "ssrCBJmUpdate");
            });
        };
        for (int at = 1; at <= calls + 1; ++at) {
            SCOPED_TRACE((canceling ? "cancel, " : "modification, ") + std::to_string(at));
            const auto pharmacy = Modifying::fresh();
            const pid_t child = ::fork();
            if (child == 0) {
                act(pharmacy, at);
                ::_exit(0);
            }
            int status = 0;
            ::waitpid(child, &status, 0);
            ASSERT_TRUE(WIFSIGNALED(status));
            const std::string whole = canceling ? "환자24000 1 1 500" : "오'닐9000 0 0 77";
            EXPECT_EQ(
                pharmacy->value(
                    "SELECT Patient_Name || CBJ_BesongCost || ' ' || a.CBJ_IsCanceled || ' ' || b.CBJ_IsCanceled"
                    " || ' ' || STK_Money FROM t_ChubangJun a, t_Stock b WHERE a.CBJ_PK = 2 AND b.CBJ_PK = 2"),
                at <= calls ? "환자24000 0 0 500" : whole);
        }
    }
}

}  // namespace
}  // namespace zelvo::management
