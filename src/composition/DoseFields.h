#pragma once

#include <cstdint>
#include <string>

#include "composition/HerbTable.h"
#include "composition/OrderFrames.h"
#include "composition/OrderWatch.h"
#include "screen/TextField.h"
#include "session/Session.h"

namespace zelvo::composition {

/// The six quantities of an order and how they drive each other.
class DoseFields {
public:
    DoseFields(screen::Window& form, OrderFrames& frames, session::Session& session, HerbTable& herbs,
               OrderWatch& watch);

    screen::TextField txtChubsu, txtDrugPrice;                                   // c1eDrug
    screen::TextField txtDayTuyak, txtTuyakilsu, txtPouchTotal, txtPouchAmount;  // c1eTangJun

    /// Prices the packets by the herbs that stand in the table now, as if they had just been typed.
    void repriceHerbs();

private:
    void dressFields();
    void priceHerbs();
    bool sumHerbs(std::int32_t& sum);
    void Chubsu_Focus();
    void emptyPrice();
    void pouchFactorChanged(screen::TextField& field, const screen::TextField& other, const char* message);
    void pouchFieldChanged(screen::TextField& field, std::string& last, const char* message);
    void refuse(screen::TextField& field, const char* message, const char* caption);

    screen::Window& form_;
    session::Session& session_;
    HerbTable& herbs_;
    OrderWatch& watch_;
    std::string m_LastDrugPrice, m_LastPouchAmount, m_LastPouchTotal;
};

}  // namespace zelvo::composition
