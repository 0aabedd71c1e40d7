// Where the widgets of the main window stand: for a doctor and for a nurse, on every screen and at every
// scale.
#include <QtGui/QAccessible>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTableView>
#include <set>

#include "GuiSession.h"
#include "screen/Fields.h"

namespace zelvo::testing {
namespace {

constexpr int titleBar = 32;

QRect placeOf(const QWidget& widget, const QWidget& in) {
    return {widget.mapTo(&in, QPoint(0, 0)), widget.size()};
}

/// What is read, filled in or pressed on a page: nothing that holds others.
std::vector<const QWidget*> piecesOf(const QWidget& page, const qt::Shell& shell) {
    std::vector<const QWidget*> pieces;
    const auto add = [&](const QWidget* widget) {
        if (widget && widget->isVisible() && page.isAncestorOf(widget)) pieces.push_back(widget);
    };
    for (const screen::Field* field : shell.window().fields()) {
        const auto kind = field->kind();
        if (kind != screen::FieldKind::Panel && kind != screen::FieldKind::Tabs &&
            kind != screen::FieldKind::Label)
            add(shell.binder().widgetOf(*field));
    }
    for (const QLabel* label : page.findChildren<QLabel*>())
        if (!label->text().isEmpty()) add(label);
    return pieces;
}

/// Nothing shares its place with anything else, and nothing is cut by what holds it.
void expectRoomForAll(const QWidget& page, const qt::Shell& shell, const std::string& where) {
    const auto pieces = piecesOf(page, shell);
    ASSERT_GT(pieces.size(), 3U) << where;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const QWidget& one = *pieces[i];
        const std::string name = where + one.objectName().toStdString();
        const QRect place = placeOf(one, page);
        EXPECT_TRUE(page.rect().contains(place)) << name;
        const auto* label = qobject_cast<const QLabel*>(&one);
        if (qobject_cast<const QAbstractButton*>(&one) || (label && !label->wordWrap())) {
            EXPECT_GE(one.width(), one.sizeHint().width()) << name;
        }
        for (std::size_t j = i + 1; j < pieces.size(); ++j) {
            EXPECT_FALSE(place.intersects(placeOf(*pieces[j], page)))
                << name << " and " << pieces[j]->objectName().toStdString();
        }
    }
}

/// Whatever can be worked has a name for a reader of the screen.
void expectNames(const QAccessibleInterface& at, const std::string& where) {
    static const std::set<QAccessible::Role> worked{
        QAccessible::PushButton, QAccessible::CheckBox,     QAccessible::RadioButton,
        QAccessible::ComboBox,   QAccessible::EditableText, QAccessible::SpinBox,
        QAccessible::List,       QAccessible::Table,        QAccessible::PageTab};
    if (at.state().invisible) return;
    if (worked.contains(at.role())) {
        EXPECT_FALSE(at.text(QAccessible::Name).trimmed().isEmpty())
            << where << (at.object() ? at.object()->objectName().toStdString() : "a part") << " has no name";
    }
    if (at.role() == QAccessible::Table) return;
    for (int i = 0; i < at.childCount(); ++i)
        if (const auto* child = at.child(i)) expectNames(*child, where);
}

/// Every page of the session in view at a size of the screen, at a scale in per cent.
void expectPagesFit(GuiSession& session, const QSize& screen, int scale, const std::string& who) {
    qt::Shell& shell = session.glass().shell();
    shell.resize(screen.width() * 100 / scale, screen.height() * 100 / scale - titleBar);
    auto& tabs = session.widget<QTabWidget>("c1tMain");
    for (int page = 0; page < tabs.count(); ++page) {
        if (!tabs.isTabEnabled(page)) continue;
        session.hand().tab("c1tMain", page);
        GlassDesktop::settle();
        const std::string where = who + " " + std::to_string(screen.width()) + "x" +
                                  std::to_string(screen.height()) + " at " + std::to_string(scale) +
                                  " %, page " + std::to_string(page) + ": ";
        auto& area = *tabs.widget(page)->findChild<QScrollArea*>();
        expectRoomForAll(*area.widget(), shell, where);
        if (scale == 100) expectNames(*QAccessible::queryAccessibleInterface(area.widget()), where);
        for (const QWidget* fixed :
             std::initializer_list<QWidget*>{tabs.tabBar(), &session.widget<QWidget>("stbMain")})
            EXPECT_TRUE(shell.rect().contains(placeOf(*fixed, shell)))
                << where << fixed->objectName().toStdString();
        const QSize least = area.widget()->minimumSizeHint();
        EXPECT_TRUE(!area.horizontalScrollBar()->isVisible() || least.width() > area.width()) << where;
        if (screen.width() < 1280 * scale / 100 || screen.height() < 768 * scale / 100) continue;
        EXPECT_FALSE(area.horizontalScrollBar()->isVisible() || area.verticalScrollBar()->isVisible())
            << where;
    }
}

TEST(Layout, EveryPageHasRoomOnEveryScreen) {
    const auto onAll = [](GuiSession& session, const std::string& who) {
        for (const char* comesAndGoes : {"ssrCBJSend", "sschkCBJmUpdate", "ssrCBJmUpdate", "ssrCBJmCancel"})
            session.hand().find(comesAndGoes).setVisible(true);
        for (const QSize& screen : {QSize(1280, 800), QSize(1366, 768), QSize(1920, 1080)})
            for (const int scale : {100, 125, 150, 200}) expectPagesFit(session, screen, scale, who);
    };
    GuiSession doctor;
    doctor.run([&] { onAll(doctor, "doctor"); });
    GuiSession nurse;
    nurse.runNurse("doctor1/$/pass1#$#doctor2/$/pass2", [&] {
        onAll(nurse, "nurse");
        nurse.glass().shell().resize(1280, 800 - titleBar);
        nurse.hand().tab("c1tMain", 2);
        const auto& list = nurse.widget<QTableView>("tdbCBJ");
        EXPECT_FALSE(list.horizontalScrollBar()->isVisible())
            << "every column is in view in " << list.width();
    });
}

}  // namespace
}  // namespace zelvo::testing
