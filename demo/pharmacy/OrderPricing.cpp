#include "pharmacy/OrderPricing.h"

#include <algorithm>
#include <cmath>

#include "basics/Numbers.h"
#include "basics/Pictures.h"
#include "basics/Text.h"

namespace zelvo::pharmacy {
namespace {

struct MethodPrice {
    const char* name;
    int key;
    int wonPerPouch;
};
constexpr MethodPrice methodPrices[] = {{"일반탕전", 1, 150},
                                        {"무압력탕전", 2, 200},
                                        {"압력탕전", 3, 180},
                                        {"증류탕전", 4, 350},
                                        {"2차탕전", 5, 260}};

struct AddOnPrice {
    const char* name;
    int slot;
    int base, wonPerPacket, wonPerPouch;
};
constexpr AddOnPrice addOnPrices[] = {{"환(丸)", 1, 20000, 500, 0},
                                      {"산(散)", 2, 10000, 300, 0},
                                      {"고(膏)", 3, 30000, 600, 0},
                                      {"연조엑스", 4, 25000, 400, 0},
                                      {"녹용 추가(러시아산)", 10, 110000, 0, 0},
                                      {"녹용 추가(뉴질랜드산)", 11, 56000, 0, 0},
                                      {"스파우트 파우치", 20, 0, 0, 120},
                                      {"어린이 파우치", 21, 0, 0, 40},
                                      {"보냉 포장", 40, 3500, 0, 0},
                                      {"선물 포장", 41, 7000, 0, 0},
                                      {"한의원 라벨", 64, 0, 0, 30}};

constexpr int compoundingPerPacket = 150;
constexpr int compoundingLeast = 3000;
constexpr int readyMadePerPouch = 1200;
constexpr int pouchCost = 50;
constexpr int largePouchCost = 70;
constexpr double largePouchFrom = 120;  // millilitres, above
constexpr int pouchesPerBox = 45;
constexpr int packetsPerBox = 20;
constexpr int formCost = 300;
constexpr int clinicDelivery = 3500;
constexpr int parcelDelivery = 4500;
constexpr int courierPacking = 2000;

using basics::decimalText;

std::string won(double amount) {
    return basics::formatNumber(amount, basics::NumberPicture::SeparatedZero) + "원";
}

std::string percent(double value) {
    return decimalText(value) + "%";
}

CostLine none() {
    return {};
}

void addLine(std::string& note, const std::string& line) {
    if (!note.empty()) note += basics::lineBreak;
    note += line;
}

double halfUp(double value) {
    return std::floor(value + 0.5);
}

template <typename Table, typename Key>
auto find(const Table& table, Key key) {
    return std::find_if(std::begin(table), std::end(table), key);
}

CostLine compounding(const OrderFacts& order) {
    if (!order.hasHerbs) return none();
    const auto plain = basics::multiplyChecked(order.packets, compoundingPerPacket);
    CostLine line{std::max(plain, compoundingLeast), "조제 & 포장: 1첩 " + won(compoundingPerPacket) + " × " +
                                                         decimalText(std::int64_t{order.packets}) + "첩"};
    if (line.won != plain) addLine(line.note, "기본 " + won(compoundingLeast));
    return line;
}

CostLine herbs(const OrderFacts& order) {
    if (!order.hasHerbs) return none();
    return {order.herbPrice,
            "약재가격(" + decimalText(std::int64_t{order.packets}) + "첩): " + won(order.herbPrice)};
}

std::int32_t wholePouches(const OrderFacts& order) {
    return order.hasDecoction ? basics::toInt32(std::ceil(order.pouches)) : 0;
}

CostLine decoction(const OrderFacts& order, std::int32_t pouches) {
    const auto method = find(methodPrices, [&](const MethodPrice& m) { return m.key == order.methodKey; });
    if (!order.hasDecoction || method == std::end(methodPrices)) return none();
    const auto count = decimalText(std::int64_t{pouches}) + "팩";
    CostLine line{basics::multiplyChecked(pouches, method->wonPerPouch),
                  std::string(method->name) + ": 1팩 " + won(method->wonPerPouch) + " × " + count};
    if (order.hasHerbs) return line;
    line.won = basics::addChecked(line.won, basics::multiplyChecked(pouches, readyMadePerPouch));
    addLine(line.note, "상비탕약: 1팩 " + won(readyMadePerPouch) + " × " + count);
    return line;
}

CostLine addOns(const OrderFacts& order, std::int32_t pouches) {
    CostLine line;
    if (!order.hasDecoction) return line;
    for (const int slot : order.addOnSlots) {
        const auto addOn = find(addOnPrices, [&](const AddOnPrice& a) { return a.slot == slot; });
        if (addOn == std::end(addOnPrices)) continue;
        const auto byPacket =
            basics::multiplyChecked(order.hasHerbs ? order.packets : 0, addOn->wonPerPacket);
        const auto byPouch = basics::multiplyChecked(pouches, addOn->wonPerPouch);
        const auto cost = basics::addChecked(addOn->base, basics::addChecked(byPacket, byPouch));
        line.won = basics::addChecked(line.won, cost);
        addLine(line.note, std::string(addOn->name) + ": " + won(cost));
    }
    return line;
}

CostLine pouchLine(const DoctorTerms& terms, const OrderFacts& order, std::int32_t pouches) {
    if (!terms.paysPouch || pouches == 0) return none();
    const int each = order.pouchMillilitres > largePouchFrom ? largePouchCost : pouchCost;
    return {basics::multiplyChecked(pouches, each), decimalText(order.pouchMillilitres) + "ml 파우치: 1팩 " +
                                                        won(each) + " × " +
                                                        decimalText(std::int64_t{pouches}) + "팩"};
}

std::int32_t boxCount(const OrderFacts& order, std::int32_t pouches) {
    const auto filled = [](std::int32_t items, int perBox) {
        return items / perBox + (items % perBox != 0 ? 1 : 0);
    };
    if (order.hasDecoction) return filled(pouches, pouchesPerBox);
    return order.hasHerbs ? filled(order.packets, packetsPerBox) : 0;
}

CostLine boxLine(const DoctorTerms& terms, const OrderFacts& order, std::int32_t pouches) {
    const auto boxes = boxCount(order, pouches);
    if (terms.boxCost == 0 || boxes == 0) return none();
    return {basics::multiplyChecked(boxes, terms.boxCost),
            "1박스 " + won(terms.boxCost) + " × " + decimalText(std::int64_t{boxes}) + "박스"};
}

CostLine formLine(const DoctorTerms& terms, const OrderFacts& order) {
    if (!terms.paysForm || (!order.hasHerbs && !order.hasDecoction)) return none();
    return {formCost, "복용법 용지 1장"};
}

/// The first two digits of a postal code say the region.
int region(const std::string& zip) {
    return static_cast<int>(basics::numberFromStart(zip.substr(0, 2)));
}

int islandExtra(const std::string& zip) {
    if (region(zip) == 63) return 3000;
    const auto code = basics::numberFromStart(zip);
    return code >= 40200 && code <= 40240 ? 5000 : 0;
}

CostLine courier(const std::string& zip) {
    const int area = region(zip);
    if (area >= 1 && area <= 9) return {20000, "퀵(환자): 서울 " + won(20000)};
    if (area >= 10 && area <= 23) return {15000, "퀵(환자): 경기·인천 " + won(15000)};
    return {45000, "퀵(환자): 그 밖의 지역 " + won(45000)};
}

CostLine deliveryLine(Delivery delivery, const std::string& patientZip, const std::string& clinicZip) {
    CostLine line;
    if (delivery == Delivery::Undecided) return {0, "배송 방식이 정해지면 비용이 더해집니다."};
    if (delivery == Delivery::CourierToPatient) {
        line = courier(patientZip);
    } else if (delivery == Delivery::ParcelToPatient) {
        line = {parcelDelivery, "택배(환자): " + won(parcelDelivery)};
    } else {
        line = {clinicDelivery, "한의원: " + won(clinicDelivery)};
    }
    const int extra = islandExtra(delivery == Delivery::ToClinic ? clinicZip : patientZip);
    if (extra == 0) return line;
    line.won += extra;
    addLine(line.note, "도서 지역: " + won(extra));
    return line;
}

/// The sum of the lines from `first` to `last`, in the order of the kinds.
std::int32_t sumOf(const CostLines& lines, CostKind first, CostKind last) {
    std::int32_t sum = 0;
    for (auto i = static_cast<std::size_t>(first); i <= static_cast<std::size_t>(last); ++i) {
        sum = basics::addChecked(sum, lines.each[i].won);
    }
    return sum;
}

/// The courier's packing less the doctor's discount on compounding, herbs, decoction and add-ons.
CostLine elseLine(const DoctorTerms& terms, const Price& price, Delivery delivery) {
    CostLine line;
    if (delivery == Delivery::CourierToPatient) line = {courierPacking, "퀵 포장비: " + won(courierPacking)};
    const auto base = sumOf(price.lines, CostKind::Compounding, CostKind::AddOns);
    const auto discount = basics::toInt32(halfUp(base * terms.discountPercent / 100));
    if (discount == 0) return line;
    line.won = basics::subtractChecked(line.won, discount);
    addLine(line.note, "회원 할인 " + percent(terms.discountPercent) + ": -" + won(discount));
    return line;
}

std::int32_t taxOn(const Price& price) {
    const auto net = basics::addChecked(sumOf(price.lines, CostKind::Compounding, CostKind::Delivery),
                                        price.lines[CostKind::Else].won);
    return basics::toInt32(halfUp(net / 10.0));
}

void finish(Price& price, const DoctorTerms& terms, Payment payment, std::int32_t besides) {
    price.total.won = basics::addChecked(sumOf(price.lines, CostKind::Compounding, CostKind::Else), besides);
    price.total.note = "합계 " + won(price.total.won);
    if (payment != Payment::Deposit || price.total.won <= 0) return;
    price.mileage = basics::toInt32(std::floor(price.total.won * terms.mileagePercent / 100));
    if (price.mileage > 0)
        addLine(price.total.note, "마일리지 " + percent(terms.mileagePercent) + ": " + won(price.mileage));
}

}  // namespace

bool hasMethodPrice(int methodKey) {
    return find(methodPrices, [&](const MethodPrice& m) { return m.key == methodKey; }) !=
           std::end(methodPrices);
}

bool hasAddOnPrice(int slot) {
    return find(addOnPrices, [&](const AddOnPrice& a) { return a.slot == slot; }) != std::end(addOnPrices);
}

Price priceOrder(const DoctorTerms& terms, const OrderFacts& order) {
    const auto pouches = wholePouches(order);
    Price price;
    price.lines[CostKind::Compounding] = compounding(order);
    price.lines[CostKind::Herbs] = herbs(order);
    price.lines[CostKind::Decoction] = decoction(order, pouches);
    price.lines[CostKind::AddOns] = addOns(order, pouches);
    price.lines[CostKind::Pouches] = pouchLine(terms, order, pouches);
    price.lines[CostKind::Boxes] = boxLine(terms, order, pouches);
    price.lines[CostKind::Form] = formLine(terms, order);
    price.lines[CostKind::Delivery] = deliveryLine(order.delivery, order.deliveryZip, terms.clinicZip);
    price.lines[CostKind::Else] = elseLine(terms, price, order.delivery);
    price.lines[CostKind::Vat] = {taxOn(price), "공급가액의 10%"};
    finish(price, terms, order.payment, 0);
    return price;
}

Price repriceOrder(const DoctorTerms& terms, const StoredOrder& order) {
    Price price;
    price.lines = order.lines;
    price.lines[CostKind::Delivery] = deliveryLine(order.delivery, order.deliveryZip, terms.clinicZip);
    auto& rest = price.lines[CostKind::Else];
    rest = elseLine(terms, price, order.delivery);
    const auto taxChange = basics::subtractChecked(taxOn(price), price.lines[CostKind::Vat].won);
    if (taxChange != 0) {
        rest.won = basics::addChecked(rest.won, taxChange);
        addLine(rest.note, "배송 변경에 따른 부가세 차액: " + won(taxChange));
    }
    finish(price, terms, order.payment, basics::addChecked(order.userCost.won, order.userCostNoVat.won));
    return price;
}

}  // namespace zelvo::pharmacy
