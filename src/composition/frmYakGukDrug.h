#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "data/RecordSet.h"
#include "screen/Fields.h"
#include "screen/Grid.h"
#include "screen/TextField.h"
#include "screen/Window.h"
#include "session/Session.h"

namespace zelvo::composition {

/// The small window that lists the herbs which the pharmacy sells today, with their prices: to pick one for a
/// line of the composition, or only to look around. Made fresh for each use; the caller places it.
class frmYakGukDrug : public screen::Window {
public:
    frmYakGukDrug(screen::Desktop& desktop, session::Session& session);

    screen::Label lblFind;
    screen::TextField txtDrugFind;
    screen::Button cmdFind;
    screen::Grid tdbYakgukDrug;
    screen::Label Label2;

    /// Shows the herbs whose name holds `name`, the one with `key` current (-1: none in hand). 1 when one was
    /// taken: then its key stands in `key`, and its name, pharmacy name and price in the texts; 0 when the
    /// user left by Esc; -1 on failure.
    std::int16_t HanYakGukDrug_DropDownOpen(const std::string& name, std::int32_t& key, std::string& CallSign,
                                            std::string& Internal, std::string& Danga);

private:
    bool search(const std::string& word);
    void searchAgain();
    void preselect(std::int32_t key);
    void takeCurrentRow();

    session::Session& session_;
    std::unique_ptr<data::RecordSet> m_rsDrug;
    std::string m_PickName, m_PickInternal, m_PickKey, m_PickPrice;
    std::int16_t m_PickCanceled = 0;
};

}  // namespace zelvo::composition
