#include "ordering/CostCheck.h"

#include <optional>

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "composition/modHanYakGuk.h"
#include "data/Words.h"

namespace zelvo::ordering {

using basics::isBlank;
using tables::XArrayDB;

namespace {

namespace herb = composition::herb;
namespace option = composition::option;

constexpr const char* caption = "처방전 비용확인";

struct Finding {
    CheckResult result;
    const char* message;
};
using Checked = std::optional<Finding>;

constexpr const char* noDoctor = "[한의사명]을 입력해 주십시오.";
constexpr const char* noSenderCall =
    "발송 연락처 [한의사 핸드폰 또는 한의원 전화번호] 중 적어도 하나 입력해 주십시오.";

Checked checkPatient(const CostInput& input) {
    if (isBlank(input.PatientName)) return Finding{CheckResult::Patient, "[환자명]을 입력해 주십시오."};
    if (isBlank(input.PatientCell) && isBlank(input.PatientTel)) {
        return Finding{CheckResult::Patient,
                       "배송 연락처 [환자 핸드폰 또는 전화번호] 중 적어도 하나 입력해 주십시오."};
    }
    return {};
}

Checked checkSenderCall(const CostInput& input) {
    if (!isBlank(input.DoctorCell) || !isBlank(input.HospitalTel)) return {};
    return Finding{CheckResult::Sender, noSenderCall};
}

/// The goods go to the patient, the clinic is the sender.
Checked checkToPatient(const CostInput& input) {
    if (isBlank(input.BesongZip))
        return Finding{CheckResult::Patient, "[배송주소의 우편번호]를 입력해 주십시오."};
    if (isBlank(input.BesongJuso)) return Finding{CheckResult::Patient, "[배송주소]를 입력해 주십시오."};
    if (isBlank(input.Doctor)) return Finding{CheckResult::Sender, noDoctor};
    if (isBlank(input.BalsongZip))
        return Finding{CheckResult::Sender, "[발송주소의 우편번호]를 입력해 주십시오."};
    if (isBlank(input.BalsongJuso)) return Finding{CheckResult::Sender, "[발송주소]를 입력해 주십시오."};
    return checkSenderCall(input);
}

Checked checkToClinic(const CostInput& input) {
    if (isBlank(input.Doctor)) return Finding{CheckResult::Sender, noDoctor};
    return checkSenderCall(input);
}

Checked checkDelivery(const CostInput& input) {
    const std::string& method = input.BesongMethod;
    if (method == data::delivery::courier || method == data::delivery::parcel) return checkToPatient(input);
    if (method == data::delivery::clinic) return checkToClinic(input);
    return {};
}

bool herbsAtFault(const CostInput& input, const XArrayDB& herbs) {
    return herbs.empty() || unsoundLine(herbs) >= 0 || !isAboveZero(input.Chubsu) ||
           !isAboveZero(basics::removeAll(input.DrugPrice, ","));
}

bool decoctionAtFault(const CostInput& input, const XArrayDB& methods) {
    return composition::modHanYakGuk::selectedRow(methods) < 0 || !isAboveZero(input.PouchAmount) ||
           !isAboveZero(input.PouchTotal);
}

Checked checkSections(const CostInput& input, const XArrayDB& jobList, const XArrayDB& herbs,
                      const XArrayDB& methods) {
    const int row = composition::modHanYakGuk::selectedRow(jobList);
    if (row < 0) return Finding{CheckResult::OrderType, "[처방전 주문서 정보]를 선택해 주십시오."};
    const bool hasHerbs = jobList.isTrue(row, option::hasHerbs);
    const bool hasDecoction = jobList.isTrue(row, option::hasDecoction);
    if (hasHerbs && herbsAtFault(input, herbs)) {
        return Finding{CheckResult::Herbs, "약재정보 필수항목 [약재구성, 첩수, 약재가격] 오류 또는 누락."};
    }
    if (hasDecoction && decoctionAtFault(input, methods)) {
        return Finding{CheckResult::Decoction, "탕전정보 필수항목 [탕전방식, 용량, 파우치] 오류 또는 누락."};
    }
    if (!hasHerbs && !hasDecoction && isBlank(input.CBJmsg)) {
        return Finding{CheckResult::Message, "기타구입에 대한 내용을 [처방 메시지에 입력]해 주십시오."};
    }
    return {};
}

Checked firstFinding(const CostInput& input, const XArrayDB& jobList, const XArrayDB& herbs,
                     const XArrayDB& methods) {
    if (const Checked found = checkPatient(input)) return found;
    if (const Checked found = checkDelivery(input)) return found;
    if (const Checked found = checkSections(input, jobList, herbs, methods)) return found;
    if (input.PaymentMethod.empty())
        return Finding{CheckResult::PayMethod, "지불방식이 지정 되지 않았습니다."};
    return {};
}

}  // namespace

int unsoundLine(const XArrayDB& g_xaDrug) {
    for (int row = g_xaDrug.lowerRow(); row <= g_xaDrug.upperRow(); ++row) {
        if (g_xaDrug.text(row, herb::state) != herb::complete ||
            !isAboveZero(g_xaDrug.text(row, herb::grams)) || !isAboveZero(g_xaDrug.text(row, herb::amount)))
            return row;
    }
    return -1;
}

bool isAboveZero(const std::string& text) {
    return basics::IsNumeric(text) && basics::toNumber(text) > 0;
}

bool isQuantity(const std::string& text, bool whole) {
    if (!isAboveZero(text)) return false;
    const double number = basics::roundHalfEven(basics::toNumber(text));
    return number >= (whole ? 1 : 0) && number <= mostQuantity;
}

CheckResult Check_CostInput(screen::Desktop& desktop, const CostInput& input, const XArrayDB& m_xaJobList,
                            const XArrayDB& g_xaDrug, const XArrayDB& m_xaTJML) {
    try {
        if (const Checked found = firstFinding(input, m_xaJobList, g_xaDrug, m_xaTJML)) {
            desktop.inform(found->message, caption);
            return found->result;
        }
        if (input.BesongMethod == data::delivery::undecided &&
            !desktop.ask("배송방식이 [미정]입니다. 처방전 전송후에 다시 지정 하시겠습니까?\r\n\r\n"
                         "예(Y) = 비용확인\r\n\r\n"
                         "아니오(N) = 배송방식 수정",
                         caption)) {
            return CheckResult::SetDelivery;
        }
        return CheckResult::Passed;
    } catch (const basics::Fault& fault) {
        desktop.alarm(fault.what(), caption);
        return CheckResult::Fault;
    }
}

}  // namespace zelvo::ordering
