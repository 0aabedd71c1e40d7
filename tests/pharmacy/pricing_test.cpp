#include "pharmacy/OrderPricing.h"

#include "basics/Fault.h"

namespace zelvo::pharmacy {
namespace {

using Kind = CostKind;

const DoctorTerms plainTerms{0, 0, false, 0, false, "06236"};
const DoctorTerms member{5, 2, true, 1500, true, "06236"};

OrderFacts tonic() {
    OrderFacts order;
    order.hasHerbs = order.hasDecoction = true;
    order.packets = 20;
    order.herbPrice = 24760;
    order.methodKey = 1;
    order.pouchMillilitres = 120;
    order.pouches = 45;
    order.delivery = Delivery::ParcelToPatient;
    order.deliveryZip = "03187";
    order.payment = Payment::Deposit;
    return order;
}

TEST(OrderPricing, PricesAMembersOrderLineByLine) {
    auto order = tonic();
    order.addOnSlots = {10, 64};
    const auto price = priceOrder(member, order);
    const std::array<std::int32_t, 10> expected = {3000, 24760, 6750, 111350, 2250,
                                                   1500, 300,   4500, 14712,  -7293};
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ(price.lines.each[i].won, expected[i]) << "line " << i;
    EXPECT_EQ(price.total.won, 161829);
    EXPECT_EQ(price.mileage, 3236);
}

struct LineCase {
    const char* name;
    std::function<void(OrderFacts&, DoctorTerms&)> change;
    Kind kind;
    std::int32_t won;
};

TEST(OrderPricing, WorksOutEachLineByItsRule) {
    const std::vector<LineCase> cases = {
        {"fewest packets cost the least", [](auto& o, auto&) { o.packets = 10; }, Kind::Compounding, 3000},
        {"packets above the least", [](auto& o, auto&) { o.packets = 21; }, Kind::Compounding, 3150},
        {"no herbs, no compounding", [](auto& o, auto&) { o.hasHerbs = false; }, Kind::Compounding, 0},
        {"no herbs, no herb cost", [](auto& o, auto&) { o.hasHerbs = false; }, Kind::Herbs, 0},
        {"a part of a pouch is a pouch", [](auto& o, auto&) { o.pouches = 17.5; }, Kind::Decoction, 18 * 150},
        {"ready-made tonic is in the decoction", [](auto& o, auto&) { o.hasHerbs = false; }, Kind::Decoction,
         45 * 1350},
        {"no decoction", [](auto& o, auto&) { o.hasDecoction = false; }, Kind::Decoction, 0},
        {"form by packets", [](auto& o, auto&) { o.addOnSlots = {3}; }, Kind::AddOns, 30000 + 20 * 600},
        {"pouch and antler add up",
         [](auto& o, auto&) {
             o.addOnSlots = {11, 20};
         },
         Kind::AddOns, 56000 + 45 * 120},
        {"add-ons need a decoction", [](auto& o, auto&) { o.addOnSlots = {11}, o.hasDecoction = false; },
         Kind::AddOns, 0},
        {"a large pouch", [](auto& o, auto&) { o.pouchMillilitres = 121; }, Kind::Pouches, 45 * 70},
        {"pouches free for this doctor", [](auto&, auto& t) { t.paysPouch = false; }, Kind::Pouches, 0},
        {"one pouch more is one box more", [](auto& o, auto&) { o.pouches = 46; }, Kind::Boxes, 3000},
        {"boxes by packets without a decoction",
         [](auto& o, auto&) { o.hasDecoction = false, o.packets = 41; }, Kind::Boxes, 4500},
        {"nothing to take, no form", [](auto& o, auto&) { o.hasHerbs = o.hasDecoction = false; }, Kind::Form,
         0},
        {"undecided delivery", [](auto& o, auto&) { o.delivery = Delivery::Undecided; }, Kind::Delivery, 0},
        {"parcel to Jeju", [](auto& o, auto&) { o.deliveryZip = "63219"; }, Kind::Delivery, 7500},
        {"parcel to Ulleung", [](auto& o, auto&) { o.deliveryZip = "40221"; }, Kind::Delivery, 9500},
        {"courier in Seoul", [](auto& o, auto&) { o.delivery = Delivery::CourierToPatient; }, Kind::Delivery,
         20000},
        {"courier nearby",
         [](auto& o, auto&) { o.delivery = Delivery::CourierToPatient, o.deliveryZip = "10326"; },
         Kind::Delivery, 15000},
        {"courier far away",
         [](auto& o, auto&) { o.delivery = Delivery::CourierToPatient, o.deliveryZip = "48060"; },
         Kind::Delivery, 45000},
        {"to a clinic on Jeju, wherever the patient lives",
         [](auto& o, auto& t) { o.delivery = Delivery::ToClinic, t.clinicZip = "63219"; }, Kind::Delivery,
         6500},
        {"courier's packing less the discount",
         [](auto& o, auto&) { o.delivery = Delivery::CourierToPatient; }, Kind::Else, 2000 - 1726},
        {"half a won of discount rounds up", [](auto&, auto&) {}, Kind::Else, -1726},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        auto order = tonic();
        auto terms = member;
        c.change(order, terms);
        EXPECT_EQ(priceOrder(terms, order).lines[c.kind].won, c.won);
    }
}

TEST(OrderPricing, GivesMileageForTheDepositOnlyAndDropsParts) {
    auto order = tonic();
    for (const auto& [payment, mileage] :
         {std::pair{Payment::Deposit, 1}, {Payment::Later, 0}, {Payment::Settlement, 0}}) {
        order.payment = payment;
        const auto price = priceOrder(member, order);
        EXPECT_EQ(price.mileage, mileage * (price.total.won * 2 / 100));
    }
    order.payment = Payment::Deposit;
    EXPECT_EQ(priceOrder(plainTerms, order).mileage, 0);
}

StoredOrder stored(const DoctorTerms& terms, const OrderFacts& facts) {
    StoredOrder order;
    order.lines = priceOrder(terms, facts).lines;
    order.delivery = facts.delivery;
    order.deliveryZip = facts.deliveryZip;
    order.payment = facts.payment;
    return order;
}

TEST(OrderPricing, RepricingForAnotherDeliveryComesToTheSameAsANewOrder) {
    for (const auto delivery :
         {Delivery::Undecided, Delivery::ParcelToPatient, Delivery::CourierToPatient, Delivery::ToClinic}) {
        SCOPED_TRACE(static_cast<int>(delivery));
        auto facts = tonic();
        auto order = stored(member, facts);
        const auto before = order.lines;
        facts.delivery = order.delivery = delivery;
        const auto anew = priceOrder(member, facts);
        auto again = repriceOrder(member, order);
        EXPECT_EQ(again.total.won, anew.total.won);
        EXPECT_EQ(again.mileage, anew.mileage);
        EXPECT_EQ(again.lines[Kind::Vat].won, before[Kind::Vat].won) << "the clinic keeps the stored tax";
        // What is stored after the change leads back to the first price.
        order.lines = again.lines;
        order.delivery = Delivery::ParcelToPatient;
        again = repriceOrder(member, order);
        EXPECT_EQ(again.lines[Kind::Else].won, before[Kind::Else].won);
        EXPECT_EQ(again.lines[Kind::Delivery].won, before[Kind::Delivery].won);
    }
}

TEST(OrderPricing, CountsThePharmacysOwnAmountsIntoAStoredOrder) {
    auto order = stored(member, tonic());
    const auto plain = repriceOrder(member, order).total.won;
    order.userCost.won = 11000;
    order.userCostNoVat.won = 3000;
    EXPECT_EQ(repriceOrder(member, order).total.won, plain + 14000);
}

TEST(OrderPricing, RefusesAnAmountBeyond32Bits) {
    auto order = tonic();
    order.herbPrice = 2'147'483'647;
    EXPECT_THROW(priceOrder(member, order), basics::Fault);
    order = tonic();
    order.pouches = 1e12;
    EXPECT_THROW(priceOrder(member, order), basics::Fault);
}

}  // namespace
}  // namespace zelvo::pharmacy
