#include "input/FieldRules.h"

#include <vector>

#include "basics/Text.h"
#include "input/modTelNumFormat.h"
#include "screen/Fields.h"

namespace zelvo::input {

/// What the fields of one row of the table have in common.
struct FieldRules::Rule {
    Entering entering;
    Typing typing;
    /// Enter already moves on when the key goes down, before it is typed.
    bool enterOnKeyDown;
    /// The button that a search presses.
    std::string_view button;
    std::vector<std::string_view> fields;
};

namespace {

/// Where Korean is written. The small windows mark their own.
constexpr std::string_view hangulFields[] = {
    "txtBalsongJuso",     "txtBesongJuso", "txtBesongMsg",   "txtCBJmBalJuso",  "txtCBJmBeJuso",
    "txtCBJmBesongMsg",   "txtCBJmCBMsg",  "txtCBJmDTRName", "txtCBJmHosPital", "txtCBJmJobList",
    "txtCBJmPatientName", "txtCBJmTJML",   "txtCBJmsg",      "txtCBJsearchDTR", "txtCBJsearchPatient",
    "txtDTRaddress",      "txtDTRhosname", "txtDTRname",     "txtDoctor",       "txtHospitalName",
    "txtPatientName"};

bool isDigitOrBackspace(char32_t key) {
    return (key >= U'0' && key <= U'9') || key == U'\b';
}

void keepDigits(char32_t& key) {
    if (!isDigitOrBackspace(key)) key = 0;
}

void keepDecimal(const screen::TextField& field, char32_t& key) {
    if (isDigitOrBackspace(key)) return;
    if (key != U'.' || field.text().find('.') != std::string::npos) key = 0;
}

}  // namespace

FieldRules::FieldRules(screen::Window& form) : form_(form) {
    using enum Entering;
    using enum Typing;
    const std::vector<Rule> rules = {
        {SelectAll,
         Telephone,
         false,
         "",
         {"txtPatientTel", "txtPatientCell", "txtHospitalTel", "txtDoctorCell", "txtDTRcell", "txtDTRhostel",
          "txtEatGuideCall", "txtEatGuideCall2", "txtCBJmPaTel", "txtCBJmPaCell", "txtCBJmDTRTel",
          "txtCBJmDTRCell"}},
        {SelectAll, NoSpaces, false, "", {"txtBalsongZip", "txtCBJmBalZip", "txtCBJmBeZip", "txtDTRhoszip"}},
        {SelectAll,
         EnterMovesOn,
         false,
         "",
         {"txtBesongZip",       "txtBalsongJuso",      "txtBesongJuso",      "txtPatientName",
          "txtPatientJumin",    "txtPatientEmail",     "txtHospitalName",    "txtDoctor",
          "txtEatGuideHosName", "txtEatGuideHosName2", "txtCBJmAge",         "txtCBJmBeJuso",
          "txtCBJmBesongDate",  "txtCBJmChubsu",       "txtCBJmDayTuyak",    "txtCBJmDrugCost",
          "txtCBJmDTRName",     "txtCBJmHosPital",     "txtCBJmJobList",     "txtCBJmJumin",
          "txtCBJmPaEmail",     "txtCBJmPatientName",  "txtCBJmPouchAmount", "txtCBJmPouchTotal",
          "txtCBJmTJML",        "txtCBJmTuyakilsu",    "txtDTRaddress",      "txtDTRbox",
          "txtDTRdiscount",     "txtDTREmail",         "txtDTRhosname",      "txtDTRid",
          "txtDTRlicense",      "txtDTRmileage",       "txtDTRname",         "txtDTRpass",
          "txtDTRpouch",        "txtDTRregdate",       "txtDTRuseform",      "txTotalStock",
          "txtTotalMileage",    "txtTotalUsedStock",   "txtUsableStock"}},
        {CaretToEnd, EnterMovesOn, false, "", {"txtCBJmBalJuso", "txtCBJmBesongMsg", "txtCBJmCBMsg"}},
        {CaretToEnd, Anything, false, "", {"txtBesongMsg", "txtCBJmsg"}},
        {SelectAll, DigitsOnly, true, "", {"txtPatientAge", "txtTuyakilsu", "txtPouchAmount", "txtChubsu"}},
        {SelectAll, Decimal, true, "", {"txtDayTuyak", "txtPouchTotal"}},
        {SelectAll, Anything, true, "", {"txtDrugPrice"}},
        {Nothing, SearchOnEnter, false, "sscCBJsearchDTR", {"txtCBJsearchDTR"}},
        {SelectAll, SearchOnEnter, false, "sscCBJsearchPatient", {"txtCBJsearchPatient"}},
    };
    for (const Rule& rule : rules) {
        for (const std::string_view name : rule.fields) {
            if (auto* field = dynamic_cast<screen::TextField*>(form.field(name))) bind(*field, rule);
        }
    }
    for (const std::string_view name : hangulFields) {
        if (auto* field = dynamic_cast<screen::TextField*>(form.field(name))) field->setHangul(true);
    }
}

void FieldRules::bind(screen::TextField& field, const Rule& rule) {
    if (rule.entering == Entering::SelectAll) field.onFocus.add([&field] { SelectFieldText(field); });
    if (rule.entering == Entering::CaretToEnd)
        field.onFocus.add([this] { form_.desktop().sendKeys("{end}"); });
    if (rule.enterOnKeyDown) field.onKeyDown.add([this](int& key) { EnterToTab(key); });
    bindTyping(field, rule);
}

void FieldRules::bindTyping(screen::TextField& field, const Rule& rule) {
    switch (rule.typing) {
        case Typing::Anything:
            break;
        case Typing::Telephone:
            field.onKeyPress.add([&field](char32_t& key) { modTelNumFormat::TelNum_KeyPress(field, key); });
            field.onChange.add([&field] { modTelNumFormat::TelNum_Change(field); });
            // A Backspace before a paste says nothing of what is pasted.
            field.onInsert.add([&field] { field.setTag(""); });
            break;
        case Typing::NoSpaces:
            field.onKeyPress.add([this, &field](char32_t& key) {
                field.setText(basics::removeBlanks(field.text()));
                EnterToTab(key);
            });
            break;
        case Typing::EnterMovesOn:
            field.onKeyPress.add([this](char32_t& key) { EnterToTab(key); });
            break;
        case Typing::DigitsOnly:
            field.onKeyPress.add(keepDigits);
            break;
        case Typing::Decimal:
            field.onKeyPress.add([&field](char32_t& key) { keepDecimal(field, key); });
            break;
        case Typing::SearchOnEnter:
            field.onKeyPress.add([this, button = rule.button](char32_t& key) { pressOnEnter(button, key); });
            break;
    }
}

void FieldRules::SelectFieldText(screen::TextField& field) {
    field.select(0, std::string::npos);
}

void FieldRules::EnterToTab(int& key) {
    if (key != screen::keys::enter) return;
    key = screen::keys::none;
    form_.desktop().sendKeys("{TAB}");
}

void FieldRules::EnterToTab(char32_t& key) {
    if (key != U'\r') return;
    key = 0;
    form_.desktop().sendKeys("{TAB}");
}

void FieldRules::pressOnEnter(std::string_view button, char32_t& key) {
    if (key != U'\r') return;
    key = 0;
    if (auto* search = dynamic_cast<screen::Button*>(form_.field(button))) search->onPress();
}

}  // namespace zelvo::input
