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
    second.setFocus();
    struct Case {
        const char* what;
        std::function<void()> happens;
        const QWidget* round;  ///< nullptr: no ring
    };
    for (const auto& [what, happens, round] : {
             Case{"the field moves", [&] { second.move(60, 40); }, &second},
             Case{"its page moves", [&] { page.move(0, -20); }, &second},
             Case{"scrolled away", [&] { page.move(0, -200); }, nullptr},
             Case{"scrolled back", [&] { page.move(0, 0); }, &second},
             Case{"another field", [&] { first.setFocus(); }, &first},
             Case{"the page goes", [&] { area.hide(); }, nullptr},
         }) {
        happens();
        EXPECT_EQ(ring->isVisible(), round != nullptr) << what;
        if (!round) continue;
        const QRect field(round->mapTo(&window, QPoint(0, 0)), round->size());
        EXPECT_EQ(ring->geometry(), field.adjusted(-2, -2, 2, 2)) << what;
    }
    area.takeWidget();
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
    }
}

}  // namespace zelvo::qt
