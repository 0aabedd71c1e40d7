#include <QtGui/QClipboard>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QHeaderView>
#include <algorithm>
#include <array>

#include "platform/qt/GridDelegate.h"
#include "platform/qt/GridEditor.h"
#include "platform/qt/GridMenu.h"
#include "platform/qt/GridModel.h"
#include "platform/qt/GridView.h"
#include "platform/qt/Keys.h"
#include "platform/qt/Texts.h"
#include "screen/Grid.h"
#include "screen/Window.h"

// What the user does to the table: keys, compositions, the pointer.
namespace zelvo::qt {

namespace {

bool isKey(const QKeyEvent& event, int key, Qt::KeyboardModifiers held = Qt::NoModifier) {
    return event.key() == key && (event.modifiers() & ~Qt::KeypadModifier) == held;
}

}  // namespace

void GridView::keyPressEvent(QKeyEvent* event) {
    if (!grid_) return;
    // Keys that came faster than the drawing find the line open or closed as the grid has it.
    if (grid_->editing() != editor_->isOpen()) showGrid();
    passRows(*event);
    if (specialKey(*event)) {
        event->accept();
        return;
    }
    if (editor_->isOpen()) {
        editor_->takeKey(*event);
        showGrid();
        return;
    }
    const auto key = modelKey(*event);
    if (!key) {
        event->ignore();
        return;
    }
    event->accept();
    tell([&] { grid_->window().userKey(*key); });
}

void GridView::keyReleaseEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat()) restOnRow();
    QTableView::keyReleaseEvent(event);
}

/// A key that is held down runs over rows: only the one that it rests on is told.
void GridView::passRows(const QKeyEvent& event) {
    constexpr int rest = 150;
    if (!event.isAutoRepeat()) return restOnRow();
    grid_->setPassing(true);
    passing_.start(rest);
}

void GridView::restOnRow() {
    passing_.stop();
    if (grid_ && grid_->passing()) tell([this] { grid_->setPassing(false); });
}

/// Keys that the screen model has no word for.
bool GridView::specialKey(const QKeyEvent& event) {
    if (turnsPage(event) || pressesButton(event)) return true;
    if (isKey(event, Qt::Key_F10, Qt::ShiftModifier)) {
        openMenu();
        return true;
    }
    if (editor_->isOpen()) return false;
    if (isKey(event, Qt::Key_F2)) {
        edit();
        return true;
    }
    if (event.matches(QKeySequence::Paste)) {
        paste();
        return true;
    }
    if (marksRows(event)) return true;
    if (event.matches(QKeySequence::Copy)) {
        grid_->userCopy();
        return true;
    }
    if (!isKey(event, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier)) return false;
    grid_->userCopyCell();
    return true;
}

/// Shift with the keys that move takes rows together for a copy, the cursor stays; Ctrl+A takes all.
bool GridView::marksRows(const QKeyEvent& event) {
    if (event.matches(QKeySequence::SelectAll)) {
        tell([this] { grid_->userMarkAll(); });
        return true;
    }
    if (!grid_->onRow()) return false;
    const screen::Grid::Rows marked = grid_->markedRows();
    const int far = marked.first < grid_->currentRow() ? marked.first : marked.last;
    const std::pair<int, int> steps[] = {
        {Qt::Key_Up, -1}, {Qt::Key_Down, 1}, {Qt::Key_PageUp, -pageRows()}, {Qt::Key_PageDown, pageRows()}};
    for (const auto& [key, step] : steps) {
        if (!isKey(event, key, Qt::ShiftModifier)) continue;
        const int row = std::clamp(far + step, 0, grid_->rowCount() - 1);
        tell([&] { grid_->userMark(row); });
        scrollTo(model_->index(row, shownColumn(0)));
        return true;
    }
    return false;
}

int GridView::pageRows() const {
    return std::max(1, viewport()->height() / verticalHeader()->defaultSectionSize() - 1);
}

bool GridView::turnsPage(const QKeyEvent& event) {
    if (!grid_->onRow()) return false;
    const int page = pageRows();
    int row = grid_->currentRow();
    if (isKey(event, Qt::Key_PageUp)) {
        row -= page;
    } else if (isKey(event, Qt::Key_PageDown)) {
        row += page;
    } else if (isKey(event, Qt::Key_Home, Qt::ControlModifier) && !editor_->isOpen()) {
        row = 0;
    } else if (isKey(event, Qt::Key_End, Qt::ControlModifier) && !editor_->isOpen()) {
        row = grid_->rowCount() - 1;
    } else {
        return false;
    }
    row = std::clamp(row, 0, grid_->rowCount() - 1);
    if (row == grid_->currentRow()) return true;
    tell([&] {
        if (!grid_->userCell(row, grid_->currentColumn())) grid_->userRow(row);
    });
    return true;
}

/// F4, Alt+Down and Ctrl+Enter press the button of the current cell, or the only one of its row; so does a
/// blank where nothing can be typed, and there it takes the row's choice, too.
bool GridView::pressesButton(const QKeyEvent& event) {
    int column = -1;
    if (isKey(event, Qt::Key_F4) || isKey(event, Qt::Key_Down, Qt::AltModifier) ||
        isKey(event, Qt::Key_Return, Qt::ControlModifier) ||
        isKey(event, Qt::Key_Enter, Qt::ControlModifier)) {
        column = buttonColumn();
    } else if (isKey(event, Qt::Key_Space) && !editor_->isOpen() && textColumn() < 0) {
        column = buttonColumn();
        if (column != grid_->currentColumn()) column = choiceColumn();
        if (column >= 0 && !grid_->window().userKeyHeard(screen::Key::typed(U' '))) return true;
    }
    if (column < 0) return false;
    tell([&] { grid_->userCellButton(column); });
    return true;
}

int GridView::buttonColumn() const {
    int only = -1, buttons = 0;
    for (int i = 0; i < grid_->columnCount(); ++i) {
        if (!grid_->column(i).button || !grid_->onGlass(i)) continue;
        if (i == grid_->currentColumn()) return i;
        only = i;
        ++buttons;
    }
    return buttons == 1 ? only : -1;
}

int GridView::choiceColumn() const {
    for (int i = 0; i < grid_->columnCount(); ++i)
        if (grid_->column(i).button && grid_->onGlass(i) && holdsChoice(*grid_, i)) return i;
    return -1;
}

/// The column that a typed character goes to; -1 where nothing can be typed.
int GridView::textColumn() const {
    if (!grid_->allowsUpdate || !grid_->onRow()) return -1;
    const auto stops = [this](int column) { return grid_->onGlass(column) && grid_->column(column).stops; };
    int column = grid_->currentColumn();
    if (!stops(column)) {
        column = 0;
        while (column < grid_->columnCount() && !stops(column)) ++column;
    }
    return column < grid_->columnCount() && grid_->column(column).editable ? column : -1;
}

/// Opens the current cell with what stands in it.
void GridView::edit() {
    if (grid_->editing() || textColumn() != grid_->currentColumn()) return;
    tell([this] {
        grid_->window().userInput([this] { grid_->userEdit(grid_->value(grid_->currentColumn())); });
    });
}

/// The menu of the rows, where the pointer is or at the current one.
void GridView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (!grid_) return;
    if (event->reason() == QContextMenuEvent::Keyboard) return openMenu();
    const QModelIndex index = indexAt(viewport()->mapFromGlobal(event->globalPos()));
    if (index.isValid() && !grid_->markedRows().hold(index.row())) goToCell(index);
    menu().openRows(event->globalPos());
}

void GridView::openMenu() {
    menu().openRows(viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()));
}

GridMenu GridView::menu() {
    return {*this, *grid_, [this](const std::function<void()>& act) { tell(act); }};
}

/// Opens the cell that a typed character would go to, with the first line of the clipboard in it.
void GridView::paste() {
    const int column = textColumn();
    QString line = QGuiApplication::clipboard()->text();
    const auto end = std::find_if(line.begin(), line.end(),
                                  [](QChar sign) { return sign.category() == QChar::Other_Control; });
    line.truncate(end - line.begin());
    if (column < 0 || line.isEmpty()) return;
    tell([&] {
        if (column != grid_->currentColumn()) grid_->userCell(grid_->currentRow(), column);
        grid_->window().userInput([&] { grid_->userEdit(utf8(line)); });
    });
}

/// What is finished is typed, so that the grid's listeners see each character; what is still being composed
/// stands in the open line.
void GridView::inputMethodEvent(QInputMethodEvent* event) {
    if (!grid_ || (event->replacementLength() > 0 && !editor_->isOpen())) return;
    event->accept();
    if (event->replacementLength() > 0) {
        editor_->takeAsItIs(*event);
        return;
    }
    if (!event->commitString().isEmpty()) {
        if (editor_->composing()) editor_->showPreedit(QInputMethodEvent());
        for (const char32_t character : event->commitString().toUcs4())
            tell([&] { editor_->type(screen::Key::typed(character)); });
    }
    const bool composes = !event->preeditString().isEmpty();
    if (composes && !grid_->editing()) openForComposition(event->preeditString());
    if (editor_->isOpen() && (composes || editor_->composing())) editor_->showPreedit(*event);
    showGrid();
}

/// A composition opens the cell as a key does, where the grid's listeners let its first sign pass.
void GridView::openForComposition(const QString& sign) {
    const int column = textColumn();
    if (column < 0) return;
    tell([&] {
        if (column != grid_->currentColumn()) grid_->userCell(grid_->currentRow(), column);
        const auto first = static_cast<char32_t>(sign.toUcs4().constFirst());
        if (!grid_->window().userKeyHeard(screen::Key::typed(first))) return;
        grid_->window().userInput([this] { grid_->userEdit({}); });
    });
}

QVariant GridView::inputMethodQuery(Qt::InputMethodQuery query) const {
    if (query == Qt::ImEnabled) return testAttribute(Qt::WA_InputMethodEnabled);
    if (!editor_->isOpen()) {
        if (query != Qt::ImCursorRectangle) return QTableView::inputMethodQuery(query);
        return visualRect(currentIndex()).translated(viewport()->pos());
    }
    QVariant answer = editor_->inputMethodQuery(query);
    if (answer.typeId() != QMetaType::QRect && answer.typeId() != QMetaType::QRectF) return answer;
    return answer.toRectF().translated(editor_->mapTo(this, QPoint(0, 0)));
}

void GridView::focusInEvent(QFocusEvent*) {
    if (grid_) showGrid();
    if (editor_->isOpen()) editor_->blink(true);
}

void GridView::focusOutEvent(QFocusEvent*) {
    if (editor_->isOpen()) editor_->blink(false);
    viewport()->update();
}

QModelIndex GridView::buttonAt(const QPoint& point) const {
    const QModelIndex index = indexAt(point);
    if (!index.isValid()) return {};
    const QRect target = delegate_->pressTarget(visualRect(index), index.row(), index.column());
    return target.contains(point) ? index : QModelIndex();
}

void GridView::setHot(const QModelIndex& index) {
    if (index == delegate_->hot) return;
    delegate_->hot = index;
    viewport()->update();
}

void GridView::setHeld(const QModelIndex& index) {
    delegate_->held = index;
    viewport()->update();
}

void GridView::mousePressEvent(QMouseEvent* event) {
    if (!grid_ || event->button() != Qt::LeftButton) return;
    const QPoint point = event->position().toPoint();
    const QModelIndex index = indexAt(point);
    if (!index.isValid()) {
        tell([this] { grid_->window().userInput([this] { grid_->commitEdit(); }); });
        return;
    }
    if (buttonAt(point).isValid()) {
        setHeld(index);
        return;
    }
    if (event->modifiers().testFlag(Qt::ShiftModifier) && grid_->onRow()) {
        tell([&] { grid_->userMark(index.row()); });
    } else {
        goToCell(index);
    }
}

void GridView::goToCell(const QModelIndex& index) {
    tell([&] {
        if (!grid_->userCell(index.row(), index.column())) grid_->userRow(index.row());
    });
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
    if (!grid_ || event->button() != Qt::LeftButton || delegate_->held.isValid()) return;
    const QModelIndex index = indexAt(event->position().toPoint());
    if (index.row() == grid_->currentRow() && index.column() == grid_->currentColumn()) edit();
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
    if (grid_) setHot(buttonAt(event->position().toPoint()));
}

/// A button is pressed where it is let go again.
void GridView::mouseReleaseEvent(QMouseEvent* event) {
    if (!grid_ || event->button() != Qt::LeftButton || !delegate_->held.isValid()) return;
    const QModelIndex held = delegate_->held;
    setHeld({});
    if (buttonAt(event->position().toPoint()) != held) return;
    tell([&] {
        grid_->userRow(held.row());
        if (grid_->currentRow() == held.row()) grid_->userCellButton(held.column());
    });
}

bool GridView::viewportEvent(QEvent* event) {
    if (grid_ && event->type() == QEvent::Leave) setHot({});
    return QTableView::viewportEvent(event);
}

}  // namespace zelvo::qt
