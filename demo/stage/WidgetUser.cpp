#include "WidgetUser.h"

#include <QtGui/QClipboard>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDateEdit>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTableView>
#include <array>

#include "basics/Dates.h"
#include "basics/Utf8.h"
#include "platform/qt/GridDelegate.h"
#include "platform/qt/Texts.h"
#include "screen/Fields.h"
#include "screen/TextField.h"

namespace zelvo::stage {

using console::ActionError;
using console::UnreadableError;

namespace {

struct NamedKey {
    const char* name;
    int key;
    const char* text;
};
constexpr std::array namedKeys{
    NamedKey{"Enter", Qt::Key_Return, "\r"},    NamedKey{"Esc", Qt::Key_Escape, "\x1b"},
    NamedKey{"Tab", Qt::Key_Tab, "\t"},         NamedKey{"Backspace", Qt::Key_Backspace, "\b"},
    NamedKey{"Delete", Qt::Key_Delete, "\x7f"}, NamedKey{"Up", Qt::Key_Up, ""},
    NamedKey{"Down", Qt::Key_Down, ""},         NamedKey{"Left", Qt::Key_Left, ""},
    NamedKey{"Right", Qt::Key_Right, ""},       NamedKey{"Home", Qt::Key_Home, ""},
    NamedKey{"End", Qt::Key_End, ""},
};

QWidget& keyTarget() {
    QWidget* const focus = QApplication::focusWidget();
    if (!focus) throw ActionError("no widget has the focus");
    return *focus;
}

void settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

/// A syllable grows in the field before it is finished.
void compose(const QString& character) {
    QInputMethodEvent growing(character, {});
    QCoreApplication::sendEvent(&keyTarget(), &growing);
    QInputMethodEvent finished;
    finished.setCommitString(character);
    QCoreApplication::sendEvent(&keyTarget(), &finished);
    // It was ended by a key that does nothing else.
    QKeyEvent ends(QEvent::KeyPress, Qt::Key_Hangul, Qt::NoModifier);
    QCoreApplication::sendEvent(&keyTarget(), &ends);
}

}  // namespace

void WidgetUser::pressKey(int key, Qt::KeyboardModifiers held, const QString& text) {
    QWidget& target = keyTarget();
    QKeyEvent down(QEvent::KeyPress, key, held, text);
    QCoreApplication::sendEvent(&target, &down);
    if (QWidget* const still = QApplication::focusWidget()) {
        QKeyEvent up(QEvent::KeyRelease, key, held, text);
        QCoreApplication::sendEvent(still, &up);
    }
    settle();
}

void WidgetUser::pressNamed(const std::string& name) {
    for (const NamedKey& known : namedKeys) {
        if (name == known.name) return pressKey(known.key, Qt::NoModifier, QString::fromLatin1(known.text));
    }
    if (basics::characterCount(name) != 1) throw UnreadableError("there is no key " + name);
    typeText(name);
}

void WidgetUser::typeText(const std::string& text) {
    for (const char32_t character : qt::qtText(text).toUcs4()) {
        const QString typed = QString::fromUcs4(&character, 1);
        if (character == U'\n' || character == U'\r') {
            pressNamed("Enter");
        } else if (character > 0x7f) {
            compose(typed);
            settle();
        } else {
            pressKey(typed.toUpper().at(0).unicode(), Qt::NoModifier, typed);
        }
    }
}

void WidgetUser::click(QWidget& widget, QPoint at) {
    const QPointF local(at), global(widget.mapToGlobal(at));
    QMouseEvent down(QEvent::MouseButtonPress, local, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &down);
    QMouseEvent up(QEvent::MouseButtonRelease, local, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &up);
    settle();
}

void WidgetUser::click(QWidget& widget) {
    click(widget, widget.rect().center());
}

QWidget& WidgetUser::widget(const screen::Field& field) const {
    QWidget* const found = shell_ ? shell_->binder().widgetOf(field) : nullptr;
    if (!found) throw ActionError(field.name() + " has no widget");
    settle();
    if (!found->isVisible()) throw ActionError(field.name() + " can't be seen");
    return *found;
}

QTableView& WidgetUser::view(const screen::Grid& grid) const {
    return dynamic_cast<QTableView&>(widget(grid));
}

void WidgetUser::enter(screen::Field& field) const {
    if (!field.takesFocus()) throw ActionError(field.name() + " does not take the focus");
    if (field.hasFocus()) return settle();
    // Held, so that a button is not pressed by it.
    QWidget& target = widget(field);
    if (auto* table = qobject_cast<QTableView*>(&target)) {
        table->setFocus(Qt::ShortcutFocusReason);
    } else if (field.kind() == screen::FieldKind::Text || field.kind() == screen::FieldKind::RichText) {
        click(target, QPoint(target.width() - 4, target.height() / 2));
    } else {
        target.setFocus(Qt::ShortcutFocusReason);
    }
    settle();
}

void WidgetUser::type(const std::string& field, const std::string& text) {
    screen::Field& target = reach(field);
    screen::Window& window = target.window();
    enter(target);
    const QString typed = qt::qtText(text).replace(QLatin1String("\r\n"), QLatin1String("\n"));
    for (const char32_t character : typed.toUcs4()) {
        if (!stillIn(window) || !target.hasFocus()) return;
        typeText(basics::toUtf8(character));
    }
}

void WidgetUser::key(const std::string& field, const std::vector<std::string>& names) {
    screen::Field& target = reach(field);
    screen::Window& window = target.window();
    enter(target);
    if (!target.hasFocus()) return;
    for (const std::string& name : names) {
        if (!stillIn(window)) return;
        pressNamed(name);
    }
}

void WidgetUser::paste(const std::string& field, const std::string& text) {
    auto& target = reachAs<screen::EditField>(field, "text field");
    enter(target);
    if (!target.hasFocus()) return;
    QGuiApplication::clipboard()->setText(qt::qtText(text));
    pressKey(Qt::Key_V, Qt::ControlModifier, QStringLiteral("\x16"));
}

void WidgetUser::focus(const std::string& field) {
    enter(reach(field));
}

void WidgetUser::choose(const std::string& field, const std::string& entry) {
    screen::Field& target = reach(field);
    if (auto* combo = qobject_cast<QComboBox*>(&widget(target))) {
        const int index = combo->findText(qt::qtText(entry));
        if (index < 0) throw ActionError(field + " has no entry \"" + entry + "\"");
        enter(target);
        combo->showPopup();
        settle();
        QAbstractItemView* const list = combo->view();
        list->setCurrentIndex(list->model()->index(index, 0));
        QKeyEvent enterKey(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(list, &enterKey);
        return settle();
    }
    auto* list = qobject_cast<QListWidget*>(&widget(target));
    if (!list) throw ActionError(field + " is no combo and no list");
    const auto items = list->findItems(qt::qtText(entry), Qt::MatchExactly);
    if (items.isEmpty()) throw ActionError(field + " has no entry \"" + entry + "\"");
    click(*list->viewport(), list->visualItemRect(items.front()).center());
}

void WidgetUser::check(const std::string& field, bool on) {
    screen::Field& target = reach(field);
    const auto value = [&target, &field] {
        if (const auto* check = dynamic_cast<const screen::CheckButton*>(&target)) return check->value();
        if (const auto* option = dynamic_cast<const screen::OptionButton*>(&target)) return option->value();
        throw ActionError(field + " is no check button and no option button");
    };
    QWidget& box = widget(target);
    for (int clicks = 0; clicks < 2 && value() != on; ++clicks) click(box, QPoint(8, box.height() / 2));
    if (value() != on) throw ActionError(field + (on ? " stays off" : " stays on") + " when it is clicked");
}

void WidgetUser::press(const std::string& field) {
    screen::Field& target = reach(field);
    if (target.kind() != screen::FieldKind::Button && target.kind() != screen::FieldKind::TwoState)
        throw ActionError(field + " is no button");
    click(widget(target));
}

void WidgetUser::tab(const std::string& field, int page) {
    const auto& tabs = reachAs<screen::TabControl>(field, "tab control");
    if (page < 0 || page >= tabs.pageCount())
        throw ActionError(field + " has no page " + std::to_string(page));
    if (!tabs.selectable(page))
        throw ActionError("page " + std::to_string(page) + " of " + field + " is not selectable");
    QTabBar* const bar = dynamic_cast<QTabWidget&>(widget(tabs)).tabBar();
    click(*bar, bar->tabRect(page).center());
}

void WidgetUser::date(const std::string& field, const std::string& yyyymmdd) {
    const auto day = basics::parseDate(yyyymmdd);
    if (!day) throw UnreadableError(yyyymmdd + " is no day");
    auto& target = reachAs<screen::DateField>(field, "date field");
    dynamic_cast<QDateEdit&>(widget(target)).setDate(QDate(day->year, day->month, day->day));
    settle();
}

void WidgetUser::clickCell(const screen::Grid& grid, int row, int column, bool atButton) const {
    QTableView& table = view(grid);
    const QModelIndex index = table.model()->index(row, column);
    table.scrollTo(index);
    const QRect cell = table.visualRect(index);
    const auto* delegate = dynamic_cast<const qt::GridDelegate*>(table.itemDelegate());
    const QRect target = atButton && delegate ? delegate->pressTarget(cell, row, column) : cell;
    click(*table.viewport(), target.center());
}

void WidgetUser::row(const std::string& grid, int row) {
    auto& target = reachAs<screen::Grid>(grid, "grid");
    if (row < 0 || row >= target.rowCount()) throw ActionError(grid + " has no row " + std::to_string(row));
    // A plain cell, if there is one: a click on a button would press it.
    int column = -1;
    for (int i = 0; i < target.columnCount(); ++i) {
        if (target.column(i).shown && (column < 0 || target.column(column).button)) column = i;
    }
    clickCell(target, row, column);
}

void WidgetUser::cell(const std::string& grid, const std::string& column, const std::string& text) {
    auto& target = reachAs<screen::Grid>(grid, "grid");
    const int number = columnIn(target, column);
    const int row = target.currentRow();
    if (!target.onRow()) throw ActionError(grid + " has no current row");
    clickCell(target, row, number);
    const auto stays = [&] {
        return target.hasFocus() && target.currentRow() == row && target.currentColumn() == number;
    };
    if (!stays()) throw ActionError("the cursor of " + grid + " does not stop in column " + column);
    if (text.empty()) pressNamed("Delete");
    for (const char32_t character : qt::qtText(text).toUcs4()) {
        if (!stays()) return;
        typeText(basics::toUtf8(character));
    }
    target.window().userInput([&target] { target.commitEdit(); });
    settle();
}

void WidgetUser::cellKey(const std::string& grid, const std::string& column, const std::string& key) {
    auto& target = reachAs<screen::Grid>(grid, "grid");
    const int number = columnIn(target, column);
    if (target.onRow() && !target.column(number).button) {
        clickCell(target, target.currentRow(), number);
    } else {
        // By the arrow keys: a click would press the button that stands there.
        enter(target);
        target.setCurrentColumn(number);
    }
    if (!stillIn(target.window()) || !target.hasFocus()) return;
    pressNamed(key);
}

void WidgetUser::cellButton(const std::string& grid, const std::string& column) {
    auto& target = reachAs<screen::Grid>(grid, "grid");
    const int number = columnIn(target, column);
    if (!target.onRow() || !target.column(number).button)
        throw ActionError(grid + " has no button in column " + column);
    clickCell(target, target.currentRow(), number, true);
}

void WidgetUser::head(const std::string& grid, const std::string& column) {
    auto& target = reachAs<screen::Grid>(grid, "grid");
    QHeaderView* const heads = view(target).horizontalHeader();
    const int number = columnIn(target, column);
    click(*heads->viewport(), QPoint(heads->sectionViewportPosition(number) + heads->sectionSize(number) / 2,
                                     heads->height() / 2));
}

void WidgetUser::resize() {
    if (!shell_) throw ActionError("no window is in front");
    shell_->resize(shell_->width(), shell_->height() - 1);
    settle();
    shell_->resize(shell_->width(), shell_->height() + 1);
    settle();
}

void WidgetUser::close() {
    static_cast<void>(front());
    shell_->close();
    settle();
}

}  // namespace zelvo::stage
