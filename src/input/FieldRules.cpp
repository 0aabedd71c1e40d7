#include "input/FieldRules.h"

#include <set>

#include "basics/Fault.h"
#include "basics/Text.h"
#include "basics/Utf8.h"
#include "input/modTelNumFormat.h"
#include "screen/Fields.h"
#include "screen/Grid.h"

namespace zelvo::input {

namespace {

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

/// Takes the blanks away. What is selected stays so, as much of it as is left: a key is about to replace it.
void dropBlanks(screen::TextField& field) {
    const std::string text = field.text();
    const auto left = [&](std::size_t characters) {
        return basics::characterCount(
            basics::removeBlanks(text.substr(0, basics::byteOffset(text, characters))));
    };
    const std::size_t start = left(field.selectionStart());
    const std::size_t end = left(field.selectionStart() + field.selectionLength());
    field.setText(basics::removeBlanks(text));
    field.select(start, end - start);
}

void pressOnEnter(screen::Button& button, char32_t& key) {
    if (key != U'\r') return;
    key = 0;
    button.onPress();
}

/// Whether Enter is for the field itself, as it stands: a new line behind what was written, a press, the next
/// cell.
bool usesEnter(const screen::Field& field) {
    using enum screen::FieldKind;
    switch (field.kind()) {
        case Combo:
        case List:
        case Check:
        case Option:
        case Date:
            return false;
        case Text: {
            const auto& text = static_cast<const screen::TextField&>(field);
            return text.multiLine() && !text.readOnly() && !text.text().empty();
        }
        case RichText:
            return !static_cast<const screen::RichTextField&>(field).locked();
        case Grid: {
            const auto& grid = static_cast<const screen::Grid&>(field);
            for (int column = 0; column < grid.columnCount(); ++column)
                if (grid.column(column).editable) return true;
            return false;
        }
        default:
            return true;
    }
}

/// Whether a rule says what Enter does.
bool rulesEnter(const FieldRule& rule) {
    return rule.typing != Typing::Anything || rule.enterOnKeyDown;
}

template <class Kind>
Kind& fieldNamed(const screen::Window& form, std::string_view name) {
    if (auto* const field = dynamic_cast<Kind*>(form.field(name))) return *field;
    throw basics::Fault(form.name() + " has no such field: " + std::string(name));
}

}  // namespace

const FieldTable& mainWindowFields() {
    using enum Entering;
    using enum Typing;
    static const FieldTable table{
        .rules = {{.entering = SelectAll,
                   .typing = Telephone,
                   .fields = {"txtPatientTel", "txtPatientCell", "txtHospitalTel", "txtDoctorCell",
                              "txtDTRcell", "txtDTRhostel", "txtEatGuideCall", "txtEatGuideCall2",
                              "txtCBJmPaTel", "txtCBJmPaCell", "txtCBJmDTRTel", "txtCBJmDTRCell"}},
                  {.entering = SelectAll,
                   .typing = NoSpaces,
                   .fields = {"txtBalsongZip", "txtCBJmBalZip", "txtCBJmBeZip", "txtDTRhoszip"}},
                  {.entering = SelectAll,
                   .typing = EnterMovesOn,
                   .fields = {"txtBesongZip",        "txtBalsongJuso",     "txtBesongJuso",
                              "txtPatientName",      "txtPatientJumin",    "txtPatientEmail",
                              "txtHospitalName",     "txtDoctor",          "txtEatGuideHosName",
                              "txtEatGuideHosName2", "txtCBJmAge",         "txtCBJmBeJuso",
                              "txtCBJmBesongDate",   "txtCBJmChubsu",      "txtCBJmDayTuyak",
                              "txtCBJmDrugCost",     "txtCBJmDTRName",     "txtCBJmHosPital",
                              "txtCBJmJobList",      "txtCBJmJumin",       "txtCBJmPaEmail",
                              "txtCBJmPatientName",  "txtCBJmPouchAmount", "txtCBJmPouchTotal",
                              "txtCBJmTJML",         "txtCBJmTuyakilsu",   "txtDTRaddress",
                              "txtDTRbox",           "txtDTRdiscount",     "txtDTREmail",
                              "txtDTRhosname",       "txtDTRid",           "txtDTRlicense",
                              "txtDTRmileage",       "txtDTRname",         "txtDTRpass",
                              "txtDTRpouch",         "txtDTRregdate",      "txtDTRuseform",
                              "txTotalStock",        "txtTotalMileage",    "txtTotalUsedStock",
                              "txtUsableStock"}},
                  {.entering = CaretToEnd,
                   .typing = EnterMovesOn,
                   .fields = {"txtCBJmBalJuso", "txtCBJmBesongMsg", "txtCBJmCBMsg"}},
                  {.entering = CaretToEnd, .fields = {"txtBesongMsg", "txtCBJmsg"}},
                  {.entering = SelectAll,
                   .typing = DigitsOnly,
                   .enterOnKeyDown = true,
                   .fields = {"txtPatientAge", "txtTuyakilsu", "txtPouchAmount", "txtChubsu"}},
                  {.entering = SelectAll,
                   .typing = Decimal,
                   .enterOnKeyDown = true,
                   .fields = {"txtDayTuyak", "txtPouchTotal"}},
                  {.entering = SelectAll, .enterOnKeyDown = true, .fields = {"txtDrugPrice"}},
                  {.typing = SearchOnEnter, .button = "sscCBJsearchDTR", .fields = {"txtCBJsearchDTR"}},
                  {.entering = SelectAll,
                   .typing = SearchOnEnter,
                   .button = "sscCBJsearchPatient",
                   .fields = {"txtCBJsearchPatient"}}},
        .hangul = {"txtBalsongJuso",  "txtBesongJuso",    "txtBesongMsg",        "txtCBJmBalJuso",
                   "txtCBJmBeJuso",   "txtCBJmBesongMsg", "txtCBJmCBMsg",        "txtCBJmDTRName",
                   "txtCBJmHosPital", "txtCBJmJobList",   "txtCBJmPatientName",  "txtCBJmTJML",
                   "txtCBJmsg",       "txtCBJsearchDTR",  "txtCBJsearchPatient", "txtDTRaddress",
                   "txtDTRhosname",   "txtDTRname",       "txtDoctor",           "txtHospitalName",
                   "txtPatientName"}};
    return table;
}

FieldRules::FieldRules(screen::Window& form, const FieldTable& table) : form_(form) {
    std::set<std::string_view> ruled;
    for (const FieldRule& rule : table.rules) {
        for (const std::string_view name : rule.fields) bind(fieldNamed<screen::TextField>(form, name), rule);
        if (rulesEnter(rule)) ruled.insert(rule.fields.begin(), rule.fields.end());
    }
    for (screen::Field* field : form.fields())
        if (!ruled.contains(field->name())) moveOnFrom(*field);
    for (const std::string_view name : table.hangul)
        fieldNamed<screen::TextField>(form, name).setHangul(true);
}

void FieldRules::bind(screen::TextField& field, const FieldRule& rule) {
    if (rule.entering == Entering::SelectAll) field.onFocus.add([&field] { SelectFieldText(field); });
    if (rule.entering == Entering::CaretToEnd)
        field.onFocus.add([this] { form_.desktop().sendKeys("{end}"); });
    if (rule.enterOnKeyDown) moveOnFrom(field);
    bindTyping(field, rule);
}

void FieldRules::moveOnFrom(screen::Field& field) {
    field.onKeyDown.add([this, &field](int& key) {
        if (!usesEnter(field)) EnterToTab(key);
    });
}

void FieldRules::bindTyping(screen::TextField& field, const FieldRule& rule) {
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
                dropBlanks(field);
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
            field.onKeyPress.add([&button = fieldNamed<screen::Button>(form_, rule.button)](char32_t& key) {
                pressOnEnter(button, key);
            });
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

}  // namespace zelvo::input
