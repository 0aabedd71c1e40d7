#pragma once

#include <chrono>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "basics/Held.h"
#include "basics/SupportRecord.h"
#include "screen/Components.h"
#include "screen/Key.h"
#include "screen/Remembered.h"
#include "screen/Waiting.h"
#include "screen/Zoom.h"

namespace zelvo::screen {

class Window;

enum class BoxIcon { Information, Critical, Question };
enum class BoxButtons { Ok, YesNo };
enum class Answer { Ok, Yes, No };

struct MessageBox {
    std::string text, caption;
    BoxIcon icon = BoxIcon::Information;
    BoxButtons buttons = BoxButtons::Ok;
    Answer defaultAnswer = Answer::Ok;
};

enum class Pointer { Normal, Busy };

/// The services that the logic asks of a screen. A toolkit implements what is virtual; the short forms and
/// the queue of injected keys are the same for all.
class Desktop {
public:
    virtual ~Desktop() = default;

    /// Shows a box and returns the answer.
    virtual Answer messageBox(const MessageBox& box) = 0;
    void inform(std::string_view text, std::string_view caption);
    void alarm(std::string_view text, std::string_view caption);
    /// True for Yes.
    bool ask(std::string_view text, std::string_view caption, Answer defaultAnswer = Answer::Yes);

    virtual void setPointer(Pointer pointer) = 0;
    virtual Pointer pointer() const = 0;

    /// Queues "{TAB}", "{END}" or "{end}": delivered to the window in front after the running event. While no
    /// window is shown there is nobody to get them, and they are dropped.
    void sendKeys(std::string_view keys);
    /// For toolkits: delivers what is queued to the window in front; called when an event has ended, before
    /// the next key.
    void deliverKeys();

    /// Lets pending events run. Time-sliced: works when some 10 ms have passed since the last time, and
    /// without the user's input.
    void yield();
    /// Lets pending events run once, now; with the user's input if asked for.
    virtual void processEvents(bool userInput) = 0;
    /// Waits a moment for something to happen, letting events run with the user's input.
    virtual void waitForEvents(std::chrono::milliseconds atMost) = 0;
    /// The time that waits are measured by; a desktop on which nobody waits may let it run faster.
    virtual std::chrono::steady_clock::time_point now() const { return std::chrono::steady_clock::now(); }

    /// What draws the windows, and its version.
    virtual std::string toolkit() const { return {}; }
    /// Where failures are noted, for those who help a clinic; nowhere until it has been set.
    basics::SupportRecord& support() const { return *support_; }
    void setSupport(std::shared_ptr<basics::SupportRecord> record) { support_ = std::move(record); }
    /// Something outside keeps the window's thread waiting since then; `what` is for the user. What it gives
    /// is to be called again and again meanwhile, and dropped at the end: false once the user has given up.
    /// Where there is a display, all else that the user does is dropped.
    virtual std::function<bool()> beginWait(std::string_view what,
                                            std::chrono::steady_clock::time_point since);
    /// Runs a job that waits for something outside, and returns when it has ended; throws what it threw, and
    /// a Fault when the user gave up. Where there is a display, the job runs beside the window's thread.
    virtual void waitFor(std::string_view what, const WaitingJob& job);

    /// What the running action is about, for a user who has to wait for it; "" where that has not been said.
    const std::string& errand() const { return errand_; }

    /// Screen size in twips.
    virtual double screenWidth() const = 0;
    virtual double screenHeight() const = 0;

    /// Puts a window on the glass, tells it so (Window::appear) and runs it until window.leaving(); called by
    /// Window::showModal only.
    virtual void runModal(Window& window) = 0;
    /// The window in front, nullptr when none is shown.
    Window* front() const { return shown_.empty() ? nullptr : shown_.back(); }

    /// A handler of the window ended in a fault that nobody caught. True when the user has been told and the
    /// session goes on; false leaves it to whoever made the input.
    virtual bool tellsFault(Window& window, const std::exception& fault);

    /// Where a user's copy goes; what went there last.
    virtual void toClipboard(std::string_view text) { copied_ = text; }
    const std::string& copied() const { return copied_; }

    virtual SettingsStore& settings() = 0;
    /// How the user left the windows; for this session alone until a store has been set.
    Remembered& remembered() { return remembered_; }
    void setRemembered(std::unique_ptr<SettingsStore> store) { remembered_ = Remembered(std::move(store)); }
    Zoom& zoom() { return zoom_; }
    /// Starts the system's browser at an address; throws Fault when there is none.
    virtual void openBrowser(std::string_view address) = 0;
    Components& components() { return components_; }

protected:
    /// Every yield works, whatever time has passed: for a desktop that wants to see them all.
    void yieldAlways() { yieldsAlways_ = true; }

private:
    friend class Window;
    friend class Errand;
    static std::shared_ptr<basics::SupportRecord> nowhere();
    void opened(Window& window);
    void closed(Window& window);

    std::vector<Window*> shown_;
    std::deque<Key> keys_;
    std::chrono::steady_clock::time_point lastYield_{};
    unsigned yields_ = 0;
    bool yieldsAlways_ = false;
    std::string errand_;
    Components components_;
    Remembered remembered_;
    std::string copied_;
    Zoom zoom_{remembered_};
    std::shared_ptr<basics::SupportRecord> support_ = nowhere();
};

/// Says what an action is about for as long as it lives ("처방전을 찾는 중입니다."); "" says nothing of its
/// own.
class Errand {
public:
    Errand(Desktop& desktop, std::string_view what)
        : held_(desktop.errand_, what.empty() ? desktop.errand_ : std::string(what)) {}

private:
    basics::Held<std::string> held_;
};

/// The busy pointer for as long as it lives, and what the action is about.
class BusyPointer {
public:
    explicit BusyPointer(Desktop& desktop, std::string_view what = {})
        : desktop_(desktop), errand_(desktop, what) {
        desktop_.setPointer(Pointer::Busy);
    }
    ~BusyPointer() { desktop_.setPointer(Pointer::Normal); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    Desktop& desktop_;
    Errand errand_;
};

}  // namespace zelvo::screen
