// The pages of the main window: their room, their colours, what is read in them, how they are turned.
#include <QtGui/QKeyEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTabWidget>

#include "GuiSession.h"
#include "platform/qt/Contrast.h"
#include "platform/qt/FramePanel.h"
#include "screen/Fields.h"

namespace zelvo::testing {
namespace {

/// A smaller screen than 1280 by 800 less the title bar scrolls; that one does not.
TEST(Pages, EveryPageFitsTheLeastScreen) {
    GuiSession session;
    session.run([&] {
        auto& tabs = session.widget<QTabWidget>("c1tMain");
        const QWidget& form = *session.glass().shell().findChild<QScrollArea*>()->widget();
        for (int page = 0; page < tabs.count(); ++page) {
            session.hand().tab("c1tMain", page);
            GlassDesktop::settle();
            EXPECT_LE(form.minimumSizeHint().width(), 1280) << page;
            EXPECT_LE(form.minimumSizeHint().height(), 768) << page;
        }
    });
}

/// The sent orders with one that waits in view.
void showWaitingOrder(GuiSession& session) {
    session.database.run(
        "UPDATE t_ChubangJun SET CBJ_State = 0, CBJ_IsCanceled = 0, CBJ_Msg = 'first' || "
        "replace(printf('%30s', ''), ' ', x'0D0A') || 'last'");
    session.hand().tab("c1tMain", 2);
    session.hand().date("dtpCBJsearch(0)", "2000-01-01");
    session.hand().press("sscCBJsearchDate");
}

TEST(SentOrders, ALongMessageIsReadToItsEndWhileItCannotBeChanged) {
    GuiSession session;
    session.run([&] {
        showWaitingOrder(session);
        auto& message = session.widget<QPlainTextEdit>("txtCBJmCBMsg");
        ASSERT_FALSE(message.isEnabled());
        QWheelEvent turn({5, 5}, message.viewport()->mapToGlobal(QPointF(5, 5)), {}, {0, -240}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(message.viewport(), &turn);
        EXPECT_EQ(message.verticalScrollBar()->value(), 2 * QApplication::wheelScrollLines());
        stage::WidgetUser::click(*message.verticalScrollBar(),
                                 {3, message.verticalScrollBar()->height() - 1});
        EXPECT_EQ(message.verticalScrollBar()->value(), message.verticalScrollBar()->maximum());
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
            {Qt::Key_Tab, Qt::ControlModifier, 0},
            {Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier, 3},
            {Qt::Key_PageUp, Qt::ControlModifier, 1}};
        for (const auto& [key, modifiers, page] : turns) {
            session.hand().pressKey(key, modifiers);
            EXPECT_EQ(tabs.current(), page) << key;
        }
    });
}

TEST(Theme, WordsStayReadableOnAnEditedFrame) {
    for (const auto& [ground, text] : {std::pair(Qt::white, Qt::black), std::pair(Qt::black, Qt::white)}) {
        QWidget window;
        QPalette palette(ground, ground);
        palette.setColor(QPalette::WindowText, text);
        window.setPalette(palette);
        qt::FramePanel panel(&window);
        panel.setBackColor(QColor(255, 255, 192));
        const QColor tint = panel.palette().color(QPalette::Window);
        EXPECT_NE(tint, QColor(ground));
        EXPECT_EQ(qt::readableOn(tint, text), QColor(text));
    }
}

}  // namespace
}  // namespace zelvo::testing
