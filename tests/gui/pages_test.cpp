// The pages of the main window: what is read in them, how they are turned.
#include <QtGui/QKeyEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollBar>

#include "GuiSession.h"
#include "screen/Fields.h"

namespace zelvo::testing {
namespace {

TEST(Pages, TheWheelTurnsNoChoiceButWhatCannotBeChanged) {
    GuiSession session;
    session.run([&] {
        const auto turn = [](QWidget& widget) {
            QWheelEvent event({5, 5}, widget.mapToGlobal(QPointF(5, 5)), {}, {0, -240}, Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(&widget, &event);
        };
        turn(session.widget<QWidget>("cboBesongMethod"));
        EXPECT_EQ(session.textOf("cboBesongMethod"), "미정");
        session.database.run(
            "UPDATE t_ChubangJun SET CBJ_State = 0, CBJ_IsCanceled = 0, CBJ_Msg = 'first' || "
            "replace(printf('%30s', ''), ' ', x'0D0A') || 'last'");
        session.hand().tab("c1tMain", 2);
        session.hand().date("dtpCBJsearch(0)", "2000-01-01");
        session.hand().press("sscCBJsearchDate");
        auto& message = session.widget<QPlainTextEdit>("txtCBJmCBMsg");
        ASSERT_FALSE(message.isEnabled());
        turn(*message.viewport());
        EXPECT_EQ(message.verticalScrollBar()->value(), 2 * QApplication::wheelScrollLines());
    });
}

TEST(Pages, AHeldKeyPressesOnceAndThePagesThatAreShutArePassedOver) {
    GuiSession session;
    session.run([&] {
        session.hand().focus("ssrCostConfirm");
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &held);
        session.desktop.expectNoBox();
        session.hand().pressNamed("Enter");
        EXPECT_NE(session.desktop.takeBox().text, "");

        auto& tabs = session.field<screen::TabControl>("c1tMain");
        tabs.setSelectable(2, false);
        const std::tuple<int, Qt::KeyboardModifiers, int> turns[] = {
            {Qt::Key_Tab, Qt::ControlModifier, 3},
            {Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier, 1}};
        for (const auto& [key, modifiers, page] : turns) {
            session.hand().pressKey(key, modifiers);
            EXPECT_EQ(tabs.current(), page) << key;
        }
    });
}

}  // namespace
}  // namespace zelvo::testing
