#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollArea>

#include "platform/qt/Contrast.h"
#include "platform/qt/FramePanel.h"
#include "platform/qt/Theme.h"

namespace zelvo::qt {

TEST(Theme, RingFollowsTheFieldThatHasTheFocus) {
    QWidget window;
    window.resize(400, 300);
    QScrollArea area(&window);
    area.setGeometry(0, 0, 400, 100);
    QWidget page;
    page.resize(380, 600);
    QLineEdit first(&page), second(&page);
    first.setGeometry(20, 10, 100, 26);
    second.setGeometry(20, 50, 100, 26);
    area.setWidget(&page);
    dress(window);
    window.show();
    window.activateWindow();
    QApplication::processEvents();
    const auto* ring = window.findChild<QWidget*>("focusRing");
    ASSERT_TRUE(ring);
    const auto standsRound = [&](const QWidget& field) {
        const QRect inWindow(field.mapTo(&window, QPoint(0, 0)), field.size());
        return ring->isVisible() && ring->geometry().contains(inWindow) &&
               ring->geometry().height() <= inWindow.height() + 8;
    };

    second.setFocus();
    EXPECT_TRUE(standsRound(second));
    second.move(60, 40);
    EXPECT_TRUE(standsRound(second)) << "the field moved";
    page.move(0, -20);
    EXPECT_TRUE(standsRound(second)) << "its page moved";
    page.move(0, -200);
    EXPECT_FALSE(ring->isVisible()) << "scrolled away";
    page.move(0, 0);
    EXPECT_TRUE(standsRound(second)) << "scrolled back";
    first.setFocus();
    EXPECT_TRUE(standsRound(first));
    area.hide();
    EXPECT_FALSE(ring->isVisible()) << "gone with its page";
    area.takeWidget();
}

TEST(Theme, LeavesTheHostsOwnLook) {
    const QFont font = QApplication::font();
    const QPalette palette = QApplication::palette();
    QWidget hosts, window;
    dress(window);
    EXPECT_EQ(QApplication::font(), font);
    EXPECT_EQ(QApplication::palette(), palette);
    EXPECT_EQ(hosts.style(), QApplication::style());
}

TEST(Theme, WordsStayReadableOnAnEditedFrame) {
    for (const auto& [ground, text] : {std::pair(Qt::white, Qt::black), std::pair(Qt::black, Qt::white)}) {
        QWidget window;
        QPalette palette(ground, ground);
        palette.setColor(QPalette::WindowText, text);
        window.setPalette(palette);
        FramePanel panel(&window);
        panel.setBackColor(QColor(255, 255, 192));
        const QColor tint = panel.palette().color(QPalette::Window);
        EXPECT_NE(tint, QColor(ground));
        EXPECT_EQ(readableOn(tint, text), QColor(text));
        panel.setBackColor(std::nullopt);
        EXPECT_EQ(panel.palette().color(QPalette::Window), QColor(ground));
    }
}

}  // namespace zelvo::qt
