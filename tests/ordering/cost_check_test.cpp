#include "ordering/CostCheck.h"

#include "support/TestDesktop.h"

namespace zelvo::ordering {
namespace {

using testing::TestDesktop;

constexpr const char* senderCall =
    "발송 연락처 [한의사 핸드폰 또는 한의원 전화번호] 중 적어도 하나 입력해 주십시오.";
constexpr const char* herbFault = "약재정보 필수항목 [약재구성, 첩수, 약재가격] 오류 또는 누락.";
constexpr const char* decoctionFault = "탕전정보 필수항목 [탕전방식, 용량, 파우치] 오류 또는 누락.";
constexpr const char* undecided =
    "배송방식이 [미정]입니다. 처방전 전송후에 다시 지정 하시겠습니까?\r\n\r\n예(Y) = 비용확인\r\n\r\n아니오(N) = 배송방식 수정";

/// An order with everything in it, from which a case takes away.
struct Order {
    CostInput input{"김환자", "",     "02-1", "택배(환자)", "06000", "서울", "이한의", "010-1", "",
                    "03000",  "종로", "20",   "12,500",     "100",   "21",   "",       "적립"};
    tables::XArrayDB jobs, herbs, methods;
    Order() {
        jobs.reDim(0, 6);
        chooseType(true, true);
        herbs.reDim(1, 10);
        herbs.set(0, 8, "0");
        herbs.set(1, 8, "0");
        methods.reDim(1, 2);
        methods.set(1, 0, true);
    }
    void chooseType(bool hasHerbs, bool hasDecoction) {
        jobs.set(0, 0, true);
        jobs.set(0, 5, hasHerbs);
        jobs.set(0, 6, hasDecoction);
    }
};

struct Case {
    const char* name;
    void (*spoil)(Order&);
    CheckResult result;
    const char* message = nullptr;
};

const Case cases[] = {
    {"nothing wrong", [](Order&) {}, CheckResult::Passed},
    {"name of blanks", [](Order& o) { o.input.PatientName = "  "; }, CheckResult::Patient,
     "[환자명]을 입력해 주십시오."},
    {"no telephone, even to the clinic",
     [](Order& o) {
         o.input.PatientTel = " ";
         o.input.BesongMethod = "한의원";
     },
     CheckResult::Patient, "배송 연락처 [환자 핸드폰 또는 전화번호] 중 적어도 하나 입력해 주십시오."},
    {"no zip", [](Order& o) { o.input.BesongZip = ""; }, CheckResult::Patient,
     "[배송주소의 우편번호]를 입력해 주십시오."},
    {"no address", [](Order& o) { o.input.BesongJuso = ""; }, CheckResult::Patient,
     "[배송주소]를 입력해 주십시오."},
    {"no doctor, courier",
     [](Order& o) {
         o.input.Doctor = "";
         o.input.BesongMethod = "퀵(환자)";
     },
     CheckResult::Sender, "[한의사명]을 입력해 주십시오."},
    {"no sender zip", [](Order& o) { o.input.BalsongZip = ""; }, CheckResult::Sender,
     "[발송주소의 우편번호]를 입력해 주십시오."},
    {"no sender address", [](Order& o) { o.input.BalsongJuso = ""; }, CheckResult::Sender,
     "[발송주소]를 입력해 주십시오."},
    {"no sender call", [](Order& o) { o.input.DoctorCell = ""; }, CheckResult::Sender, senderCall},
    {"to the clinic needs no addresses",
     [](Order& o) {
         o.input.BesongMethod = "한의원";
         o.input.BesongZip = o.input.BalsongZip = o.input.BalsongJuso = "";
     },
     CheckResult::Passed},
    {"to the clinic, no doctor",
     [](Order& o) {
         o.input.BesongMethod = "한의원";
         o.input.Doctor = "";
     },
     CheckResult::Sender, "[한의사명]을 입력해 주십시오."},
    {"to the clinic, no call",
     [](Order& o) {
         o.input.BesongMethod = "한의원";
         o.input.DoctorCell = "";
     },
     CheckResult::Sender, senderCall},
    {"no order type", [](Order& o) { o.jobs.set(0, 0, false); }, CheckResult::OrderType,
     "[처방전 주문서 정보]를 선택해 주십시오."},
    {"no herbs", [](Order& o) { o.herbs.reDim(-1, 10); }, CheckResult::Herbs, herbFault},
    {"a faulty herb", [](Order& o) { o.herbs.set(1, 8, "-1"); }, CheckResult::Herbs, herbFault},
    {"packets no number", [](Order& o) { o.input.Chubsu = "2x"; }, CheckResult::Herbs, herbFault},
    {"price with a letter", [](Order& o) { o.input.DrugPrice = "12,5O0"; }, CheckResult::Herbs, herbFault},
    {"no method", [](Order& o) { o.methods.set(1, 0, false); }, CheckResult::Decoction, decoctionFault},
    {"no pouch amount", [](Order& o) { o.input.PouchAmount = ""; }, CheckResult::Decoction, decoctionFault},
    {"no pouches", [](Order& o) { o.input.PouchTotal = "x"; }, CheckResult::Decoction, decoctionFault},
    {"herbs alone ask for no pouches",
     [](Order& o) {
         o.chooseType(true, false);
         o.input.PouchTotal = "";
     },
     CheckResult::Passed},
    {"decoction alone asks for no packets",
     [](Order& o) {
         o.chooseType(false, true);
         o.input.Chubsu = "";
     },
     CheckResult::Passed},
    {"other purchase without words", [](Order& o) { o.chooseType(false, false); }, CheckResult::Message,
     "기타구입에 대한 내용을 [처방 메시지에 입력]해 주십시오."},
    {"other purchase with words, no herbs",
     [](Order& o) {
         o.chooseType(false, false);
         o.input.CBJmsg = "파스";
         o.herbs.reDim(-1, 10);
     },
     CheckResult::Passed},
    {"no pay method", [](Order& o) { o.input.PaymentMethod = ""; }, CheckResult::PayMethod,
     "지불방식이 지정 되지 않았습니다."},
    {"the earlier of two faults",
     [](Order& o) {
         o.input.PaymentMethod = "";
         o.input.PouchTotal = "";
     },
     CheckResult::Decoction, decoctionFault},
};

TEST(CostCheck, FirstFaultIsShown) {
    for (const Case& test : cases) {
        SCOPED_TRACE(test.name);
        TestDesktop desktop;
        Order order;
        test.spoil(order);
        EXPECT_EQ(Check_CostInput(desktop, order.input, order.jobs, order.herbs, order.methods), test.result);
        if (test.message) desktop.expectBox("처방전 비용확인", test.message);
    }
}

TEST(CostCheck, UndecidedDeliveryIsAsked) {
    for (const auto answer : {screen::Answer::Yes, screen::Answer::No}) {
        TestDesktop desktop;
        Order order;
        order.input.BesongMethod = "미정";
        order.input.BesongZip = "";
        desktop.answer(answer);
        EXPECT_EQ(Check_CostInput(desktop, order.input, order.jobs, order.herbs, order.methods),
                  answer == screen::Answer::Yes ? CheckResult::Passed : CheckResult::SetDelivery);
        EXPECT_EQ(desktop.takeBox().text, undecided);
    }
}

TEST(CostCheck, AFlagThatIsNoNumberIsAFault) {
    TestDesktop desktop;
    Order order;
    order.jobs.set(0, 5, "x");
    EXPECT_EQ(Check_CostInput(desktop, order.input, order.jobs, order.herbs, order.methods),
              CheckResult::Fault);
    const auto box = desktop.takeBox();
    EXPECT_EQ(box.caption, "처방전 비용확인");
    EXPECT_EQ(box.icon, screen::BoxIcon::Critical);
}

}  // namespace
}  // namespace zelvo::ordering
