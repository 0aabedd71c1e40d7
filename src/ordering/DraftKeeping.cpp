#include "ordering/DraftKeeping.h"

#include <algorithm>
#include <exception>

#include "basics/Dates.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "ordering/ClinicFolder.h"
#include "screen/Window.h"

namespace zelvo::ordering {

namespace {

namespace herb = composition::herb;
namespace modHanYakGuk = composition::modHanYakGuk;

// Two control characters, which no field takes.
constexpr const char *cellEnd = "\x1f", *rowEnd = "\x1e";
constexpr const char *herbs = "herbs", *packets = "txtChubsu";
constexpr int selectedColumn = 0, keyColumn = 1;

std::string packHerbs(const tables::XArrayDB& lines) {
    std::string packed;
    for (int row = 0; row <= lines.upperRow(); ++row) {
        if (row == lines.upperRow() && modHanYakGuk::isUnfilled(lines, row)) break;
        if (row > 0) packed += rowEnd;
        for (const int column : {herb::name, herb::key, herb::grams, herb::note}) {
            if (column != herb::name) packed += cellEnd;
            packed += lines.text(row, column);
        }
    }
    return packed;
}

std::vector<composition::HerbLine> unpackHerbs(const std::string& packed) {
    std::vector<composition::HerbLine> lines;
    if (packed.empty()) return lines;
    for (const std::string& row : basics::split(packed, rowEnd)) {
        std::vector<std::string> cells = basics::split(row, cellEnd);
        cells.resize(4);
        lines.push_back({cells[0], cells[1], cells[2], cells[3]});
    }
    return lines;
}

bool allComplete(const tables::XArrayDB& lines) {
    for (int row = 0; row <= lines.upperRow(); ++row) {
        if (lines.text(row, herb::state) != herb::complete) return false;
    }
    return true;
}

/// The keys of the selected rows, parted by commas.
std::string selectedKeys(const tables::XArrayDB& options) {
    std::vector<std::string> keys;
    for (int row = 0; row <= options.upperRow(); ++row) {
        if (options.isTrue(row, selectedColumn)) keys.push_back(options.text(row, keyColumn));
    }
    return basics::join(keys, ",");
}

std::vector<std::int32_t> keysOf(const std::string& text) {
    std::vector<std::int32_t> keys;
    for (const std::string& key : basics::split(text, ",")) {
        if (basics::IsNumeric(key)) keys.push_back(basics::toInt32(key));
    }
    return keys;
}

void choose(screen::ComboList& list, const std::string& entry) {
    for (int index = 0; index < list.entryCount(); ++index) {
        if (list.entry(index) == entry) return list.select(index);
    }
}

}  // namespace

DraftKeeping::DraftKeeping(screen::Window& form, screen::Place orderTab, OrderDraft& draft,
                           composition::OrderWatch& watch)
    : c1eDraft(form, "c1eDraft", orderTab),
      lblDraft(form, "lblDraft", c1eDraft.inside()),
      cmdDraftTake(form, "cmdDraftTake", c1eDraft.inside(), "이어서 작성"),
      cmdDraftDrop(form, "cmdDraftDrop", c1eDraft.inside(), "버리기"),
      form_(form),
      draft_(draft),
      watch_(watch),
      files_(form.desktop()) {
    c1eDraft.setVisible(false);
    // An offer is no stop on the way through the form.
    cmdDraftTake.setTabStop(false);
    cmdDraftDrop.setTabStop(false);
    cmdDraftTake.setTipText("보관된 처방전을 오늘의 약재 가격으로 불러옵니다.");
    cmdDraftDrop.setTipText("보관된 처방전을 지웁니다.");
    cmdDraftTake.onPress.add([this] { take(); });
    cmdDraftDrop.onPress.add([this] { drop(); });
    form_.onSettled.add([this] { keep(); });
    // The library merges several times within one press.
    draft_.herbs.onCompositionChanged.add([this] { keep(); });
    listComposition();
    listDelivery();
}

// In the order in which they can be put back: what a change of the one empties in the other comes later.
void DraftKeeping::listComposition() {
    composition::OrderOptions& options = draft_.options;
    addText(draft_.sheet.txtCBJmsg, Part::Composition);
    items_.push_back({"rtxEatGuide", Part::Composition, [this] { return draft_.sheet.rtxEatGuide.rtf(); },
                      [this](const std::string& rtf) { draft_.sheet.rtxEatGuide.setRtf(rtf); }});
    addText(draft_.sheet.txtEatGuideHosName, Part::Composition);
    addText(draft_.sheet.txtEatGuideCall, Part::Composition);
    addOption("tdbJobList", options.m_xaJobList, &composition::OrderOptions::chooseJobList);
    items_.push_back({herbs, Part::Composition, [this] { return packHerbs(draft_.lines()); },
                      [this](const std::string& packed) { draft_.herbs.loadLines(unpackHerbs(packed)); }});
    addText(draft_.dose.txtDayTuyak, Part::Composition);
    addText(draft_.dose.txtTuyakilsu, Part::Composition);
    addText(draft_.dose.txtPouchTotal, Part::Composition);
    addText(draft_.dose.txtPouchAmount, Part::Composition);
    addOption("tdbTJML", options.m_xaTJML, &composition::OrderOptions::chooseTJML);
    composition::LeftOut& leftOut = draft_.leftOut;
    items_.push_back({"lblLeftOut", Part::Note, [&leftOut] { return leftOut.text(); },
                      [&leftOut](const std::string& text) { leftOut.setText(text); }});
    items_.push_back({"tdbTJAL", Part::Composition, [&options] { return selectedKeys(options.m_xaTJAL); },
                      [&options, &leftOut](const std::string& keys) {
                          leftOut.tellAddOns(options.chooseTJAL(keysOf(keys)));
                      }});
    items_.push_back({packets, Part::Composition, [this] { return draft_.dose.txtChubsu.text(); },
                      [this](const std::string& text) {
                          // A herb that is no longer sold has to be replaced first.
                          if (allComplete(draft_.lines())) draft_.dose.txtChubsu.setText(text);
                      }});
}

void DraftKeeping::listDelivery() {
    composition::PatientDelivery& patient = draft_.patient;
    items_.push_back({"lblPatientPK", Part::Patient, [&patient] { return patient.lblPatientPK.caption(); },
                      [&patient](const std::string& key) { patient.lblPatientPK.setCaption(key); }});
    for (screen::TextField* const field : patient.texts()) addText(*field, Part::Patient);
    for (screen::TextField* const field : draft_.sender.texts()) addText(*field, Part::Clinic);
    for (screen::OptionButton* sex : {&patient.ssoSex0, &patient.ssoSex1}) {
        items_.push_back({sex->name(), Part::Patient, [sex] { return std::string(sex->value() ? "1" : ""); },
                          [sex](const std::string& set) { sex->setValue(!set.empty()); }});
    }
    const auto addList = [this](screen::ComboList& list, Part part) {
        items_.push_back({list.name(), part, [&list] { return list.text(); },
                          [&list](const std::string& entry) { choose(list, entry); }});
    };
    addList(patient.cboBesongMethod, Part::Patient);
    addList(draft_.payment.cboPaymentMethod, Part::Clinic);
    items_.push_back(
        {"dtpBesongDate", Part::Patient,
         [&patient] { return patient.chkBesongDate.value() ? patient.dtpBesongDate.text() : ""; },
         [&patient](const std::string& day) {
             const auto date = basics::parseDate(day);
             patient.chkBesongDate.setValue(date.has_value());
             if (date) patient.dtpBesongDate.setValue(*date);
         }});
}

void DraftKeeping::addText(screen::TextField& field, Part part) {
    items_.push_back({field.name(), part, [&field] { return field.text(); },
                      [&field](const std::string& text) { field.setText(text); }});
}

void DraftKeeping::addOption(const std::string& name, const tables::XArrayDB& options,
                             void (composition::OrderOptions::*chosen)(std::int32_t)) {
    items_.push_back({name, Part::Composition, [&options] { return selectedKeys(options); },
                      [this, chosen](const std::string& key) {
                          constexpr std::int32_t none = -1;  // no option bears it
                          (draft_.options.*chosen)(basics::IsNumeric(key) ? basics::toInt32(key) : none);
                      }});
}

void DraftKeeping::Form_Load() {
    try {
        files_.clearOld(basics::dateTimeText(basics::now()));
    } catch (const std::exception&) {
        noteFileTrouble(form_.desktop(), "old orders in the making");
    }
}

void DraftKeeping::begin() {
    const Texts now = read();
    const bool composing = keeping_ && composes(now), samePatient = keeping_ && isOfPatient(mine_);
    Texts given = now;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        const Part part = items_[i].part;
        if ((part == Part::Composition && composing) || (part == Part::Patient && samePatient))
            given[i] = given_[i];
    }
    DraftFiles::Held former = std::exchange(own_, {});
    keeping_ = draft_.session.m_DTRPK != 0 && draft_.session.g_conYakGuk != nullptr;
    if (!keeping_) return;
    mine_ = {.DTR_PK = draft_.session.m_DTRPK,
             .Patient_PK = basics::toInt32(draft_.patient.lblPatientPK.caption()),
             .patientName = draft_.patient.txtPatientName.text(),
             .server = draft_.session.connection().server,
             .keptAt = {},
             .texts = {}};
    given_ = settled_ = std::move(given);
    keep();
    try {
        if (former.hold) files_.remove(former);
    } catch (const std::exception&) {
        // It will be offered once more.
    }
    offer();
}

bool DraftKeeping::isOfPatient(const KeptDraft& draft) const {
    return basics::decimalText(std::int64_t{draft.Patient_PK}) == draft_.patient.lblPatientPK.caption();
}

/// Whether the composition needs keeping.
bool DraftKeeping::composes(const Texts& now) const {
    for (std::size_t i = 0; i < items_.size(); ++i) {
        if (items_[i].part == Part::Composition && now[i] != settled_[i]) return true;
    }
    return false;
}

void DraftKeeping::sent() {
    if (!keeping_) return;
    settled_ = read();
    keep();
}

DraftKeeping::Texts DraftKeeping::read() const {
    Texts texts;
    texts.reserve(items_.size());
    for (const Item& item : items_) texts.push_back(item.read());
    return texts;
}

/// The composition whole, and what else differs from the chart's values.
KeptDraft::Texts DraftKeeping::toKeep(const Texts& now) const {
    KeptDraft::Texts kept;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        const Item& item = items_[i];
        if (item.part == Part::Composition || now[i] != given_[i]) kept[item.name] = now[i];
    }
    return kept;
}

void DraftKeeping::keep() {
    // After a login that failed the order is nobody's.
    if (!keeping_ || form_.closing() || draft_.session.m_DTRPK != mine_.DTR_PK) return;
    try {
        keepOrDrop(read());
    } catch (const std::exception&) {
        tellUnkept();
    }
}

/// What was kept last is known by its texts: an input that changed nothing of the order writes nothing. A
/// corrected address alone is no order in the making.
void DraftKeeping::keepOrDrop(const Texts& now) {
    KeptDraft::Texts kept = composes(now) ? toKeep(now) : KeptDraft::Texts();
    if (kept == mine_.texts) return;
    if (kept.empty()) {
        if (own_.hold) files_.remove(own_);
        mine_.texts.clear();
    } else {
        if (!own_.hold) own_ = files_.make(mine_);
        KeptDraft draft = mine_;
        draft.texts = std::move(kept);
        draft.keptAt = basics::dateTimeText(basics::now());
        files_.write(own_, draft);
        mine_ = std::move(draft);
    }
    if (std::exchange(failed_, false) && shown_.empty()) c1eDraft.setVisible(false);
}

/// The order itself is in order; that it is not kept is told once, in a line. Called where the fault is
/// caught.
void DraftKeeping::tellUnkept() {
    if (std::exchange(failed_, true)) return;
    noteFileTrouble(form_.desktop(), "order in the making");
    if (!shown_.empty()) return;
    lblDraft.setCaption("작성 중인 처방전을 이 컴퓨터에 보관하지 못하고 있습니다.");
    cmdDraftTake.setVisible(false);
    cmdDraftDrop.setVisible(false);
    c1eDraft.setVisible(true);
}

/// The newest draft that no session holds, if there is one.
void DraftKeeping::offer() {
    shown_.clear();
    std::vector<DraftFiles::Found> found;
    try {
        found = files_.of(mine_);
    } catch (const std::exception&) {
        // Nothing to offer.
    }
    c1eDraft.setVisible(!found.empty());
    cmdDraftTake.setVisible(!found.empty());
    cmdDraftDrop.setVisible(!found.empty());
    if (found.empty()) return;
    const KeptDraft& newest = found.front().draft;
    shown_ = found.front().name;
    const auto lines = newest.texts.find(herbs);
    const std::size_t count = lines == newest.texts.end() ? 0 : unpackHerbs(lines->second).size();
    lblDraft.setCaption("이 환자의 작성 중이던 처방전이 있습니다. (" +
                        ageText(newest.keptAt, basics::dateTimeText(basics::now())) + ", 약재 " +
                        basics::decimalText(static_cast<std::int64_t>(count)) + "가지)");
}

/// What stands on the screen now stays kept as a draft of its own, and is offered next.
void DraftKeeping::take() {
    std::vector<DraftFiles::Found> found = files_.of(mine_);
    const auto taken = std::find_if(found.begin(), found.end(),
                                    [this](const DraftFiles::Found& one) { return one.name == shown_; });
    std::optional<DraftFiles::Held> held = files_.hold(shown_);
    if (taken == found.end() || !held) return offer();
    const screen::BusyPointer busy(form_.desktop(), "보관된 처방전을 불러오는 중입니다.");
    draft_.dose.txtChubsu.setText("");  // priced anew by what comes in
    watch_.priceOutdated();
    restore(taken->draft.texts);
    own_ = std::move(*held);
    mine_.texts = toKeep(read());
    offer();
    draft_.herbs.tdbDGL.setFocus();
}

void DraftKeeping::drop() {
    try {
        if (auto held = files_.hold(shown_)) files_.remove(*held);
    } catch (const std::exception& fault) {
        form_.desktop().alarm(fault.what(), cmdDraftDrop.caption());
        return;
    }
    offer();
}

void DraftKeeping::restore(const KeptDraft::Texts& texts) {
    for (std::size_t i = 0; i < items_.size(); ++i) {
        const Item& item = items_[i];
        const auto kept = texts.find(item.name);
        const std::string& text = kept != texts.end() ? kept->second : given_[i];
        if (text != item.read()) item.put(text);
    }
}

}  // namespace zelvo::ordering
