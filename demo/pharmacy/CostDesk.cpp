#include "pharmacy/CostDesk.h"

#include <cmath>

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "pharmacy/CostAnswer.h"

namespace zelvo::pharmacy {
namespace {

using basics::Fault;

/// Prices are compared as texts were made of them: to less than a thousandth of a won.
bool samePrice(const std::string& asked, double price) {
    return basics::IsNumeric(asked) && std::abs(basics::toNumber(asked) - price) < 0.001;
}

void checkHerbs(const PharmacyBook& book, const CostRequest& request) {
    if (request.herbs.empty()) throw Fault("약재정보가 없습니다.");
    std::int32_t packet = 0;
    for (const auto& line : request.herbs) {
        const auto price = book.herbPrice(line.herbKey);
        if (!price)
            throw Fault("[" + line.name + "] 약재는 현재 취급하지 않습니다. 약재를 다시 선택하여 주십시오.");
        if (!samePrice(line.price, *price)) {
            throw Fault("[" + line.name + "] 약재의 단가가 변경되었습니다. 약재를 다시 선택하여 주십시오.");
        }
        packet = basics::addChecked(packet, line.amount);
    }
    if (basics::multiplyChecked(packet, request.order.packets) != request.order.herbPrice) {
        throw Fault("약재가격이 약재구성과 첩수에 맞지 않습니다.");
    }
}

void checkDecoction(const PharmacyBook& book, const OrderFacts& order) {
    if (!book.offersMethod(order.methodKey)) throw Fault("취급하지 않는 탕전 방식입니다.");
    for (const int slot : order.addOnSlots) {
        if (!book.offersAddOn(slot)) throw Fault("취급하지 않는 제형변화입니다.");
    }
}

void checkDelivery(Delivery delivery, const std::string& zip) {
    const bool toPatient = delivery == Delivery::ParcelToPatient || delivery == Delivery::CourierToPatient;
    if (toPatient && zip.empty()) throw Fault("환자에게 배송하려면 배송주소의 우편번호가 필요합니다.");
}

Doctor knownDoctor(const PharmacyBook& book, std::int32_t doctorKey) {
    auto doctor = book.doctor(doctorKey);
    if (!doctor) throw Fault("등록되지 않은 한의사입니다.");
    return *doctor;
}

bool isOpen(const Doctor& doctor, Payment payment) {
    const auto place = static_cast<std::size_t>(payment) - 1;
    return place < doctor.validPay.size() && doctor.validPay[place] == '1';
}

std::string price(const PharmacyBook& book, const FormFields& fields) {
    auto request = readCostRequest(fields);
    auto& order = request.order;
    const auto doctor = knownDoctor(book, request.doctorKey);
    if (!isOpen(doctor, order.payment)) throw Fault("이 한의사에게 허용되지 않은 지불 방식입니다.");
    const auto type = book.orderType(request.jobKey);
    if (!type) throw Fault("취급하지 않는 처방전 주문서입니다.");
    order.hasHerbs = type->hasHerbs;
    order.hasDecoction = type->hasDecoction;
    if (order.hasHerbs) checkHerbs(book, request);
    if (order.hasDecoction) checkDecoction(book, order);
    checkDelivery(order.delivery, order.deliveryZip);
    return costAnswer(priceOrder(doctor.terms, order));
}

std::string priceUpdate(const PharmacyBook& book, const FormFields& fields) {
    const auto request = readCostUpdateRequest(fields);
    const auto doctor = knownDoctor(book, request.doctorKey);
    auto booked = book.order(request.doctorKey, request.orderKey);
    if (!booked) throw Fault("처방전을 찾을 수 없습니다.");
    if (!booked->waiting) throw Fault("대기 상태의 처방전이 아닙니다.");
    checkDelivery(request.delivery, request.deliveryZip);
    auto& order = booked->order;
    order.delivery = request.delivery;
    order.deliveryZip = request.deliveryZip;
    return costUpdateAnswer(repriceOrder(doctor.terms, order), order);
}

template <typename Answer>
std::string orRefusal(Answer answer) {
    try {
        return answer();
    } catch (const Fault& fault) {
        return refusal(fault.what());
    }
}

}  // namespace

std::string answerCost(const PharmacyBook& book, const FormFields& fields) {
    return orRefusal([&] { return price(book, fields); });
}

std::string answerCostUpdate(const PharmacyBook& book, const FormFields& fields) {
    return orRefusal([&] { return priceUpdate(book, fields); });
}

}  // namespace zelvo::pharmacy
