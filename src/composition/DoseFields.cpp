#include "composition/DoseFields.h"

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Pictures.h"
#include "basics/Text.h"
#include "composition/modHanYakGuk.h"

namespace zelvo::composition {

namespace {

/// Every assignment that changes nothing ends a cascade, so a field without blanks is left alone.
void removeBlanks(screen::TextField& field) {
    if (field.text().find(' ') != std::string::npos) field.setText(basics::removeBlanks(field.text()));
}

/// The amount of a herb line in won, whoever wrote the cell.
std::int32_t amountOf(const tables::XArrayDB& herbs, int row) {
    const std::string_view text = herbs.textView(row, herb::amount);
    return text.empty() ? basics::toInt32(herbs.text(row, herb::amount)) : basics::toInt32(text);
}

/// A number that has only its point yet: the doctor is still typing.
bool isBegun(const screen::TextField& field) {
    return field.text() == ".";
}

bool isSound(const tables::XArrayDB& herbs, int row) {
    const std::string_view state = herbs.textView(row, herb::state);
    return state.empty() ? herbs.text(row, herb::state) == herb::complete : state == herb::complete;
}

}  // namespace

DoseFields::DoseFields(screen::Window& form, OrderFrames& frames, session::Session& session, HerbTable& herbs,
                       OrderWatch& watch)
    : txtChubsu(form, "txtChubsu", frames.c1eDrug.inside()),
      txtDrugPrice(form, "txtDrugPrice", frames.c1eDrug.inside()),
      txtDayTuyak(form, "txtDayTuyak", frames.c1eTangJun.inside()),
      txtTuyakilsu(form, "txtTuyakilsu", frames.c1eTangJun.inside()),
      txtPouchTotal(form, "txtPouchTotal", frames.c1eTangJun.inside()),
      txtPouchAmount(form, "txtPouchAmount", frames.c1eTangJun.inside()),
      form_(form),
      session_(session),
      herbs_(herbs),
      watch_(watch) {
    dressFields();
    txtChubsu.onChange.add([this] { repriceHerbs(); });
    txtChubsu.onFocus.add([this] { Chubsu_Focus(); });
    txtTuyakilsu.onChange.add(
        [this] { pouchFactorChanged(txtTuyakilsu, txtDayTuyak, "[복용일]을 숫자로 입력해 주십시오."); });
    txtDayTuyak.onChange.add([this] {
        pouchFactorChanged(txtDayTuyak, txtTuyakilsu, "[1일 복용 팩수]를 숫자로 입력해 주십시오.");
    });
    txtPouchAmount.onChange.add([this] {
        pouchFieldChanged(txtPouchAmount, m_LastPouchAmount, "[1팩 용량]을 숫자로 입력해 주십시오.");
    });
    txtPouchTotal.onChange.add([this] {
        pouchFieldChanged(txtPouchTotal, m_LastPouchTotal, "[총파우치]를 숫자로 입력해 주십시오.");
    });
    herbs_.onCompositionChanged.add([this] { emptyPrice(); });
}

void DoseFields::dressFields() {
    struct Dress {
        screen::TextField& field;
        const char* label;
        std::size_t maxLength;
    };
    for (const Dress& dress : {Dress{txtChubsu, "첩수:", 3}, Dress{txtDrugPrice, "약재가격:", 0},
                               Dress{txtTuyakilsu, "복용일:", 3}, Dress{txtDayTuyak, "1일 복용팩수:", 5},
                               Dress{txtPouchAmount, "1팩용량:", 4}, Dress{txtPouchTotal, "총파우치:", 5}}) {
        dress.field.setLabel(dress.label);
        dress.field.setMaxLength(dress.maxLength);
        dress.field.alignRight = true;
    }
    txtDrugPrice.setReadOnly(true);
    // Without herbs the packets send the focus back to the table, which no Tab could leave then.
    txtChubsu.passedOver = [this] { return !herbs_.hasLines(); };
}

void DoseFields::repriceHerbs() {
    try {
        priceHerbs();
    } catch (const basics::Fault& fault) {
        form_.desktop().alarm(fault.what(), "약재가격 계산 오류");
        txtDrugPrice.setText("");
        txtChubsu.setFocus();
        watch_.priceOutdated();
    }
}

void DoseFields::priceHerbs() {
    removeBlanks(txtChubsu);
    txtDrugPrice.setText("");
    if (txtChubsu.text().empty()) {
        watch_.priceOutdated();
        return;
    }
    if (!basics::IsNumeric(txtChubsu.text())) {
        refuse(txtChubsu, "[첩수]를 숫자로 입력해 주십시오.", "처방전 약재구성");
        watch_.priceOutdated();
        return;
    }
    std::int32_t sum = 0;
    if (!sumHerbs(sum)) {
        emptyPrice();
        watch_.priceOutdated();
        return;
    }
    // What ran between the rows may have emptied the field; its own reaction has then done all there is to
    // do.
    if (txtChubsu.text().empty()) return;
    const std::int32_t packets = basics::toInt32(txtChubsu.text());
    const std::int32_t price = basics::multiplyChecked(packets, sum);
    txtDrugPrice.setText(basics::formatNumber(price, basics::NumberPicture::Separated));
    txtDrugPrice.caretToEnd();
    txtChubsu.setText(basics::decimalText(std::int64_t{packets}));
    if (txtDrugPrice.text() == m_LastDrugPrice) return;
    m_LastDrugPrice = txtDrugPrice.text();
    watch_.priceOutdated();
}

/// The won of one packet. False at the first herb line that is not sound, which is then current and has been
/// told of.
bool DoseFields::sumHerbs(std::int32_t& sum) {
    const tables::XArrayDB& herbs = session_.g_xaDrug;
    screen::Desktop& desktop = form_.desktop();
    for (int row = herbs.lowerRow(); row <= herbs.upperRow(); ++row) {
        if (!isSound(herbs, row)) {
            herbs_.tdbDGL.setCurrentRow(row);
            desktop.alarm("약재정보를 다시 확인바랍니다.", "처방전 약재구성");
            herbs_.tdbDGL.setFocus();
            return false;
        }
        sum = basics::addChecked(sum, amountOf(herbs, row));
        desktop.yield();
    }
    return true;
}

void DoseFields::Chubsu_Focus() {
    if (!session_.g_xaDrug.empty()) {
        herbs_.tdbDGL.commitEdit();
        return;
    }
    form_.desktop().inform("약재를 구성하여 주십시오.", "약재 정보");
    emptyPrice();
    herbs_.tdbDGL.setFocus();
}

void DoseFields::emptyPrice() {
    txtChubsu.setText("");
    txtDrugPrice.setText("");
}

/// Days of treatment and packs a day: each makes the pouch count anew with the other.
void DoseFields::pouchFactorChanged(screen::TextField& field, const screen::TextField& other,
                                    const char* message) {
    txtPouchTotal.setText("");
    removeBlanks(field);
    if (field.text().empty() || isBegun(field)) return;
    if (!basics::IsNumeric(field.text())) {
        refuse(field, message, "탕전 정보");
        return;
    }
    if (!basics::IsNumeric(other.text())) return;
    const float pouches = basics::toSingle(txtTuyakilsu.text()) * basics::toSingle(txtDayTuyak.text());
    txtPouchTotal.setText(basics::decimalText(pouches));
}

void DoseFields::pouchFieldChanged(screen::TextField& field, std::string& last, const char* message) {
    removeBlanks(field);
    if (field.text().empty() || isBegun(field)) {
        watch_.priceOutdated();
        return;
    }
    if (!basics::IsNumeric(field.text())) {
        refuse(field, message, "탕전 정보");
        watch_.priceOutdated();
        return;
    }
    if (field.text() == last) return;
    last = field.text();
    watch_.priceOutdated();
}

void DoseFields::refuse(screen::TextField& field, const char* message, const char* caption) {
    form_.desktop().inform(message, caption);
    field.setText("");
    field.setFocus();
}

}  // namespace zelvo::composition
