#pragma once

#include <gtest/gtest.h>

#include <QtWidgets/QApplication>
#include <memory>
#include <vector>

#include "WidgetUser.h"
#include "platform/qt/Shell.h"
#include "support/ChartParts.h"
#include "support/TestDesktop.h"
#include "support/TestFolder.h"
#include "support/host/HostSession.h"

namespace zelvo::testing {

/// Windows stand on the (unseen) screen while their scripts run; boxes are answered as in all tests.
class GlassDesktop : public TestDesktop {
public:
    void runModal(screen::Window& window) override {
        qt::Shell shell(window, shells_.empty() ? nullptr : shells_.back());
        shells_.push_back(&shell);
        user.sitBefore(&shell);
        shell.open();
        settle();
        TestDesktop::runModal(window);
        shells_.pop_back();
        shell.hide();
        user.sitBefore(shells_.empty() ? nullptr : shells_.back());
        if (!shells_.empty()) shells_.back()->activateWindow();
        settle();
    }
    void processEvents(bool userInput) override {
        settle();
        TestDesktop::processEvents(userInput);
    }
    /// Here the clock is the real one: a page takes the time that it takes.
    void waitForEvents(std::chrono::milliseconds) override {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        TestDesktop::processEvents(true);
    }
    qt::Shell& shell() { return *shells_.back(); }
    static void settle() {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    stage::WidgetUser user{*this};

private:
    std::vector<qt::Shell*> shells_;
};

/// A doctor's session in front of the real widgets.
struct GuiSession : HostSession {
    GuiSession() : HostSession(true, std::make_unique<GlassDesktop>()) {
        page.answer = CostPage::priced(72040, 720);
        page.standIn(desktop);
        standIn(machine, desktop);
    }
    GlassDesktop& glass() { return static_cast<GlassDesktop&>(desktop); }
    stage::WidgetUser& hand() { return glass().user; }

    /// Runs a doctor's session; the script stands before the main window.
    void run(std::function<void()> script) { runDoctor(arguments(), std::move(script)); }

    template <class Widget>
    Widget& widget(const std::string& name) {
        GlassDesktop::settle();
        QWidget* const found = glass().shell().binder().widgetOf(hand().find(name));
        return dynamic_cast<Widget&>(*found);
    }

    CostPage page;
    std::shared_ptr<TestFolder> machine = std::make_shared<TestFolder>();
};

}  // namespace zelvo::testing
