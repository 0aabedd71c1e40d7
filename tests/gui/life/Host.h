#pragma once

#include <gtest/gtest.h>

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "doctorzelvo/DoctorZELVO.hpp"

namespace zelvo::testing {

/// The window of this class name on the screen, nullptr where none is.
inline QWidget* windowNamed(const char* name) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->objectName() == QLatin1String(name)) return widget;
    }
    return nullptr;
}

/// Somebody before the screen, of whichever application is running: confirms each box, and does with the main
/// window what he is told, then closes it.
class Onlooker {
public:
    /// Does this with each main window before he closes it.
    std::function<void(QWidget&)> atWindow = [](QWidget&) {};
    int windows = 0;
    std::vector<std::string> boxes;

    /// There for the application that runs, or for the next one that is made.
    Onlooker() {
        current() = this;
        if (!registered())
            qAddPreRoutine(&Onlooker::sitDown);
        else if (QCoreApplication::instance())
            sitDown();
        registered() = true;
    }
    ~Onlooker() { current() = nullptr; }
    Onlooker(const Onlooker&) = delete;
    Onlooker& operator=(const Onlooker&) = delete;

private:
    static Onlooker*& current() {
        static Onlooker* onlooker = nullptr;
        return onlooker;
    }
    static bool& registered() {
        static bool done = false;
        return done;
    }

    static void sitDown() {
        if (!current()) return;
        // The application owns its timer.
        auto& timer = *std::make_unique<QTimer>(QCoreApplication::instance()).release();
        QObject::connect(&timer, &QTimer::timeout, &timer, [&timer] {
            if (current()) return current()->look();
            timer.stop();
        });
        timer.start(10);
    }

    void look() {
        if (QWidget* const box = windowNamed("messageBox")) {
            boxes.push_back(box->windowTitle().toStdString());
            if (auto* const button = box->findChild<QPushButton*>()) button->click();
        } else if (QWidget* const window = windowNamed("frmDoctorOCSmain")) {
            // One that has just come up takes its time to close.
            if (!window->property("met").toBool()) {
                window->setProperty("met", true);
                ++windows;
                atWindow(*window);
            }
            window->close();
        }
    }
};

/// The call of a chart.
inline std::string call(const std::string& server) {
    doctorzelvo::clsZELVOInterface component;
    EXPECT_FALSE(component.ZELVOInterface(nullptr, server, "doctor1/$/pass1", 7, "김하늘", "", 41, 2, "", "",
                                          "", "", "", "", "", "", "", "", ""));
    return component.errorText();
}

}  // namespace zelvo::testing
