#pragma once

#include <functional>
#include <string>

#include "screen/Desktop.h"
#include "screen/Window.h"

namespace zelvo::bench {

/// A screen that shows nothing: boxes get their default, and a window runs one function and closes.
class BareDesktop : public screen::Desktop {
public:
    std::function<void(screen::Window&)> inWindow;
    int boxes = 0;

    screen::Answer messageBox(const screen::MessageBox& box) override {
        ++boxes;
        return box.defaultAnswer;
    }
    void setPointer(screen::Pointer pointer) override { pointer_ = pointer; }
    screen::Pointer pointer() const override { return pointer_; }
    void processEvents(bool) override {}
    void waitForEvents(std::chrono::milliseconds) override {}
    double screenWidth() const override { return 19200; }
    double screenHeight() const override { return 12000; }
    void runModal(screen::Window& window) override {
        window.appear();
        if (inWindow) inWindow(window);
        if (!window.closing()) window.userClose();
    }
    screen::SettingsStore& settings() override { return settings_; }
    void openBrowser(std::string_view) override {}

private:
    class NoSettings : public screen::SettingsStore {
    public:
        std::string read(std::string_view, std::string_view, std::string_view,
                         std::string_view absent) const override {
            return std::string(absent);
        }
        void write(std::string_view, std::string_view, std::string_view, std::string_view) override {}
    };
    NoSettings settings_;
    screen::Pointer pointer_ = screen::Pointer::Normal;
};

}  // namespace zelvo::bench
