// The windows on a real X server, worked by real keys and clicks (on_display.sh); elsewhere there is nothing
// to see.
#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>

#include "GuiSession.h"
#include "basics/Text.h"
#include "components/EatGuideEditor.h"
#include "platform/qt/BoxDialog.h"
#include "platform/qt/QtDesktop.h"
#include "platform/settings/UserSettings.h"
#include "screen/Fields.h"
#include "screen/Grid.h"
#include "screen/TextField.h"

namespace zelvo::testing {
namespace {

void letTimePass(int milliseconds) {
    QElapsedTimer passed;
    passed.start();
    while (passed.elapsed() < milliseconds) {
        GlassDesktop::settle();
        QThread::msleep(5);
    }
}

void does(const QStringList& words) {
    QProcess hand;
    hand.start(QStringLiteral("xdotool"), words);
    while (hand.state() != QProcess::NotRunning) letTimePass(5);
    letTimePass(250);
}

/// In its middle; on the second page of tabs.
QStringList clickAt(const QWidget& widget) {
    const auto* tabs = qobject_cast<const QTabWidget*>(&widget);
    const QPoint at = tabs ? tabs->tabBar()->mapToGlobal(tabs->tabBar()->tabRect(1).center())
                           : widget.mapToGlobal(widget.rect().center());
    return {"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "1"};
}

class OnDisplay : public ::testing::Test {
protected:
    void SetUp() override {
        if (!qEnvironmentVariableIsSet("ZELVO_DISPLAY")) GTEST_SKIP() << "no display";
    }
    /// "click FIELD", "type KEYS", "key NAME", one behind the other.
    void work(GuiSession& session, const std::string& steps) {
        for (const std::string& step : basics::split(steps, "; ")) {
            const auto cut = step.find(' ');
            const std::string verb = step.substr(0, cut), what = step.substr(cut + 1);
            if (verb == "click") {
                does(clickAt(session.widget<QWidget>(what)));
            } else if (verb == "type") {
                does({"type", "--delay", "60", QString::fromStdString(what)});
            } else {
                does(QStringList{"key", "--delay", "80"} + QString::fromStdString(what).split(' '));
            }
        }
    }
};

TEST_F(OnDisplay, HangulStaysWhereItWasBegun) {
    if (!qEnvironmentVariableIsSet("ZELVO_HANGUL")) GTEST_SKIP() << "no Korean input method";
    struct Case {
        const char *what, *steps, *field, *text, *other, *otherText;
    };
    const char *msg = "txtBesongMsg", *address = "txtBesongJuso", *there = "서울특별시 강남구 테헤란로 152",
               *name = "txtPatientName", *phone = "txtPatientTel";
    for (const Case& c : {
             Case{"a click into the next field", "click txtBesongMsg; type whtla; click txtBesongJuso", msg,
                  "조심", address, there},
             Case{"a key there is heard",
                  "click txtBesongMsg; type whtla; click txtBesongJuso; type wnth; key Tab", msg, "조심",
                  address, "주소"},
             Case{"a click into the same field", "click txtBesongMsg; type whtla; click txtBesongMsg", msg,
                  "조심", address, there},
             Case{"a click on a page's tab", "click txtBesongMsg; type whtla; click c1tCBJmsg", msg, "조심",
                  address, there},
             Case{"Tab", "click txtPatientName; type rkd; key Tab", name, "강", phone, "02-123-4567"},
         }) {
        GuiSession session;
        session.run([&] {
            work(session, c.steps);
            EXPECT_EQ(session.textOf(c.field), c.text) << c.what;
            EXPECT_EQ(session.textOf(c.other), c.otherText) << c.what;
        });
    }
}

TEST_F(OnDisplay, HangulOpensTheHerbsCellAndEscBelongsToItFirst) {
    if (!qEnvironmentVariableIsSet("ZELVO_HANGUL")) GTEST_SKIP() << "no Korean input method";
    GuiSession session;
    session.run([&] {
        std::string patient = "김하늘", sheet, clinic, phone;
        session.desktop.whenShown("frmEatGuideEditor", [&](screen::Window& editor) {
            work(session, "click rtxSheet; type tlr; key Escape");
            EXPECT_EQ(session.textOf("rtxSheet"), "식");
            session.desktop.expectNoBox();
            session.desktop.answer(screen::Answer::Yes);
            work(session, "key Escape");
            EXPECT_TRUE(editor.leaving());
            session.desktop.takeBox();
        });
        components::EatGuideEditor(session.desktop).edit(nullptr, patient, sheet, clinic, phone);
        auto& herbs = session.field<screen::Grid>("tdbDGL");
        work(session, "click tdbDGL; key Return; type ekdrnl; key Escape");
        EXPECT_EQ(herbs.editText(), "당귀");
    });
}

TEST_F(OnDisplay, AnOrderGoesItsWayByKeysAlone) {
    const struct {
        const char *steps, *focus;
    } road[] = {
        {"key alt+4 alt+2", "tdbJobList"},
        {"key Return Return Return Return Return", "txtDrugPrice"},
        {"key Return Return Return Return Return Return Return Return Return Return Return", "txtPatientAge"},
        {"click txtBesongMsg; key Return Down Return space Return", "dtpBesongDate"},
        {"key Return", "txtHospitalName"},
        {"click txtEatGuideHosName; key Return Return Return Return", "ssrCostConfirm"},
        {"key F6; type ekdrnl; key Down Return; type 6; key Tab", "txtChubsu"},
        {"type 20; key F8 shift+Tab", "txtDrugPrice"},
        {"key F10; type 3; key Return; type 7; key F10; type 100; key F5", "tdbCostConfirm"},
        {"key Return space", "tdbJobList"}};
    GuiSession session;
    session.run([&] {
        session.desktop.answer(screen::Answer::No);
        for (const auto& [steps, focus] : road) {
            work(session, steps);
            QWidget& there = session.widget<QWidget>(focus);
            for (int tries = 0; tries < 30 && !there.hasFocus(); ++tries) letTimePass(100);
            EXPECT_TRUE(there.hasFocus()) << steps;
        }
        EXPECT_EQ(session.sent.size(), 1U);
        session.desktop.takeBox();
    });
}

TEST_F(OnDisplay, WhatWasPressedBeforeItStoodThereIsDropped) {
    GuiSession session;
    session.run([&] {
        auto& button = session.field<screen::TwoStateButton>("sscBesongReset");
        const QStringList click = clickAt(session.widget<QWidget>("sscBesongReset"));
        button.window().userInput([&] {
            button.setVisible(false);
            GlassDesktop::settle();
            QProcess::execute(QStringLiteral("xdotool"), click);
            QThread::msleep(500);
            button.setVisible(true);
        });
        letTimePass(400);
        session.desktop.expectNoBox();
        session.desktop.answer(screen::Answer::No);
        does(click);
        EXPECT_NE(session.desktop.takeBox().text, "");
    });
    settings::UserSettings settings;
    qt::QtDesktop desktop(settings, [](std::string_view) {});
    QProcess::execute(QStringLiteral("xdotool"), {"key", "Return"});
    QThread::msleep(500);
    QTimer::singleShot(800, qApp, [] {
        for (QWidget* box : QApplication::topLevelWidgets())
            if (auto* dialog = qobject_cast<qt::BoxDialog*>(box)) dialog->reject();
    });
    EXPECT_FALSE(desktop.ask("text", "caption"));
}

}  // namespace
}  // namespace zelvo::testing
