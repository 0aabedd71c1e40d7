#pragma once

#include "screen/Fields.h"
#include "screen/Grid.h"
#include "tables/XArrayDB.h"

namespace zelvo::management {

/// The list of sent orders, and the ways of searching it.
class OrderSearch {
public:
    OrderSearch(screen::Window& form, screen::Place managementTab);

    screen::TabControl c1tCBJmanage;
    screen::DateField dtpCBJsearch0, dtpCBJsearch1;
    screen::ComboList cboCBJstate, cboCBJBesong, cboCBJPayMethod, cboCBJisPaid;
    screen::ComboList cbodtrList;  ///< a nurse's doctors: key "/" name; never shown
    screen::Grid tdbCBJ;
    tables::XArrayDB m_xaCBJ;

    /// Fills the fixed lists, sets the dates to today and opens the page of the issue date.
    void Form_Load();
    /// Makes m_xaCBJ with its seven columns and binds it to the list, which stays empty until the user
    /// searches.
    void Init_CBJGrid();
    /// Shows the column of the doctor and makes room for it.
    void showDoctorColumn();
};

}  // namespace zelvo::management
