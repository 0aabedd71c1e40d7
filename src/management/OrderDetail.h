#pragma once

#include "data/RecordSet.h"
#include "screen/Fields.h"
#include "screen/Grid.h"
#include "tables/XArrayDB.h"

namespace zelvo::management {

/// One sent order in full: its delivery method, herbs and cost lines, and the buttons that act on it.
class OrderDetail {
public:
    OrderDetail(screen::Window& form, screen::Place managementTab);

    screen::TwoStateButton ssrCBJmCancel, ssrCBJreuse;
    screen::ComboList cboCBJmBesongMethod;
    screen::Grid tdbCBJmDGL, tdbCBJmCost;
    data::RecordSet m_rsCBJmDGL;
    tables::XArrayDB m_xaCBJmCost;

    /// Fills the delivery methods and makes the cost grid's row style.
    void Form_Load();
    /// Binds the herbs of the order in view.
    void bindHerbs();
    /// Empties the panel.
    void Clear_CBJmDetail();
};

}  // namespace zelvo::management
