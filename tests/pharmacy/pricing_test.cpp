#include "pharmacy/OrderPricing.h"

#include "basics/Fault.h"

namespace zelvo::pharmacy {
namespace {

using Kind = CostKind;

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

TEST(OrderPricing, WorksOutEachLineByItsRule) {
    struct Case {
        const char* name;
        void (*change)(OrderFacts&);
        Kind kind;
        std::int32_t won;
    };
    const Case cases[] = {
        {"fewest packets cost the least", [](auto& o) { o.packets = 10; }, Kind::Compounding, 3000},
        {"packets above the least", [](auto& o) { o.packets = 21; }, Kind::Compounding, 3150},
        {"no herbs, no compounding", [](auto& o) { o.hasHerbs = false; }, Kind::Compounding, 0},
        {"a part of a pouch is a pouch", [](auto& o) { o.pouches = 17.5; }, Kind::Decoction, 18 * 150},
        {"ready-made tonic", [](auto& o) { o.hasHerbs = false; }, Kind::Decoction, 45 * 1350},
        {"form by packets", [](auto& o) { o.addOnSlots = {3}; }, Kind::AddOns, 30000 + 20 * 600},
        {"a large pouch", [](auto& o) { o.pouchMillilitres = 121; }, Kind::Pouches, 45 * 70},
        {"one pouch more is one box more", [](auto& o) { o.pouches = 46; }, Kind::Boxes, 3000},
        {"parcel to Jeju", [](auto& o) { o.deliveryZip = "63219"; }, Kind::Delivery, 7500},
        {"to the clinic", [](auto& o) { o.delivery = Delivery::ToClinic; }, Kind::Delivery, 3500},
        {"add-ons of a form and by pouches",
         [](auto& o) {
             o.addOnSlots = {10, 64};
         },
         Kind::AddOns, 111350},
        {"half a won of discount rounds up", [](auto&) {}, Kind::Else, -1726},
    };
    for (const auto& c : cases) {
        auto order = tonic();
        c.change(order);
        const auto price = priceOrder(member, order);
        EXPECT_EQ(price.lines[c.kind].won, c.won) << c.name;
        EXPECT_EQ(price.mileage, price.total.won * 2 / 100) << "parts of a won are dropped";
    }
}

TEST(OrderPricing, GivesNoMileageForLaterPaymentAndRefusesAnAmountBeyond32Bits) {
    auto order = tonic();
    order.payment = Payment::Later;
    EXPECT_EQ(priceOrder(member, order).mileage, 0);
    order.herbPrice = 2'147'483'647;
    EXPECT_THROW(priceOrder(member, order), basics::Fault);
}

}  // namespace
}  // namespace zelvo::pharmacy
