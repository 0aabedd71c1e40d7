#include "ordering/CostCheck.h"

#include "support/TestDesktop.h"

namespace zelvo::ordering {
namespace {

using Input = CostInput;

/// An order with everything in it, from which a case takes away.
struct Order {
    Input input{"김환자", "",     "02-1", "택배(환자)", "06000", "서울", "이한의", "010-1", "",
                "03000",  "종로", "20",   "12,500",     "100",   "21",   "",       "적립"};
    tables::XArrayDB jobs, herbs, methods;
    explicit Order(const std::string& sections) {
        jobs.reDim(0, 6);
        jobs.set(0, 0, sections != "none chosen");
        jobs.set(0, 5, sections.find("herbs") != std::string::npos);
        jobs.set(0, 6, sections.find("decoction") != std::string::npos);
        herbs.reDim(sections.find("no lines") != std::string::npos ? -1 : 1, 10);
        if (!herbs.empty()) herbs.set(1, 8, sections.find("faulty") != std::string::npos ? "-1" : "0");
        methods.reDim(1, 2);
        methods.set(1, 0, sections.find("no method") == std::string::npos);
    }
    CheckResult check(testing::TestDesktop& desktop) const {
        return Check_CostInput(desktop, input, jobs, herbs, methods);
    }
};

const std::string whole = "herbs, decoction";
const std::string name = "[환자명]을 입력해 주십시오.", doctor = "[한의사명]을 입력해 주십시오.";
const std::string tel = "배송 연락처 [환자 핸드폰 또는 전화번호] 중 적어도 하나 입력해 주십시오.";
const std::string call = "발송 연락처 [한의사 핸드폰 또는 한의원 전화번호] 중 적어도 하나 입력해 주십시오.";
const std::string herb = "약재정보 필수항목 [약재구성, 첩수, 약재가격] 오류 또는 누락.";
const std::string pouch = "탕전정보 필수항목 [탕전방식, 용량, 파우치] 오류 또는 누락.";
const std::string toClinic = "한의원", courier = "퀵(환자)", parcel = "택배(환자)";

/// One field of a whole order becomes `text`.
const struct {
    std::string Input::*field;
    std::string text, method, sections;
    CheckResult result;
    std::string message;
} cases[] = {
    {&Input::CBJmsg, "", parcel, whole, CheckResult::Passed, ""},
    {&Input::PatientName, "  ", parcel, whole, CheckResult::Patient, name},
    {&Input::PatientTel, " ", toClinic, whole, CheckResult::Patient, tel},
    {&Input::BesongZip, "", parcel, whole, CheckResult::Patient, "[배송주소의 우편번호]를 입력해 주십시오."},
    {&Input::BesongJuso, "", courier, whole, CheckResult::Patient, "[배송주소]를 입력해 주십시오."},
    {&Input::Doctor, "", courier, whole, CheckResult::Sender, doctor},
    {&Input::BalsongZip, "", parcel, whole, CheckResult::Sender, "[발송주소의 우편번호]를 입력해 주십시오."},
    {&Input::BalsongJuso, "", parcel, whole, CheckResult::Sender, "[발송주소]를 입력해 주십시오."},
    {&Input::DoctorCell, "", parcel, whole, CheckResult::Sender, call},
    {&Input::Doctor, "", toClinic, whole, CheckResult::Sender, doctor},
    {&Input::DoctorCell, "", toClinic, whole, CheckResult::Sender, call},
    {&Input::BesongZip, "", toClinic, whole, CheckResult::Passed, ""},
    {&Input::CBJmsg, "", parcel, "none chosen", CheckResult::OrderType,
     "[처방전 주문서 정보]를 선택해 주십시오."},
    {&Input::CBJmsg, "", parcel, "herbs, no lines", CheckResult::Herbs, herb},
    {&Input::CBJmsg, "", parcel, "herbs, faulty", CheckResult::Herbs, herb},
    {&Input::Chubsu, "2x", parcel, whole, CheckResult::Herbs, herb},
    {&Input::DrugPrice, "12,5O0", parcel, whole, CheckResult::Herbs, herb},
    {&Input::CBJmsg, "", parcel, "decoction, no method", CheckResult::Decoction, pouch},
    {&Input::PouchAmount, "", parcel, whole, CheckResult::Decoction, pouch},
    {&Input::PouchTotal, "x", parcel, whole, CheckResult::Decoction, pouch},
    {&Input::PouchTotal, "", parcel, "herbs", CheckResult::Passed, ""},
    {&Input::Chubsu, "", parcel, "decoction, no lines", CheckResult::Passed, ""},
    {&Input::CBJmsg, " ", parcel, "", CheckResult::Message,
     "기타구입에 대한 내용을 [처방 메시지에 입력]해 주십시오."},
    {&Input::CBJmsg, "파스", parcel, "no lines", CheckResult::Passed, ""},
    {&Input::PaymentMethod, "", parcel, whole, CheckResult::PayMethod, "지불방식이 지정 되지 않았습니다."},
    {&Input::PaymentMethod, "", parcel, "herbs, faulty", CheckResult::Herbs, herb},
};

TEST(CostCheck, TheFirstFaultIsShown) {
    for (const auto& test : cases) {
        SCOPED_TRACE("\"" + test.text + "\" " + test.method + " " + test.sections + " " + test.message);
        testing::TestDesktop desktop;
        Order order(test.sections);
        order.input.BesongMethod = test.method;
        order.input.*test.field = test.text;
        EXPECT_EQ(order.check(desktop), test.result);
        if (!test.message.empty()) desktop.expectBox("처방전 비용확인", test.message);
    }
}

TEST(CostCheck, UndecidedDeliveryIsAsked) {
    testing::TestDesktop desktop;
    Order order(whole);
    order.input.BesongMethod = "미정";
    order.input.BesongZip = "";
    EXPECT_EQ(order.check(desktop), CheckResult::Passed) << "Yes is the default";
    desktop.answer(screen::Answer::No);
    EXPECT_EQ(order.check(desktop), CheckResult::SetDelivery);
    for (int asked = 0; asked < 2; ++asked) {
        desktop.expectQuestion(
            "처방전 비용확인",
            "배송방식이 [미정]입니다. 처방전 전송후에 다시 지정 하시겠습니까?\r\n\r\n예(Y) = "
            "비용확인\r\n\r\n아니오(N) = 배송방식 수정");
    }
}

TEST(CostCheck, AFlagThatIsNoNumberIsAFault) {
    testing::TestDesktop desktop;
    Order order(whole);
    order.jobs.set(0, 5, "x");
    EXPECT_EQ(order.check(desktop), CheckResult::Fault);
    EXPECT_EQ(desktop.takeBox().icon, screen::BoxIcon::Critical);
}

}  // namespace
}  // namespace zelvo::ordering
