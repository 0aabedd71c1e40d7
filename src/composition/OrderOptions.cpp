#include "composition/OrderOptions.h"

#include <string>

#include "basics/Numbers.h"
#include "composition/frmMessage.h"
#include "composition/modHanYakGuk.h"
#include "data/clsZELVORecordSet.h"

namespace zelvo::composition {

namespace {

constexpr screen::Color darkBlue{0, 0, 192};

using Columns = std::vector<screen::GridColumn>;

screen::GridColumn shownColumn(const char* caption, double width, bool button = false) {
    return {.caption = caption, .button = button, .width = width};
}

screen::GridColumn choiceColumn(double width) {
    return {.caption = "선택", .button = true, .flag = true, .width = width};
}

screen::GridColumn hiddenColumn(const char* caption) {
    return {.caption = caption, .shown = false, .stops = false};
}

using Read = std::int16_t (data::clsZELVORecordSet::*)(data::Connection&, data::RecordSet&,
                                                       tables::XArrayDB&);

/// Fills an array from the catalogue and shows it. False when it can't be read: then it is empty.
bool load(session::Session& session, screen::Grid& grid, tables::XArrayDB& options, Read read, int lastColumn,
          const char* none) {
    options.reDim(-1, lastColumn);
    grid.bind(&options);
    data::RecordSet rows;
    data::clsZELVORecordSet records;
    const bool done = (records.*read)(session.connection(), rows, options) != -1;
    if (rows.isOpen()) rows.close();
    if (!done) {
        options.reDim(-1, lastColumn);
        return false;
    }
    grid.emptyHint = none;
    grid.refresh();
    return true;
}

void useStyle(screen::Grid& grid, const tables::XArrayDB& options, const char* name) {
    grid.onRowStyle.add([&options, name](int row, std::string& style) {
        // Between two refreshes the grid may ask for a row that is gone.
        if (row <= options.upperRow() && options.isTrue(row, option::selected)) style = name;
    });
}

int rowOf(const tables::XArrayDB& options, std::int32_t key) {
    return options.find(0, option::key, basics::decimalText(std::int64_t{key}));
}

bool standsOnRow(const screen::Grid& grid, const tables::XArrayDB& options) {
    return grid.onRow() && grid.currentRow() <= options.upperRow();
}

/// Enter takes the current row, where it is not chosen yet and `wanted`; it takes no choice back.
template <class Press, class Wanted>
void chooseOnEnter(screen::Grid& grid, const tables::XArrayDB& options, Press press, Wanted wanted) {
    grid.onKeyDown.add([&grid, &options, press, wanted](int code) {
        if (code != screen::keys::enter || !standsOnRow(grid, options) || !wanted()) return;
        if (!options.isTrue(grid.currentRow(), option::selected)) press(option::selected);
    });
}

}  // namespace

OrderOptions::OrderOptions(screen::Window& form, OrderFrames& frames, session::Session& session,
                           OrderWatch& watch)
    : tdbJobList(form, "tdbJobList", frames.c1eDrug.place(),
                 Columns{choiceColumn(1323), hiddenColumn("PK"), shownColumn("처방전(주문서)구분", 8758),
                         shownColumn("자세히", 529, true), hiddenColumn("메세지"),
                         hiddenColumn("약재Visiable"), hiddenColumn("탕전Visiable"), hiddenColumn("Order")}),
      tdbTJML(form, "tdbTJML", frames.c1eTangJun.inside(),
              Columns{choiceColumn(1402), hiddenColumn("PK"), shownColumn("탕전 방식", 3122),
                      shownColumn("자세히", 529, true), hiddenColumn("메세지"), hiddenColumn("Order")}),
      tdbTJAL(form, "tdbTJAL", frames.c1eTangJun.inside(),
              Columns{choiceColumn(1402), hiddenColumn("PK"), shownColumn("제형 변화", 2910),
                      shownColumn("자세히", 529, true), hiddenColumn("메세지"), hiddenColumn("Slot"),
                      hiddenColumn("Type"), hiddenColumn("Order")}),
      form_(form),
      frames_(frames),
      session_(session),
      watch_(watch) {
    tdbJobList.setCaption(" 처방전의 주문서를 선택하여 주십시오");
    tdbJobList.setLabel("처방전(주문서)구분");
    tdbTJML.setLabel("탕전 방식");
    tdbTJAL.setLabel("제형 변화");
    for (screen::Grid* grid : {&tdbJobList, &tdbTJML, &tdbTJAL}) {
        grid->allowsUpdate = false;
        grid->emptyHint = "한약국의 목록을 읽지 못하였습니다. 창을 닫고 다시 열어 주십시오.";
    }
    tdbJobList.onCellButton.add([this](int column) { pressJobList(column); });
    tdbTJML.onCellButton.add([this](int column) { pressTJML(column); });
    tdbTJAL.onCellButton.add([this](int column) { pressTJAL(column); });
    const auto always = [] { return true; };
    chooseOnEnter(
        tdbJobList, m_xaJobList, [this](int column) { pressJobList(column); }, always);
    chooseOnEnter(
        tdbTJML, m_xaTJML, [this](int column) { pressTJML(column); }, always);
    // None is a choice too here: only a row that the doctor has gone to is meant, not the one that was come
    // upon.
    tdbTJAL.onFocus.add([this] { arrivedAt_ = tdbTJAL.currentRow(); });
    chooseOnEnter(
        tdbTJAL, m_xaTJAL, [this](int column) { pressTJAL(column); },
        [this] { return tdbTJAL.currentRow() != arrivedAt_; });
    useStyle(tdbJobList, m_xaJobList, "styCBJselect");
    useStyle(tdbTJML, m_xaTJML, "styTJMLselect");
    useStyle(tdbTJAL, m_xaTJAL, "styTJALselect");
}

void OrderOptions::Form_Load() {
    tdbJobList.addStyle("styCBJselect", darkBlue);
    tdbTJML.addStyle("styTJMLselect", darkBlue);
    tdbTJAL.addStyle("styTJALselect", darkBlue);
}

void OrderOptions::Load_JobList() {
    if (load(session_, tdbJobList, m_xaJobList, &data::clsZELVORecordSet::RecordSet_JobList, 7,
             "한약국에 등록된 주문서가 없습니다."))
        pressJobList(0);
}

void OrderOptions::Load_TangJun() {
    load(session_, tdbTJML, m_xaTJML, &data::clsZELVORecordSet::RecordSet_TangJun, 5,
         "한약국에 등록된 탕전 방식이 없습니다.");
}

void OrderOptions::Load_TangJunAdd() {
    load(session_, tdbTJAL, m_xaTJAL, &data::clsZELVORecordSet::RecordSet_TangJunADD, 7,
         "한약국에 등록된 제형 변화가 없습니다.");
}

void OrderOptions::pressJobList(int column) {
    if (!standsOnRow(tdbJobList, m_xaJobList)) return;
    if (column != option::selected) {
        explain(tdbJobList, frames_.c1ePatient);
        return;
    }
    selectOnly(tdbJobList, m_xaJobList);
    const int row = tdbJobList.currentRow();
    frames_.c1eDrug.setVisible(m_xaJobList.isTrue(row, option::hasHerbs));
    frames_.c1eTangJun.setVisible(m_xaJobList.isTrue(row, option::hasDecoction));
    tdbJobList.commitEdit();
    remember(row, m_LastJobRow);
}

void OrderOptions::pressTJML(int column) {
    if (!standsOnRow(tdbTJML, m_xaTJML)) return;
    if (column != option::selected) {
        explain(tdbTJML, frames_.c1eCostConfirm);
        return;
    }
    selectOnly(tdbTJML, m_xaTJML);
    tdbTJML.commitEdit();
    remember(tdbTJML.currentRow(), m_LastTJMLRow);
}

void OrderOptions::pressTJAL(int column) {
    if (!standsOnRow(tdbTJAL, m_xaTJAL)) return;
    if (column != option::selected) {
        explain(tdbTJAL, frames_.c1eCostConfirm);
        return;
    }
    const int pressed = tdbTJAL.currentRow();
    const bool selected = m_xaTJAL.isTrue(pressed, option::selected);
    m_xaTJAL.set(pressed, option::selected, !selected);
    if (!selected) unselectSameType(pressed);
    tdbTJAL.refresh();
    watch_.priceOutdated();
    tdbTJAL.commitEdit();
}

void OrderOptions::chooseJobList(std::int32_t key) {
    unselectAll(m_xaJobList);
    if (moveTo(tdbJobList, m_xaJobList, key)) pressJobList(option::selected);
    tdbJobList.bind(&m_xaJobList);
}

void OrderOptions::chooseTJML(std::int32_t key) {
    unselectAll(m_xaTJML);
    if (moveTo(tdbTJML, m_xaTJML, key)) pressTJML(option::selected);
    tdbTJML.bind(&m_xaTJML);
}

std::vector<std::string> OrderOptions::chooseTJAL(const std::vector<std::int32_t>& keys) {
    unselectAll(m_xaTJAL);
    for (const std::int32_t key : keys) {
        if (moveTo(tdbTJAL, m_xaTJAL, key)) pressTJAL(option::selected);
    }
    tdbTJAL.bind(&m_xaTJAL);
    std::vector<std::string> leftOut;
    for (const std::int32_t key : keys) {
        const int row = rowOf(m_xaTJAL, key);
        if (row < 0 || !m_xaTJAL.isTrue(row, option::selected)) leftOut.push_back(addOnName(key));
    }
    return leftOut;
}

/// As the pharmacy calls it, whether it is still offered or not; its number where nobody can tell.
std::string OrderOptions::addOnName(std::int32_t key) const {
    const std::string number = basics::decimalText(std::int64_t{key});
    std::string name, message;
    if (session_.g_conYakGuk) {
        data::clsZELVORecordSet().RecordSet_CBJmTangJunAdd(*session_.g_conYakGuk, number, name, message);
    }
    return name.empty() ? number : name;
}

bool OrderOptions::moveTo(screen::Grid& grid, tables::XArrayDB& options, std::int32_t key) {
    const int row = rowOf(options, key);
    if (row >= 0) grid.setCurrentRow(row);
    return row >= 0;
}

void OrderOptions::unselectAll(tables::XArrayDB& options) {
    for (int row = options.lowerRow(); row <= options.upperRow(); ++row) {
        options.set(row, option::selected, false);
        form_.desktop().yield();
    }
}

void OrderOptions::selectOnly(screen::Grid& grid, tables::XArrayDB& options) {
    unselectAll(options);
    grid.refresh();
    options.set(grid.currentRow(), option::selected, true);
    grid.refreshRow(grid.currentRow());
}

void OrderOptions::unselectSameType(int pressed) {
    const std::string type = m_xaTJAL.text(pressed, option::type);
    for (int row = m_xaTJAL.lowerRow(); row <= m_xaTJAL.upperRow(); ++row) {
        if (row != pressed && m_xaTJAL.text(row, option::type) == type)
            m_xaTJAL.set(row, option::selected, false);
        form_.desktop().yield();
    }
}

void OrderOptions::remember(int row, int& last) {
    if (row == last) return;
    last = row;
    watch_.priceOutdated();
}

void OrderOptions::explain(const screen::Grid& grid, const screen::Panel& beside) {
    frmMessage message(form_.desktop());
    placeBeside(message, beside);
    message.read(grid.value(option::name), grid.value(option::message));
}

}  // namespace zelvo::composition
