// Where the widgets of all windows stand, and what a reader of the screen finds there: for a doctor and for a
// nurse, on every screen and at every scale.
#include <QtCore/QThread>
#include <QtGui/QAccessible>
#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTableView>
#include <QtWidgets/QToolButton>
#include <set>

#include "GuiSession.h"
#include "components/AccountPrompt.h"
#include "components/EatGuideEditor.h"
#include "components/PostalLookup.h"
#include "platform/qt/SheetBar.h"
#include "screen/Fields.h"
#include "screen/Grid.h"

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
    for (const QToolButton* button : page.findChildren<QToolButton*>()) add(button);
    return pieces;
}

/// Nothing shares its place with anything else, and nothing is cut by what holds it.
void expectRoomForAll(const QWidget& page, const qt::Shell& shell, const std::string& where) {
    const auto pieces = piecesOf(page, shell);
    ASSERT_FALSE(pieces.empty()) << where;
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

std::string nameOf(const QAccessibleInterface& at) {
    return at.text(QAccessible::Name).simplified().toStdString();
}

/// A table is read as it is seen: its shown columns, heads first.
void expectShownColumns(const QAccessibleInterface& at, const std::string& where) {
    const auto& table = dynamic_cast<const QTableView&>(*at.object());
    int columns = 0;
    for (int column = 0; column < table.model()->columnCount(); ++column) {
        if (table.isColumnHidden(column)) continue;
        EXPECT_EQ(at.child(columns++)->text(QAccessible::Name),
                  table.model()->headerData(column, Qt::Horizontal).toString())
            << where << table.objectName().toStdString();
    }
    EXPECT_EQ(at.childCount(), (table.model()->rowCount() + 1) * columns) << where;
}

/// Whatever can be worked has a name for a reader of the screen, which is its label.
void expectNames(const QAccessibleInterface& at, const std::string& where) {
    static const std::set<QAccessible::Role> worked{
        QAccessible::PushButton,   QAccessible::CheckBox,   QAccessible::RadioButton, QAccessible::ComboBox,
        QAccessible::EditableText, QAccessible::SpinBox,    QAccessible::List,        QAccessible::Table,
        QAccessible::PageTab,      QAccessible::ButtonMenu, QAccessible::Window,      QAccessible::Dialog};
    if (at.state().invisible) return;
    const std::string what = where + (at.object() ? at.object()->objectName().toStdString() : "a part");
    if (worked.contains(at.role())) {
        EXPECT_NE(nameOf(at), "") << what << " has no name";
    }
    if (const auto* label = qobject_cast<QLabel*>(at.object()); label && label->buddy()) {
        const QString words = label->text().remove(QLatin1Char(':')).simplified();
        EXPECT_TRUE(QAccessible::queryAccessibleInterface(label->buddy())
                        ->text(QAccessible::Name)
                        .contains(words.section(QLatin1Char(' '), -1)))
            << what << " is another's label";
    }
    if (at.role() == QAccessible::Table) return expectShownColumns(at, where);
    for (int i = 0; i < at.childCount(); ++i)
        if (const auto* child = at.child(i)) expectNames(*child, where);
}

const std::initializer_list<QSize> screens{{1280, 800}, {1366, 768}, {1920, 1080}};
const std::initializer_list<int> scales{100, 125, 150, 200};

/// What a screen has for a window, at a scale in per cent.
QSize roomOn(const QSize& screen, int scale) {
    return screen * 100 / scale - QSize(0, titleBar);
}

std::string named(const std::string& who, const QSize& room) {
    return who + " in " + std::to_string(room.width()) + "x" + std::to_string(room.height()) + ": ";
}

/// Every page of the session in view in such a room.
void expectPagesFit(GuiSession& session, const QSize& room, const std::string& who) {
    qt::Shell& shell = session.glass().shell();
    shell.resize(room);
    // A window manager may still say the former size.
    for (int turn = 0; turn < 100 && shell.size() != room; ++turn) {
        QThread::msleep(10);
        GlassDesktop::settle();
    }
    auto& tabs = session.widget<QTabWidget>("c1tMain");
    for (int page = 0; page < tabs.count(); ++page) {
        if (!tabs.isTabEnabled(page)) continue;
        session.hand().tab("c1tMain", page);
        GlassDesktop::settle();
        const std::string where = named(who + ", page " + std::to_string(page), room);
        auto& area = *tabs.widget(page)->findChild<QScrollArea*>();
        expectRoomForAll(*area.widget(), shell, where);
        for (const QWidget* fixed :
             std::initializer_list<QWidget*>{tabs.tabBar(), &session.widget<QWidget>("stbMain")})
            EXPECT_TRUE(shell.rect().contains(placeOf(*fixed, shell)))
                << where << fixed->objectName().toStdString();
        const QSize least = area.widget()->minimumSizeHint();
        EXPECT_TRUE(!area.horizontalScrollBar()->isVisible() || least.width() > area.width()) << where;
        if (session.desktop.zoom().percent() > 100) continue;
        if (room.width() < 1280 || room.height() < 768 - titleBar) continue;
        EXPECT_FALSE(area.horizontalScrollBar()->isVisible() || area.verticalScrollBar()->isVisible())
            << where;
        for (const QTableView* table : area.widget()->findChildren<QTableView*>())
            EXPECT_FALSE(table->isVisible() && table->horizontalScrollBar()->isVisible())
                << where << table->objectName().toStdString() << ": not every column is seen";
    }
}

/// Looks at sizes that a user can zoom to, the smallest first; the usual one stands again at the end.
void zoomThrough(screen::Desktop& desktop, const std::function<void(int)>& look) {
    screen::Zoom& zoom = desktop.zoom();
    for (int steps = 0; steps < 8; ++steps) zoom.step(-1);
    for (int before = 0; before != zoom.percent(); zoom.step(1)) look(before = zoom.percent());
    zoom.reset();
}

/// The window in front, in each room that a screen has for it.
void expectWindowFits(const qt::Shell& shell, const std::string& who) {
    auto& wanting = const_cast<qt::Shell&>(shell);
    const QSize wanted = shell.size();
    const std::string where = who + " " + shell.window().name();
    expectNames(*QAccessible::queryAccessibleInterface(&wanting), where + ": ");
    const auto& area = *shell.findChild<QScrollArea*>(QString(), Qt::FindDirectChildrenOnly);
    const auto expectFits = [&](const QSize& wish, const QSize& room) {
        wanting.resize(wish.boundedTo(room));
        GlassDesktop::settle();
        const std::string here = named(where, wanting.size());
        expectRoomForAll(*area.widget(), shell, here);
        EXPECT_TRUE(wanting.size() != wish || !area.verticalScrollBar()->isVisible()) << here;
    };
    for (const QSize& screen : screens)
        for (const int scale : scales) expectFits(wanted, roomOn(screen, scale));
    zoomThrough(shell.window().desktop(), [&](int percent) {
        expectFits(wanted * percent / 100, roomOn({1920, 1080}, 100));
    });
}

/// Each of the small windows, opened over the main one.
void expectSmallWindowsFit(GuiSession& session, const std::string& who) {
    screen::Desktop& desktop = session.desktop;
    const auto look = [&](const char* name) {
        session.desktop.whenShown(name,
                                  [&](screen::Window&) { expectWindowFits(session.glass().shell(), who); });
    };
    std::string a, b, patient = "김하늘", sheet;
    std::int32_t place = 0;
    look("frmLogin");
    components::AccountPrompt(desktop).Login(a, b);
    look("frmChangePassword");
    components::AccountPrompt(desktop).ChangePassword("pass1", a);
    look("frmEatGuideEditor");
    components::EatGuideEditor(desktop).edit(nullptr, patient, sheet, a, b);
    look("frmPostalLookup");
    components::PostalLookup(desktop, {}).ZipCode(patient, a, b, place, place);
    look("frmMessage");
    session.hand().pressKey(Qt::Key_F1);
}

/// Those that open from a new order.
void expectOrderWindowsFit(GuiSession& session) {
    auto& hand = session.hand();
    const auto look = [&](const char* name, const char* then) {
        session.desktop.whenShown(name, [&session, then](screen::Window&) {
            expectWindowFits(session.glass().shell(), "doctor");
            session.hand().pressNamed(then);
        });
    };
    hand.tab("c1tMain", 1);
    look("frmChubangRead", "Esc");
    hand.press("sscCBJRead");
    hand.cellKey("tdbDGL", "약재명", "Enter");
    hand.cell("tdbDGL", "약재명", "당귀");
    look("frmYakGukDrug", "Enter");
    hand.cellKey("tdbDGL", "약재명", "Enter");
    hand.cell("tdbDGL", "용량(g)", "6");
    look("frmMyChuBang", "Esc");
    hand.press("sscMyChubangReg");
}

TEST(Layout, EveryWindowHasRoomOnEveryScreen) {
    const auto onAll = [](GuiSession& session, const std::string& who) {
        for (const char* comesAndGoes : {"ssrCBJSend", "sschkCBJmUpdate", "ssrCBJmUpdate", "ssrCBJmCancel"})
            session.hand().find(comesAndGoes).setVisible(true);
        for (const QSize& screen : screens)
            for (const int scale : scales) expectPagesFit(session, roomOn(screen, scale), who);
        zoomThrough(session.desktop, [&](int percent) {
            expectPagesFit(session, roomOn({1280, 800}, 100), who + " at " + std::to_string(percent) + " %");
        });
        expectSmallWindowsFit(session, who);
    };
    GuiSession doctor;
    doctor.run([&] {
        onAll(doctor, "doctor");
        expectOrderWindowsFit(doctor);
    });
    GuiSession nurse;
    nurse.runNurse("doctor1/$/pass1#$#doctor2/$/pass2", [&] { onAll(nurse, "nurse"); });
}

TEST(Layout, ASmallWindowIsLeftAtOneZoomAndOpensAtAnother) {
    GuiSession session;
    session.run([&] {
        screen::Desktop& desktop = session.desktop;
        QSize left;
        const auto open = [&](int percent, const std::function<void(qt::Shell&)>& look) {
            while (desktop.zoom().percent() < percent) desktop.zoom().step(1);
            session.desktop.whenShown("frmLogin", [&](screen::Window&) { look(session.glass().shell()); });
            std::string account, password;
            components::AccountPrompt(desktop).Login(account, password);
            desktop.zoom().reset();
        };
        open(150, [&](qt::Shell& shell) {
            left = shell.size() * 1.2;
            shell.resize(left);
            shell.putAway();
        });
        for (const int percent : {100, 125, 150, 200}) {
            open(percent, [&](qt::Shell& shell) {
                const QSize off = shell.size() - left * desktop.zoom().percent() / 150;
                EXPECT_TRUE(std::abs(off.width()) <= 2 && std::abs(off.height()) <= 2) << percent;
                const auto& area = *shell.findChild<QScrollArea*>(QString(), Qt::FindDirectChildrenOnly);
                EXPECT_FALSE(area.horizontalScrollBar()->isVisible() || area.verticalScrollBar()->isVisible())
                    << percent;
            });
        }
    });
}

TEST(Layout, AMenuHasTheLettersOfItsWindow) {
    GuiSession session;
    session.run([&] {
        const auto opens = [&](const QMenu* menu, const char* what) {
            ASSERT_TRUE(menu) << what;
            EXPECT_EQ(menu->font().pointSizeF(), session.glass().shell().font().pointSizeF()) << what;
            QApplication::activePopupWidget()->close();
        };
        session.hand().tab("c1tCBJmsg", 1);
        zoomThrough(session.desktop, [&](int) {
            for (const char* field : {"txtPatientName", "txtCBJmsg"}) {
                QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint(1, 1));
                QCoreApplication::sendEvent(&session.widget<QWidget>(field), &asked);
                opens(qobject_cast<QMenu*>(QApplication::activePopupWidget()), field);
            }
        });
        std::string patient, sheet, clinic, phone;
        session.desktop.whenShown("frmEatGuideEditor", [&](screen::Window&) {
            auto* colours = session.glass().shell().findChild<qt::SheetBar*>()->findChild<QMenu*>();
            zoomThrough(session.desktop, [&](int) {
                colours->popup(QPoint(1, 1));
                opens(colours, "colours");
            });
        });
        components::EatGuideEditor(session.desktop).edit(nullptr, patient, sheet, clinic, phone);
    });
}

TEST(Layout, AReaderOfTheScreenFindsWhatIsSeen) {
    const auto onAll = [](GuiSession& session, const std::string& who) {
        auto& tabs = session.widget<QTabWidget>("c1tMain");
        for (int page = 0; page < tabs.count(); ++page) {
            if (!tabs.isTabEnabled(page)) continue;
            session.hand().tab("c1tMain", page);
            GlassDesktop::settle();
            const auto& window = *QAccessible::queryAccessibleInterface(&session.glass().shell());
            EXPECT_EQ(window.role(), QAccessible::Window);
            expectNames(window, who + ", page " + std::to_string(page) + ": ");
        }
    };
    GuiSession nurse;
    nurse.runNurse("doctor1/$/pass1", [&] { onAll(nurse, "nurse"); });
    GuiSession session;
    session.run([&] {
        onAll(session, "doctor");
        const auto reads = [&](const char* field, QAccessible::Text what) {
            return QAccessible::queryAccessibleInterface(&session.widget<QWidget>(field))->text(what);
        };
        EXPECT_EQ(reads("lblGongJiYakGuk(0)", QAccessible::Name), QStringLiteral("한들한약국"));
        EXPECT_EQ(reads("cboBesongMethod", QAccessible::Name), QStringLiteral("배송방식:"));
        EXPECT_EQ(reads("cboBesongMethod", QAccessible::Value), QStringLiteral("미정"));
        session.hand().tab("c1tMain", 1);
        session.hand().focus("txtPatientAge");
        const auto said = [&] {
            const auto& window = *QAccessible::queryAccessibleInterface(&session.glass().shell());
            GlassDesktop::settle();
            for (int i = 0; i < window.childCount(); ++i)
                if (window.child(i)->role() == QAccessible::AlertMessage) return nameOf(*window.child(i));
            return std::string();
        };
        session.hand().typeText("4x");
        EXPECT_EQ(said(), "'x'은(는) 입력할 수 없습니다.");
        session.field<screen::Grid>("tdbCostConfirm").setCaption("합계 비용 = 72,040");
        EXPECT_EQ(said(), "합계 비용 = 72,040");
    });
}

}  // namespace
}  // namespace zelvo::testing
