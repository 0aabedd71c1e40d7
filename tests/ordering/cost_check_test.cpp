#include "ordering/CostCheck.h"

#include "composition/OrderDesk.h"

namespace zelvo::ordering {
namespace {

using Input = CostInput;
using testing::addRows;

const std::string whole = "herbs, decoction";
const std::string name = "[환자명]을 입력해 주십시오.", doctor = "[한의사명]을 입력해 주십시오.";
const std::string tel = "배송 연락처 [환자 핸드폰 또는 전화번호] 중 적어도 하나 입력해 주십시오.";
const std::string call = "발송 연락처 [한의사 핸드폰 또는 한의원 전화번호] 중 적어도 하나 입력해 주십시오.";
const std::string herb = "약재정보 필수항목 [약재구성, 첩수, 약재가격] 오류 또는 누락.";
const std::string pouch = "탕전정보 필수항목 [탕전방식, 용량, 파우치] 오류 또는 누락.";
const std::string toClinic = "한의원", courier = "퀵(환자)", parcel = "택배(환자)";

CheckResult check(testing::TestDesktop& desktop, const Input& input, const std::string& sections) {
    const auto has = [&](const char* word) { return sections.find(word) != std::string::npos; };
    tables::XArrayDB jobs, herbs, methods;
    jobs.reDim(0, 6);
    jobs.set(0, 0, !has("none chosen"));
    jobs.set(0, 5, has("herbs"));
    jobs.set(0, 6, has("decoction"));
    herbs.reDim(-1, 10);
    if (!has("no lines")) addRows(herbs, 4, "4|25.5|102|1|0\n3|1,000|3,000|2|0");
    if (has("faulty")) addRows(herbs, 4, "4|25.5|102|3|-1");
    if (has("unchecked")) addRows(herbs, 4, "||||");
    if (has("negative")) addRows(herbs, 4, "-4|25.5|-102|3|0");
    methods.reDim(1, 2);
    methods.set(1, 0, !has("no method"));
    return Check_CostInput(desktop, input, jobs, herbs, methods);
}

/// An order with everything in it, from which a case takes away.
Input wholeOrder(const std::string& delivery) {
    return {"김환자", "",     "02-1", delivery, "06000", "서울", "이한의", "010-1", "",
            "03000",  "종로", "20",   "12,500", "100",   "21",   "",       "적립"};
}

TEST(CostCheck, TheFirstFaultIsShown) {
    using enum CheckResult;
    // One field of a whole order becomes `text`.
    const struct {
        std::string Input::*field;
        std::string text, method, sections;
        CheckResult result;
        std::string message = "";
    } cases[] = {
        {&Input::CBJmsg, "", parcel, whole, Passed},
        {&Input::PatientName, "  ", parcel, whole, Patient, name},
        {&Input::PatientTel, " ", toClinic, whole, Patient, tel},
        {&Input::BesongZip, "", parcel, whole, Patient, "[배송주소의 우편번호]를 입력해 주십시오."},
        {&Input::BesongJuso, "", courier, whole, Patient, "[배송주소]를 입력해 주십시오."},
        {&Input::BesongZip, "", toClinic, whole, Passed},
        {&Input::BalsongZip, "", parcel, whole, Sender, "[발송주소의 우편번호]를 입력해 주십시오."},
        {&Input::BalsongJuso, "", parcel, whole, Sender, "[발송주소]를 입력해 주십시오."},
        {&Input::Doctor, "", toClinic, whole, Sender, doctor},
        {&Input::DoctorCell, "", toClinic, whole, Sender, call},
        {&Input::CBJmsg, "", parcel, "none chosen", OrderType, "[처방전 주문서 정보]를 선택해 주십시오."},
        {&Input::CBJmsg, "", parcel, "herbs, no lines", Herbs, herb},
        {&Input::CBJmsg, "", parcel, "herbs, unchecked", Herbs, herb},
        {&Input::CBJmsg, "", parcel, "herbs, negative", Herbs, herb},
        {&Input::Chubsu, "2x", parcel, whole, Herbs, herb},
        {&Input::DrugPrice, "12,5O0", parcel, whole, Herbs, herb},
        {&Input::CBJmsg, "", parcel, "decoction, no method", Decoction, pouch},
        {&Input::PouchAmount, "", parcel, whole, Decoction, pouch},
        {&Input::PouchTotal, "0", parcel, whole, Decoction, pouch},
        {&Input::PouchTotal, "", parcel, "herbs", Passed},
        {&Input::Chubsu, "", parcel, "decoction, no lines", Passed},
        {&Input::CBJmsg, "파스", parcel, "no lines", Passed},
        {&Input::PaymentMethod, "", parcel, whole, PayMethod, "지불방식이 지정 되지 않았습니다."},
        {&Input::PaymentMethod, "", parcel, "herbs, faulty", Herbs, herb},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE("\"" + test.text + "\" " + test.method + " " + test.sections + " " + test.message);
        testing::TestDesktop desktop;
        Input input = wholeOrder(test.method);
        input.*test.field = test.text;
        EXPECT_EQ(check(desktop, input, test.sections), test.result);
        if (!test.message.empty()) desktop.expectBox("처방전 비용확인", test.message);
    }
}

}  // namespace
}  // namespace zelvo::ordering
