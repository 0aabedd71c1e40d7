#include "platform/qt/GridEditor.h"

#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <algorithm>
#include <utility>

#include "basics/Utf8.h"
#include "platform/qt/GridDelegate.h"
#include "platform/qt/Keys.h"
#include "platform/qt/Readers.h"
#include "platform/qt/Texts.h"
#include "screen/Grid.h"
#include "screen/Window.h"

namespace zelvo::qt {

namespace {

constexpr int leastWidth = 180;

}  // namespace

GridEditor::GridEditor(QWidget& table, QWidget& glass) : QLineEdit(&glass) {
    setFrame(false);
    setFocusPolicy(Qt::NoFocus);
    setFocusProxy(&table);
    setContextMenuPolicy(Qt::NoContextMenu);
    // With the line's own two pixels its text stands where the cell's does.
    setTextMargins(GridDelegate::edge - 2, 0, GridDelegate::edge - 2, 0);
    hide();
    connect(this, &QLineEdit::textEdited, this, &GridEditor::tellText);
}

void GridEditor::open(int column) {
    column_ = column;
    const bool right = grid_->column(column).alignRight;
    setAlignment((right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    setText(qtText(grid_->editText()));
    show();
}

void GridEditor::placeOver(const QRect& cell) {
    QRect room = cell;
    if (grid_->column(column_).maxLength == 0 && room.width() < leastWidth) {
        room.setWidth(std::min(leastWidth, parentWidget()->width()));
        room.moveLeft(std::clamp(cell.left(), 0, parentWidget()->width() - room.width()));
    }
    setGeometry(room);
}

void GridEditor::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Active, QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void GridEditor::close() {
    blink(false);
    hide();
    clear();
}

void GridEditor::blink(bool on) {
    QFocusEvent focus(on ? QEvent::FocusIn : QEvent::FocusOut, Qt::OtherFocusReason);
    if (on) {
        focusInEvent(&focus);
    } else {
        focusOutEvent(&focus);
    }
}

/// Only what differs is put in anew, so that the line's own undo still has its steps.
void GridEditor::showText() {
    if (composing_) return;
    const QString wanted = qtText(grid_->editText()), shown = text();
    if (wanted == shown) return;
    const auto [from, to] = std::mismatch(shown.begin(), shown.end(), wanted.begin(), wanted.end());
    const qsizetype head = from - shown.begin(), most = std::min(shown.size(), wanted.size()) - head;
    qsizetype tail = 0;
    while (tail < most && shown.at(shown.size() - 1 - tail) == wanted.at(wanted.size() - 1 - tail)) ++tail;
    const bool nested = std::exchange(showing_, true);
    setSelection(static_cast<int>(head), static_cast<int>(shown.size() - head - tail));
    insert(wanted.mid(head, wanted.size() - head - tail));
    showing_ = nested;
}

void GridEditor::tellText(const QString& text) {
    if (showing_ || !grid_->editing()) return;
    grid_->window().userInput([this, text = utf8(text)] { grid_->userEdit(text); });
}

void GridEditor::takeKey(QKeyEvent& event) {
    screen::Window& window = grid_->window();
    const auto key = modelKey(event);
    if (!key) {
        keyPressEvent(&event);
        return;
    }
    switch (key->code) {
        case screen::keys::enter:
        case screen::keys::escape:
        case screen::keys::tab:
        case screen::keys::up:
        case screen::keys::down:
            window.userKey(*key);
            break;
        default:
            if (key->character >= U' ') {
                type(*key);
            } else if (window.userKeyHeard(*key) && isOpen()) {
                keyPressEvent(&event);
            }
    }
    event.accept();
    window.desktop().deliverKeys();
}

void GridEditor::type(const screen::Key& key) {
    screen::Window& window = grid_->window();
    const std::string before = grid_->editText();
    const bool replaces = hasSelectedText();
    if (!grid_->editing() || atEnd()) {
        window.userKey(key);
    } else if (window.userKeyHeard(key) && grid_->editing() && hasRoom()) {
        insert(qtText(basics::toUtf8(key.character)));
    }
    if (!replaces && grid_->editing() && grid_->editText() == before) speakRefusal(*this, key);
}

bool GridEditor::hasRoom() const {
    const std::size_t limit = grid_->column(column_).maxLength;
    return limit == 0 || hasSelectedText() || charactersIn(text(), text().size()) < limit;
}

void GridEditor::showPreedit(const QInputMethodEvent& event) {
    composing_ = !event.preeditString().isEmpty();
    QInputMethodEvent part(event.preeditString(), event.attributes());
    inputMethodEvent(&part);
}

}  // namespace zelvo::qt
