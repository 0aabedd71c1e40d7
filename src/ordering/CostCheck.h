#pragma once

#include <cstdint>
#include <limits>
#include <string>

#include "screen/Desktop.h"
#include "tables/XArrayDB.h"

namespace zelvo::ordering {

/// The texts of an order that are checked before its price is asked for, as they stand in their fields.
struct CostInput {
    std::string PatientName, PatientCell, PatientTel;
    std::string BesongMethod, BesongZip, BesongJuso;
    std::string Doctor, DoctorCell, HospitalTel, BalsongZip, BalsongJuso;
    std::string Chubsu, DrugPrice, PouchAmount, PouchTotal;
    std::string CBJmsg, PaymentMethod;
};

/// Where an order is at fault.
enum class CheckResult : std::int16_t {
    Fault = -1,  ///< the check itself failed
    Passed = 0,
    Patient = 1,  ///< patient or delivery address
    SetDelivery = 2,
    Sender = 3,
    OrderType = 4,
    Herbs = 5,
    Decoction = 6,
    Message = 8,
    PayMethod = 9,
};

/// The one check of an order before its price: shows the first fault that it meets and says where it lies.
/// The last question (the delivery method still open) is asked here too. Changes nothing else.
CheckResult Check_CostInput(screen::Desktop& desktop, const CostInput& input,
                            const tables::XArrayDB& m_xaJobList, const tables::XArrayDB& g_xaDrug,
                            const tables::XArrayDB& m_xaTJML);

/// The first herb line that is incomplete or says no amount above 0, -1 when all are sound.
int unsoundLine(const tables::XArrayDB& g_xaDrug);
/// Whether the text is a number above 0.
bool isAboveZero(const std::string& text);
/// The most that a quantity of an order can be.
inline constexpr std::int16_t mostQuantity = std::numeric_limits<std::int16_t>::max();
/// Whether the text is a quantity that an order can hold: above 0 and within 16 bits, a whole one from 1 on.
bool isQuantity(const std::string& text, bool whole);

}  // namespace zelvo::ordering
