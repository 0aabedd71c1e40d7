#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "management/DetailFrames.h"
#include "management/DetailRead.h"
#include "screen/Fields.h"
#include "screen/TextField.h"
#include "session/Session.h"

namespace zelvo::management {

/// Order type, decoction method, form changes and quantities of the order in view, with their explanations.
class DecoctionSection {
public:
    DecoctionSection(screen::Window& form, DetailFrames& frames, session::Session& session);

    screen::TextField txtCBJmJobList;
    screen::Button sscCBJmJobListDetail;
    screen::TextField txtCBJmTJML;
    screen::Button sscCBJmTJMLDetail;
    /// "* ", the name, 50 blanks, the key.
    screen::ItemList lstCBJmTJAL;
    screen::Button sscCBJmTJALDetail;
    screen::TextField txtCBJmDayTuyak, txtCBJmTuyakilsu, txtCBJmPouchAmount, txtCBJmPouchTotal;
    /// Keys of order type and decoction method, and the explanations.
    screen::Label lblCBJmJobListPK, lblCBJmTJMLPK, lblCBJmJobListDetail, lblCBJmTJMLDetail, lblCBJmTJALDetail;

    /// The order type; the decoction is a read of its own.
    bool loadType(const DetailRead& read);
    bool loadDecoction(const DetailRead& read);
    void clear();

    /// Keys of the form changes, in the order of the list. Throws Fault for an item without one.
    std::vector<std::int32_t> addOnKeys() const;
    /// How many more the order holds that nobody can name any more.
    std::size_t lostAddOns() const { return lostAddOns_; }

private:
    void dressFields();
    void showAddOns(const std::string& Adds);
    void explainAddOn();
    bool fetchAddOnText();
    void explain(const std::string& caption, const std::string& text);

    screen::Window& form_;
    DetailFrames& frames_;
    session::Session& session_;
    std::size_t lostAddOns_ = 0;
};

}  // namespace zelvo::management
