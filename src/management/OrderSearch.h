#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "screen/Fields.h"
#include "screen/Grid.h"
#include "screen/TextField.h"
#include "session/Session.h"
#include "tables/XArrayDB.h"

namespace zelvo::management {

/// The list of sent orders, and the ways of searching it.
class OrderSearch {
public:
    OrderSearch(screen::Window& form, screen::Place managementTab, session::Session& session);

    screen::TabControl c1tCBJmanage;
    screen::Button sscCBJsearchALL;
    screen::DateField dtpCBJsearch0, dtpCBJsearch1;
    screen::Button sscToday, sscCBJsearchDate;
    screen::TextField txtCBJsearchDTR;
    screen::Button sscCBJsearchDTR;
    screen::TextField txtCBJsearchPatient;
    screen::Button sscCBJsearchPatient;
    screen::ComboList cboCBJstate;
    screen::Button sscCBJsearchState;
    screen::ComboList cboCBJBesong;
    screen::Button sscCBJsearchBesong;
    screen::ComboList cboCBJPayMethod;
    screen::Button sscCBJsearchPayment;
    screen::ComboList cboCBJisPaid;
    screen::Button sscCBJsearchIsPay, sscCBJcanceled;
    screen::ComboList cbodtrList;  ///< a nurse's doctors: key "/" name; never shown
    screen::Grid tdbCBJ;
    /// Running number, key, date, patient, six characters of the resident number, order type, doctor.
    tables::XArrayDB m_xaCBJ;

    /// Fills the fixed lists, sets the dates to today and opens the page of the issue date.
    void Form_Load();
    /// Makes m_xaCBJ with its seven columns and binds it to the list, which stays empty until the user
    /// searches.
    void Init_CBJGrid();
    /// The list as it was before any search.
    void forget();
    /// Shows the column of the doctor and makes room for it.
    void showDoctorColumn();

private:
    struct Condition;
    struct Choice;

    void labelFields();
    void listen();
    void setToday();
    void searchDate();
    void searchDoctor();
    void searchPatient();
    void searchChoice(const screen::ComboList& list, std::span<const Choice> choices);
    void search(std::string_view caption, const Condition& condition);
    bool readOrders(const Condition& condition);
    std::vector<std::int32_t> nursesDoctors() const;
    bool hasDoctor() const;
    static std::int16_t readDoctor(data::Connection& line, tables::XArrayDB& orders, std::int32_t DTR_PK,
                                   const Condition& condition);
    void emptyList();
    void sortBy(int column);

    screen::Window& form_;
    session::Session& session_;
    bool searching_ = false;
};

}  // namespace zelvo::management
