#pragma once

#include "data/RecordSet.h"
#include "management/DetailFrames.h"
#include "management/DetailRead.h"
#include "screen/Grid.h"
#include "screen/TextField.h"

namespace zelvo::management {

/// The herbs of the order in view, its packets and their price.
class HerbSection {
public:
    HerbSection(screen::Window& form, DetailFrames& frames);

    screen::Grid tdbCBJmDGL;
    screen::TextField txtCBJmChubsu, txtCBJmDrugCost;
    data::RecordSet m_rsCBJmDGL;

    /// What the order holds beside, of herbs that have left the catalogue.
    const std::vector<data::LostHerb>& lost() const { return lost_; }

    /// Binds the herb lines.
    void bind() { tdbCBJmDGL.bind(&m_rsCBJmDGL); }
    /// Throws Fault for a price that has no place in 32 bits.
    bool load(const DetailRead& read);
    void clear();

private:
    void showLost();

    std::vector<data::LostHerb> lost_;
};

}  // namespace zelvo::management
