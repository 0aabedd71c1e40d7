#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zelvo::pharmacy {

/// Delivery and pay codes as the client sends them and as the orders keep them.
enum class Delivery { Undecided = 1, ParcelToPatient = 2, CourierToPatient = 3, ToClinic = 4 };
enum class Payment { Deposit = 1, Later = 2, Settlement = 3 };

/// What the pharmacy has agreed with a doctor. Percents are 0 to 100, the box is won a box, 0 when it costs
/// nothing.
struct DoctorTerms {
    double discountPercent = 0;
    double mileagePercent = 0;
    bool paysPouch = false;
    std::int32_t boxCost = 0;
    bool paysForm = false;
    std::string clinicZip;
};

/// An order as it is priced. Herbs and decoction count only where the order type has them.
struct OrderFacts {
    bool hasHerbs = false;
    bool hasDecoction = false;
    std::int32_t packets = 0;
    std::int32_t herbPrice = 0;   // won, all packets
    int methodKey = 0;            // t_TangJunMethodList
    std::vector<int> addOnSlots;  // 1 to 64
    double pouchMillilitres = 0;
    double pouches = 0;  // a part of a pouch is a pouch
    Delivery delivery = Delivery::Undecided;
    std::string deliveryZip;
    Payment payment = Payment::Later;
};

struct CostLine {
    std::int32_t won = 0;
    std::string note;  // lines parted by CR LF
};

/// The ten cost lines, in the order in which an order keeps them.
enum class CostKind : std::size_t {
    Compounding,
    Herbs,
    Decoction,
    AddOns,
    Pouches,
    Boxes,
    Form,
    Delivery,
    Vat,
    Else
};

struct CostLines {
    std::array<CostLine, 10> each;
    CostLine& operator[](CostKind kind) { return each[static_cast<std::size_t>(kind)]; }
    const CostLine& operator[](CostKind kind) const { return each[static_cast<std::size_t>(kind)]; }
};

struct Price {
    CostLines lines;
    CostLine total;
    std::int32_t mileage = 0;
};

/// An order of the book whose delivery is to change: the amounts it keeps, its pharmacy-entered amounts with
/// their notes.
struct StoredOrder {
    CostLines lines;
    CostLine userCost, userCostNoVat;
    Delivery delivery = Delivery::Undecided;
    std::string deliveryZip;
    Payment payment = Payment::Later;
};

/// What the pharmacy takes for a decoction method, won a pouch, and for an add-on; false when it has no
/// price.
bool hasMethodPrice(int methodKey);
bool hasAddOnPrice(int slot);

/// The price of a new order, line by line. Throws basics::Fault when an amount leaves 32 bits.
Price priceOrder(const DoctorTerms& terms, const OrderFacts& order);

/// The price of a stored order for the delivery, postal code and payment that it now holds: delivery, else
/// and mileage are worked out anew, the other lines stay. What the tax would differ by goes into the else
/// line.
Price repriceOrder(const DoctorTerms& terms, const StoredOrder& order);

}  // namespace zelvo::pharmacy
