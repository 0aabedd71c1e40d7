#include <gtest/gtest.h>

#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <atomic>

#include "WidgetUser.h"
#include "basics/Fault.h"
#include "composition/frmMessage.h"
#include "platform/qt/BoxDialog.h"
#include "platform/qt/QtDesktop.h"
#include "platform/settings/UserSettings.h"
#include "screen/Window.h"

namespace zelvo::testing {
namespace {

using screen::Answer;
using screen::BoxButtons;
using screen::BoxIcon;

/// The toolkit's own desktop, with its boxes and loops; what a user does comes by timers.
class QtDesktopTest : public ::testing::Test {
protected:
    /// Once a box stands: what is done with it.
    void whenBox(std::function<void(qt::BoxDialog&)> act) {
        // A window manager takes its time, and turns of an idle loop pass in none.
        QTimer::singleShot(5, qApp, [this, act] {
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                auto* box = qobject_cast<qt::BoxDialog*>(widget);
                if (box && box->isVisible() && QApplication::focusWidget()) return act(*box);
            }
            if (++looks_ < 1000) return whenBox(act);
            ADD_FAILURE() << "no box came";
        });
    }

    settings::UserSettings settings_;
    qt::QtDesktop desktop_{settings_, [](std::string_view) {}};
    int looks_ = 0;
};

TEST_F(QtDesktopTest, ABoxIsAnsweredByItsKeys) {
    struct Case {
        const char* name;
        BoxButtons buttons;
        Answer defaultAnswer;
        int key;
        Answer answer;
    };
    for (const Case& item : {
             Case{"Enter takes the default No", BoxButtons::YesNo, Answer::No, Qt::Key_Return, Answer::No},
             Case{"Y", BoxButtons::YesNo, Answer::No, Qt::Key_Y, Answer::Yes},
             Case{"N", BoxButtons::YesNo, Answer::Yes, Qt::Key_N, Answer::No},
             Case{"Esc is no Yes", BoxButtons::YesNo, Answer::Yes, Qt::Key_Escape, Answer::No},
             Case{"Esc closes an information", BoxButtons::Ok, Answer::Ok, Qt::Key_Escape, Answer::Ok},
         }) {
        whenBox([&](qt::BoxDialog&) { stage::WidgetUser::pressKey(item.key); });
        EXPECT_EQ(
            desktop_.messageBox({"text", "caption", BoxIcon::Question, item.buttons, item.defaultAnswer}),
            item.answer)
            << item.name;
    }
}

TEST_F(QtDesktopTest, ABoxShowsItsTextAsItStandsAndWhole) {
    const std::string html = "<b>1 & 2</b>\r\n<html>";
    whenBox([&](qt::BoxDialog& box) {
        const auto* label = box.findChild<QLabel*>(QStringLiteral("text"));
        ASSERT_TRUE(label);
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        EXPECT_EQ(label->text().toStdString(), html);
        box.reject();
    });
    desktop_.inform(html, "caption");
    const std::string answer = std::string(20000, 'x') + "end";
    whenBox([&](qt::BoxDialog& box) {
        const auto* page = box.findChild<QPlainTextEdit*>(QStringLiteral("text"));
        ASSERT_TRUE(page);
        EXPECT_TRUE(page->toPlainText().startsWith(QString(4000, QLatin1Char('x')) + QStringLiteral("…")));
        EXPECT_FALSE(page->accessibleName().isEmpty());
        EXPECT_LT(page->toPlainText().size(), 4100) << "and where the rest is";
        QKeyEvent copy(QEvent::KeyPress, Qt::Key_C, Qt::ControlModifier);
        QCoreApplication::sendEvent(&box, &copy);
        EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), answer);
        box.reject();
    });
    desktop_.alarm(answer, "caption");
}

TEST_F(QtDesktopTest, AFaultThatNobodyCaughtIsToldAndTheWindowRunsUntilItIsClosed) {
    composition::frmMessage note(desktop_);
    int unloads = 0;
    note.onUnload.add([&] { ++unloads; });
    note.cmdReg.setVisible(true);
    note.cmdReg.onPress.add([] { throw basics::Fault("the disk is full"); });
    QTimer::singleShot(0, qApp, [&] {
        whenBox([&](qt::BoxDialog& box) {
            EXPECT_EQ(box.findChild<QLabel*>(QStringLiteral("text"))->text().toStdString(),
                      "the disk is full");
            box.reject();
        });
        note.cmdReg.userPress();
        {
            const screen::Window::Action action(note);
            for (QWidget* window : QApplication::topLevelWidgets()) {
                if (window->objectName() != QLatin1String("frmMessage")) continue;
                window->resize(500, 300);
                window->close();
            }
            EXPECT_TRUE(note.shown()) << "a close waits for the action's end";
        }
        EXPECT_TRUE(note.leaving());
    });
    note.read("caption", "text");
    EXPECT_EQ(unloads, 1);
    composition::frmMessage again(desktop_);
    QTimer::singleShot(0, qApp, [&] { again.userClose(); });
    again.read("caption", "text");
    EXPECT_EQ(again.width() / again.height(), 500.0 / 300) << "as the last one was left";
}

TEST_F(QtDesktopTest, AWaitTakesOneThing) {
    QPushButton behind;
    int presses = 0;
    QObject::connect(&behind, &QPushButton::clicked, [&] { ++presses; });
    behind.show();
    struct Case {
        const char* what;
        int key;
        bool givenUp;
    };
    constexpr int closes = -1;
    for (const Case& item : {Case{"the answer comes", 0, false}, Case{"Esc", Qt::Key_Escape, true},
                             Case{"a key that was typed on", Qt::Key_Return, false},
                             Case{"the card goes with the host's window", closes, true}}) {
        std::atomic<bool> answered = false;
        QTimer::singleShot(700, qApp, [&] {
            stage::WidgetUser::click(behind);
            if (item.key > 0) stage::WidgetUser::pressKey(item.key);
            for (QWidget* window : QApplication::topLevelWidgets()) {
                if (item.key == closes && window->objectName() == QLatin1String("glass")) window->close();
            }
            answered = !item.givenUp;
        });
        const auto wait = [&] {
            desktop_.waitFor("waits", [&](const std::stop_token& stop) {
                for (int i = 0; i < 1000 && !stop.stop_requested() && !answered; ++i) QThread::msleep(5);
            });
        };
        if (item.givenUp) {
            EXPECT_THROW(wait(), basics::Fault) << item.what;
        } else {
            EXPECT_NO_THROW(wait()) << item.what;
        }
    }
    EXPECT_EQ(presses, 0);
    EXPECT_THROW(desktop_.waitFor("fails", [](const std::stop_token&) { throw basics::Fault("no"); }),
                 basics::Fault);
}

}  // namespace
}  // namespace zelvo::testing
