#include "management/OrderSearch.h"

#include "basics/Dates.h"
#include "basics/Held.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "data/Words.h"
#include "data/clsZELVORecordSet.h"
#include "management/OrderSort.h"
#include "screen/Window.h"

namespace zelvo::management {

using data::OrdersBy;

/// What a search asks of the pharmacy.
struct OrderSearch::Condition {
    OrdersBy kind;
    std::string word = {}, from = {}, to = {};
};

/// An entry of a search list, and what choosing it searches.
struct OrderSearch::Choice {
    std::string_view entry;
    OrdersBy kind;
    const char* caption;
};

namespace {

enum Page { all, issueDate, doctor, patient, progress, delivery, payMethod, paid, canceled };

constexpr int keyColumn = 1, doctorColumn = 6, lastColumn = doctorColumn;
constexpr const char* searchCaption = "검색";
constexpr const char *unsearched = "위에서 검색하면 발행하신 처방전이 여기에 나타납니다.",
                     *unsearchedByNurse = "위에서 검색하면 담당의가 발행한 처방전이 여기에 나타납니다.",
                     *unnamed = "담당의사의 이름을 넣고 검색하여 주십시오.",
                     *unchosen = "찾을 조건을 목록에서 고르고 검색하여 주십시오.",
                     *noLogin = "로그인하신 후에 처방전을 찾을 수 있습니다.",
                     *noDoctors = "담당의가 없어 찾을 처방전이 없습니다.",
                     *unread = "처방전을 읽지 못하였습니다. 다시 검색하여 주십시오.",
                     *foundNone = "찾은 처방전이 없습니다.";

void addEntries(screen::ComboList& list, std::initializer_list<std::string_view> entries) {
    for (const std::string_view entry : entries) list.addEntry(entry);
}

std::vector<screen::GridColumn> listColumns() {
    return {{.caption = "NO", .width = 688},
            {.caption = "CBJ_PK", .shown = false},
            {.caption = "발행날짜", .width = 3493},
            {.caption = "환자명", .width = 1244},
            {.caption = " - ", .width = 741},
            {.caption = "주문서", .width = 1508},
            {.caption = "담당의", .shown = false, .width = 1111}};
}

}  // namespace

OrderSearch::OrderSearch(screen::Window& form, screen::Place managementTab, session::Session& session)
    : c1tCBJmanage(form, "c1tCBJmanage",
                   {"전체처방전", "발행날짜", "담당의사 ", "환자명", "진행상태", "배송방식", "지불방식",
                    "지불여부", "취소된 처방전"},
                   managementTab),
      sscCBJsearchALL(form, "sscCBJsearchALL", c1tCBJmanage.page(all), searchCaption),
      dtpCBJsearch0(form, "dtpCBJsearch(0)", c1tCBJmanage.page(issueDate)),
      dtpCBJsearch1(form, "dtpCBJsearch(1)", c1tCBJmanage.page(issueDate)),
      sscToday(form, "sscToday", c1tCBJmanage.page(issueDate), "오늘 날짜로 조정"),
      sscCBJsearchDate(form, "sscCBJsearchDate", c1tCBJmanage.page(issueDate), searchCaption),
      txtCBJsearchDTR(form, "txtCBJsearchDTR", c1tCBJmanage.page(doctor)),
      sscCBJsearchDTR(form, "sscCBJsearchDTR", c1tCBJmanage.page(doctor), searchCaption),
      txtCBJsearchPatient(form, "txtCBJsearchPatient", c1tCBJmanage.page(patient)),
      sscCBJsearchPatient(form, "sscCBJsearchPatient", c1tCBJmanage.page(patient), searchCaption),
      cboCBJstate(form, "cboCBJstate", c1tCBJmanage.page(progress)),
      sscCBJsearchState(form, "sscCBJsearchState", c1tCBJmanage.page(progress), searchCaption),
      cboCBJBesong(form, "cboCBJBesong", c1tCBJmanage.page(delivery)),
      sscCBJsearchBesong(form, "sscCBJsearchBesong", c1tCBJmanage.page(delivery), searchCaption),
      cboCBJPayMethod(form, "cboCBJPayMethod", c1tCBJmanage.page(payMethod)),
      sscCBJsearchPayment(form, "sscCBJsearchPayment", c1tCBJmanage.page(payMethod), searchCaption),
      cboCBJisPaid(form, "cboCBJisPaid", c1tCBJmanage.page(paid)),
      sscCBJsearchIsPay(form, "sscCBJsearchIsPay", c1tCBJmanage.page(paid), searchCaption),
      sscCBJcanceled(form, "sscCBJcanceled", c1tCBJmanage.page(canceled), searchCaption),
      cbodtrList(form, "cbodtrList", managementTab),
      tdbCBJ(form, "tdbCBJ", managementTab, listColumns()),
      form_(form),
      session_(session) {
    labelFields();
    listen();
    cbodtrList.setVisible(false);
    tdbCBJ.allowsUpdate = false;
    forget();
}

void OrderSearch::labelFields() {
    sscCBJsearchALL.setLabel("발행한 처방전 전체를 검색합니다.");
    dtpCBJsearch0.setLabel("발행한 날짜로 검색");
    dtpCBJsearch1.setLabel("발행한 날짜로 검색");
    txtCBJsearchDTR.setLabel("담당의사로 검색:");
    txtCBJsearchPatient.setLabel("환자명으로 검색:");
    cboCBJstate.setLabel("처방전 진행상태로 검색:");
    cboCBJBesong.setLabel("처방전 배송방식으로 검색:");
    cboCBJPayMethod.setLabel("처방전 지불방식으로 검색:");
    cboCBJisPaid.setLabel("처방전 지불여부로 검색:");
    sscCBJcanceled.setLabel("취소된 처방전을 검색합니다.");
}

void OrderSearch::listen() {
    using enum OrdersBy;
    static constexpr Choice states[] = {
        {data::state::words[0], Pending, "[대기]중인 처방전을 검색한 결과"},
        {data::state::words[1], Making, "[제작]중인 처방전을 검색한 결과"},
        {data::state::words[2], WaitingToGo, "[발송대기]중인 처방전을 검색한 결과"},
        {data::state::words[3], Finished, "[완료]된 처방전을 검색한 결과"}};
    static constexpr Choice payments[] = {{"미지불", Unpaid, "[미지불]된 처방전을 검색한 결과"},
                                          {"지 불", Paid, "[지불]완료된 처방전을 검색한 결과"}};
    static constexpr Choice methods[] = {
        {data::pay::deposit, Deposit, "[적립]으로 발행된 처방전을 검색한 결과"},
        {data::pay::later, PaidLater, "[후불]로 발행된 처방전을 검색한 결과"},
        {data::pay::settled, Settled, "[후불정산]으로 발행된 처방전을 검색한 결과"}};
    static constexpr Choice deliveries[] = {
        {"미 정", Undecided, "[미정]으로 발행한 처방전을 검색한 결과"},
        {"택배(환자)", Parcel, "[택배(환자)]로 발행한 처방전을 검색한 결과"},
        {"퀵(환자)", Courier, "[퀵(환자)]로 발행한 처방전을 검색한 결과"},
        {"한의원", Clinic, "[한의원]으로 발행한 처방전을 검색한 결과"}};
    sscCBJsearchALL.onPress.add(
        [this] { search("발행한 처방전 전체를 검색한 결과", {.kind = OrdersBy::Everything}); });
    sscCBJcanceled.onPress.add(
        [this] { search("[취소]된 처방전를 검색한 결과", {.kind = OrdersBy::Canceled}); });
    sscToday.onPress.add([this] { setToday(); });
    sscCBJsearchDate.onPress.add([this] { searchDate(); });
    sscCBJsearchDTR.onPress.add([this] { searchDoctor(); });
    sscCBJsearchPatient.onPress.add([this] { searchPatient(); });
    sscCBJsearchState.onPress.add([this] { searchChoice(cboCBJstate, states); });
    sscCBJsearchIsPay.onPress.add([this] { searchChoice(cboCBJisPaid, payments); });
    sscCBJsearchPayment.onPress.add([this] { searchChoice(cboCBJPayMethod, methods); });
    sscCBJsearchBesong.onPress.add([this] { searchChoice(cboCBJBesong, deliveries); });
    tdbCBJ.onHeadClick.add([this](int column) { sortBy(column); });
}

void OrderSearch::Form_Load() {
    setToday();
    for (const std::string_view word : data::state::words) cboCBJstate.addEntry(word);
    addEntries(cboCBJisPaid, {"미지불", "지 불"});
    addEntries(cboCBJPayMethod, {data::pay::deposit, data::pay::later, data::pay::settled});
    addEntries(cboCBJBesong, {"미 정", "택배(환자)", "퀵(환자)", "한의원"});
    c1tCBJmanage.select(issueDate);
    c1tCBJmanage.setSelectable(all, false);
}

void OrderSearch::Init_CBJGrid() {
    m_xaCBJ.reDim(-1, lastColumn);
    tdbCBJ.bind(&m_xaCBJ);
}

void OrderSearch::showDoctorColumn() {
    tdbCBJ.setColumnShown(doctorColumn, true);
    tdbCBJ.emptyHint = unsearchedByNurse;
    tdbCBJ.setColumnWidth(2, 1400);
    tdbCBJ.setColumnWidth(5, 1300);
}

void OrderSearch::setToday() {
    dtpCBJsearch0.setValue(basics::today());
    dtpCBJsearch1.setValue(basics::today());
}

void OrderSearch::searchDate() {
    const std::string from = dtpCBJsearch0.text(), to = dtpCBJsearch1.text();
    search("날짜 [" + from + "]~[" + to + "]로 검색한 결과",
           {.kind = OrdersBy::IssueDate, .from = from, .to = to});
}

void OrderSearch::searchDoctor() {
    const std::string& name = txtCBJsearchDTR.text();
    const std::string caption = "처방 담당의사[" + name + "]님으로 검색한 결과";
    if (!basics::isBlank(name)) return search(caption, {.kind = OrdersBy::DoctorName, .word = name});
    if (searching_) return;
    tdbCBJ.setCaption(caption);
    emptyList();
    tdbCBJ.emptyHint = unnamed;
}

void OrderSearch::searchPatient() {
    const std::string& name = txtCBJsearchPatient.text();
    if (basics::isBlank(name)) return;
    search("환자명[" + name + "]으로 검색한 결과", {.kind = OrdersBy::PatientName, .word = name});
}

void OrderSearch::searchChoice(const screen::ComboList& list, std::span<const Choice> choices) {
    for (const Choice& choice : choices) {
        if (choice.entry == list.text()) return search(choice.caption, {.kind = choice.kind});
    }
    if (searching_) return;
    emptyList();
    tdbCBJ.emptyHint = unchosen;
}

/// A search that comes while another one walks is dropped: the list holds the orders of one search only.
void OrderSearch::search(std::string_view caption, const Condition& condition) {
    if (searching_) return;
    const screen::BusyPointer busy(form_.desktop(), "처방전을 찾는 중입니다.");
    tdbCBJ.setCaption(caption);
    emptyList();
    const bool read = readOrders(condition);
    tdbCBJ.emptyHint = !hasDoctor() ? (session_.m_IsNurse ? noDoctors : noLogin) : read ? foundNone : unread;
    if (!read) return;
    tdbCBJ.refresh();
}

bool OrderSearch::hasDoctor() const {
    return session_.m_IsNurse ? !nursesDoctors().empty() : session_.m_DTRPK != 0;
}

/// False when the (last) read fails, as it does without a connection. A nurse's doctors share a trip.
bool OrderSearch::readOrders(const Condition& condition) {
    if (!session_.g_conYakGuk) return false;
    data::Connection& connection = *session_.g_conYakGuk;
    const basics::Held searching(searching_, true);
    if (!session_.m_IsNurse) return readDoctor(connection, m_xaCBJ, session_.m_DTRPK, condition) != -1;
    const std::vector<std::int32_t> doctors = nursesDoctors();
    const data::ReadAhead ahead(connection, [&](data::Connection& line) {
        tables::XArrayDB none;
        for (const std::int32_t doctor : doctors) readDoctor(line, none, doctor, condition);
    });
    std::int16_t last = 1;
    for (const std::int32_t doctor : doctors) last = readDoctor(connection, m_xaCBJ, doctor, condition);
    return last != -1;
}

std::vector<std::int32_t> OrderSearch::nursesDoctors() const {
    std::vector<std::int32_t> doctors;
    for (int i = 0; i < cbodtrList.entryCount(); ++i) {
        const std::string& entry = cbodtrList.entry(i);
        const std::size_t cut = entry.find('/');
        if (cut != std::string::npos)
            doctors.push_back(basics::toInt32(basics::numberFromStart(entry.substr(0, cut))));
    }
    return doctors;
}

std::int16_t OrderSearch::readDoctor(data::Connection& line, tables::XArrayDB& orders, std::int32_t DTR_PK,
                                     const Condition& condition) {
    data::RecordSet rows;
    return data::clsZELVORecordSet().RecordSet_CBJmInfo(line, rows, orders, condition.kind, DTR_PK,
                                                        condition.word, condition.from, condition.to);
}

void OrderSearch::forget() {
    tdbCBJ.setCaption(" 발행하신 처방전입니다.");
    emptyList();
}

void OrderSearch::emptyList() {
    tdbCBJ.markSorted(-1);
    tdbCBJ.emptyHint = tdbCBJ.column(doctorColumn).shown ? unsearchedByNurse : unsearched;
    m_xaCBJ.reDim(-1, lastColumn);
    tdbCBJ.refresh();
}

/// Sorts the list by a column, the other way round at the next click. The order that was current stays so.
void OrderSearch::sortBy(int column) {
    if (searching_ || tdbCBJ.rowCount() == 0) return;
    const screen::BusyPointer busy(form_.desktop());
    const bool descending = column == tdbCBJ.sortedColumn() && !tdbCBJ.sortedDescending();
    const std::string key = tdbCBJ.value(keyColumn);
    sortOrders(m_xaCBJ, column, descending);
    tdbCBJ.markSorted(column, descending);
    tdbCBJ.refresh();
    tdbCBJ.setCurrentRow(m_xaCBJ.find(0, keyColumn, key));
}

}  // namespace zelvo::management
