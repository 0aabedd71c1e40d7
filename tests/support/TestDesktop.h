#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "screen/Desktop.h"
#include "screen/Window.h"

namespace zelvo::testing {

/// A screen without glass: records boxes and gives queued answers, runs windows by queued scripts. An answer
/// that was queued and never used, a box that nobody looked at, and a script that never ran fail the test
/// when the desktop goes.
class TestDesktop : public screen::Desktop {
public:
    TestDesktop();
    ~TestDesktop() override;

    /// The next box gets this answer; several queue up. A box without one gets its default.
    void answer(screen::Answer answer) { answers_.push_back(answer); }
    /// The oldest box not looked at says exactly this.
    void expectBox(const std::string& caption, const std::string& text,
                   screen::BoxIcon icon = screen::BoxIcon::Information);
    void expectQuestion(const std::string& caption, const std::string& text) {
        expectBox(caption, text, screen::BoxIcon::Question);
    }
    void expectNoBox();
    /// The oldest box not looked at, which then counts as seen.
    screen::MessageBox takeBox();
    /// The texts of all of those, each with a line end.
    std::string takeTexts();
    /// Told of each box as it comes.
    std::function<void(const screen::MessageBox&)> onBox = [](const screen::MessageBox&) {};

    /// What is done in the next modal run of the window of this name. When the script ends and the window
    /// still stands, it is closed as a user would. A window without a script fails the test and is closed.
    void whenShown(const std::string& window, std::function<void(screen::Window&)> script);
    /// Shows `window` modally with this script.
    void show(screen::Window& window, std::function<void()> script);

    /// Where the system's browser was opened.
    std::vector<std::string> browsed;
    /// Runs at every pass of the event loop: at every yield, whatever time has passed.
    std::function<void()> onEvents;

    screen::Answer messageBox(const screen::MessageBox& box) override;
    void setPointer(screen::Pointer pointer) override { pointer_ = pointer; }
    screen::Pointer pointer() const override { return pointer_; }
    void processEvents(bool userInput) override;
    /// Nobody waits: the clock goes on at once.
    void waitForEvents(std::chrono::milliseconds atMost) override {
        waited_ += atMost;
        processEvents(true);
    }
    std::chrono::steady_clock::time_point now() const override { return Desktop::now() + waited_; }
    double screenWidth() const override { return 19200; }
    double screenHeight() const override { return 12000; }
    void runModal(screen::Window& window) override;
    screen::SettingsStore& settings() override { return settings_; }
    void openBrowser(std::string_view address) override { browsed.emplace_back(address); }

private:
    class MemorySettings : public screen::SettingsStore {
    public:
        std::string read(std::string_view application, std::string_view section, std::string_view key,
                         std::string_view absent) const override;
        void write(std::string_view application, std::string_view section, std::string_view key,
                   std::string_view value) override;

    private:
        std::map<std::vector<std::string>, std::string> values_;
    };

    std::deque<screen::Answer> answers_;
    std::deque<screen::MessageBox> boxes_;
    std::map<std::string, std::deque<std::function<void(screen::Window&)>>> scripts_;
    MemorySettings settings_;
    std::chrono::milliseconds waited_{0};
    screen::Pointer pointer_ = screen::Pointer::Normal;
};

}  // namespace zelvo::testing
