#pragma once

#include <deque>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "platform/console/Script.h"
#include "platform/console/UserActions.h"
#include "screen/Desktop.h"
#include "screen/Fields.h"

namespace zelvo::console {

/// Exit codes of a console run.
namespace exits {
inline constexpr int done = 0, failed = 1, unreadable = 2, noConnection = 3;
}

/// What a console run is made of.
struct ConsoleParts {
    Script& script;
    std::ostream& out;     ///< the records of what happens
    std::ostream& errors;  ///< what went wrong, with the script's line
    screen::SettingsStore& settings;
    /// Runs the pharmacy's tool with these words; gives its exit code.
    std::function<int(const std::vector<std::string>&)> pharmacy;
    /// Its opening is no record; when it has closed, the script can only look back.
    std::string mainWindow = "frmDoctorOCSmain";
};

enum class PageOutcome { Finished, Failed, Never };

/// A screen in a terminal: windows run by the commands of a script, and what happens is written one record a
/// line. A command that fails ends the program on the spot, so that no handler goes on after it; a person at
/// a terminal is told, and goes on.
class ConsoleDesktop : public screen::Desktop {
public:
    explicit ConsoleDesktop(ConsoleParts parts);

    /// An order's nine values went to the chart, in their order, as text. Records them.
    void sent(const std::vector<std::string>& values);
    /// Runs the commands that are left when the windows have closed.
    void readRest();
    /// What the run comes to so far: whether the main window ever opened, whether the script ended with a
    /// window open, and what a person's commands came to.
    int exitCode() const;

    /// For the commands.
    virtual UserActions& user() { return user_; }
    std::ostream& out() { return parts_.out; }
    bool afterMain() const { return mainWas_ && runs_.empty(); }
    const std::vector<screen::Window*>& openWindows() const { return runs_; }
    void queueAnswer(screen::Answer answer) { answers_.push_back(answer); }
    void queuePage(PageOutcome outcome) { outcomes_.push_back(outcome); }
    int runPharmacy(const std::vector<std::string>& words);
    const screen::MessageBox* oldestBox() const { return boxes_.empty() ? nullptr : &boxes_.front(); }
    void boxSeen() { boxes_.pop_front(); }
    int events() const { return events_; }
    /// The values of the last event; empty before the first.
    const std::vector<std::string>& lastEvent() const { return lastEvent_; }

    screen::Answer messageBox(const screen::MessageBox& box) override;
    void setPointer(screen::Pointer pointer) override { pointer_ = pointer; }
    screen::Pointer pointer() const override { return pointer_; }
    void processEvents(bool userInput) override;
    void waitForEvents(std::chrono::milliseconds atMost) override;
    std::chrono::steady_clock::time_point now() const override { return Desktop::now() + skipped_; }
    std::string toolkit() const override { return "console"; }
    double screenWidth() const override;
    double screenHeight() const override;
    void runModal(screen::Window& window) override;
    screen::SettingsStore& settings() override { return parts_.settings; }
    void openBrowser(std::string_view address) override;

protected:
    /// The next queued answer, or the box's default; the box is recorded with it.
    screen::Answer answered(const screen::MessageBox& box);
    /// A command of the script has run.
    virtual void commandDone() {}
    /// A wait for a page that is on its way.
    virtual void await(std::chrono::milliseconds atMost);

private:
    struct Page {
        screen::WebView* view;
        PageOutcome outcome;
    };
    void record(const std::string& line);
    std::string repeatable(const std::string& command) const;
    void obey(const Line& line);
    void fail(const Line& line, int code, const std::string& what);
    void closeAtEnd(screen::Window& window);
    using Drive = std::function<void(const std::string&)>;
    void hangPages(screen::Window& window);
    void navigated(screen::WebView& view, const std::string& address, const Drive& toolkit);
    void forget(const screen::WebView& view);
    void dropPages(const screen::Window& window);
    bool deliverPages();

    ConsoleParts parts_;
    UserActions user_;
    std::deque<screen::Answer> answers_;
    std::deque<screen::MessageBox> boxes_;
    std::deque<PageOutcome> outcomes_;
    std::deque<Page> pages_;
    std::vector<screen::Window*> runs_;
    bool never_ = false;  ///< the page asked for last never comes
    std::chrono::milliseconds skipped_{0};
    std::vector<std::string> lastEvent_;
    int events_ = 0;
    bool mainWas_ = false, endedOpen_ = false;
    int failed_ = exits::done;  ///< of a person's commands the first that failed
    screen::Pointer pointer_ = screen::Pointer::Normal;
};

}  // namespace zelvo::console
