#include "platform/console/ConsoleDesktop.h"

#include <array>
#include <thread>

#include "platform/console/Commands.h"
#include "platform/console/Expectations.h"
#include "platform/console/System.h"
#include "platform/console/Texts.h"

namespace zelvo::console {

using screen::Answer;
using screen::Window;

namespace {

/// Names of the nine values, and whether each is a text.
struct EventValue {
    const char* name;
    bool text;
};
constexpr std::array<EventValue, 9> eventValues{{{"strJob", true},
                                                 {"intChupSu", false},
                                                 {"intPouchAmount", false},
                                                 {"sglDayTuYak", false},
                                                 {"intTuyakilsu", false},
                                                 {"intPouchTotal", false},
                                                 {"strMessage", true},
                                                 {"lngSumCost", false},
                                                 {"strxDrugList", true}}};

constexpr double widthInTwips = 19200;
constexpr double heightInTwips = 12000;

/// The queued answer if the box has such a button, else its default.
Answer pressable(Answer wanted, const screen::MessageBox& box) {
    const bool hasIt = (box.buttons == screen::BoxButtons::Ok) == (wanted == Answer::Ok);
    return hasIt ? wanted : box.defaultAnswer;
}

}  // namespace

ConsoleDesktop::ConsoleDesktop(ConsoleParts parts) : parts_(std::move(parts)), user_(*this) {}

void ConsoleDesktop::record(const std::string& line) {
    parts_.out << line << "\n" << std::flush;
}

void ConsoleDesktop::sent(const std::vector<std::string>& values) {
    ++events_;
    lastEvent_ = values;
    std::string line = "Send2Chart";
    for (std::size_t i = 0; i < eventValues.size() && i < values.size(); ++i) {
        line += std::string(" ") + eventValues[i].name + "=";
        line += eventValues[i].text ? inQuotes(values[i]) : values[i];
    }
    record(line);
}

Answer ConsoleDesktop::messageBox(const screen::MessageBox& box) {
    return answered(box);
}

Answer ConsoleDesktop::answered(const screen::MessageBox& box) {
    Answer answer = box.defaultAnswer;
    if (!answers_.empty()) {
        answer = pressable(answers_.front(), box);
        answers_.pop_front();
    }
    boxes_.push_back(box);
    record(boxText(box) + " -> " + answerName(answer));
    return answer;
}

double ConsoleDesktop::screenWidth() const {
    return widthInTwips;
}

double ConsoleDesktop::screenHeight() const {
    return heightInTwips;
}

void ConsoleDesktop::openBrowser(std::string_view address) {
    record("browser " + escaped(address));
}

int ConsoleDesktop::runPharmacy(const std::vector<std::string>& words) {
    parts_.out << std::flush;
    return parts_.pharmacy(words);
}

void ConsoleDesktop::runModal(Window& window) {
    const bool main = window.name() == parts_.mainWindow;
    if (main) {
        mainWas_ = true;
    } else {
        record("window " + window.name() + " " + inQuotes(window.caption()));
    }
    runs_.push_back(&window);
    hangPages(window);
    window.appear();
    deliverKeys();
    deliverPages();
    while (!window.leaving()) {
        std::optional<Line> line;
        if (!endedOpen_) line = parts_.script.next();
        if (!line) {
            closeAtEnd(window);
            break;
        }
        obey(*line);
        deliverPages();
    }
    dropPages(window);
    runs_.pop_back();
    record("closed " + window.name());
}

void ConsoleDesktop::readRest() {
    while (const auto line = parts_.script.next()) obey(*line);
}

int ConsoleDesktop::exitCode() const {
    if (!mainWas_) return exits::noConnection;
    return endedOpen_ ? exits::failed : failed_;
}

/// The script is over and the window stands: it is closed as a user would, and so are those below it.
void ConsoleDesktop::closeAtEnd(Window& window) {
    const int lastLine = parts_.script.lineNumber();
    if (!endedOpen_) {
        parts_.out << std::flush;
        parts_.errors << parts_.script.name() << ":" << lastLine
                      << ": expected the window to be closed at the end of the script, found "
                      << window.name() << " open\n"
                      << std::flush;
    }
    endedOpen_ = true;
    window.userClose();
    if (window.leaving()) return;
    parts_.errors << parts_.script.name() << ":" << lastLine << ": expected " << window.name()
                  << " to close, found it open\n"
                  << std::flush;
    endProgram(exits::failed);
}

/// A command as it may be said again: without what goes into a masked field.
std::string ConsoleDesktop::repeatable(const std::string& command) const {
    WordReader words(command);
    try {
        const std::string verb = words.word("the command"), name = words.word("FIELD");
        const screen::Field* const field = front() ? front()->field(name) : nullptr;
        if (field && isMasked(*field) && !words.atEnd()) return verb + " " + name + " ****";
    } catch (const UnreadableError&) {
        // No field is named.
    }
    return command;
}

void ConsoleDesktop::obey(const Line& line) {
    const std::string said = repeatable(line.text);
    try {
        runCommand(*this, line.text);
        commandDone();
    } catch (const UnreadableError& error) {
        fail(line, exits::unreadable, error.what());
    } catch (const ExpectationError& error) {
        fail(line, exits::failed, error.what());
    } catch (const ActionError& error) {
        fail(line, exits::failed, "expected that a user can " + said + ", found that " + error.what());
    } catch (const std::exception& fault) {
        fail(line, exits::failed, "expected " + said + " to run, found the fault " + escaped(fault.what()));
    }
}

/// Says what went wrong. A script ends here, with the program: a handler up the stack would go on and commit
/// an order.
void ConsoleDesktop::fail(const Line& line, int code, const std::string& what) {
    parts_.out << std::flush;
    parts_.errors << parts_.script.name() << ":" << line.number << ": " << what << "\n" << std::flush;
    if (!parts_.script.interactive()) endProgram(code);
    if (failed_ == exits::done) failed_ = code;
}

void ConsoleDesktop::processEvents(bool) {
    deliverPages();
}

/// For a page that never comes nobody sits out the time.
void ConsoleDesktop::waitForEvents(std::chrono::milliseconds atMost) {
    if (deliverPages()) return;
    if (never_) {
        skipped_ += atMost;
    } else {
        await(atMost);
    }
}

void ConsoleDesktop::await(std::chrono::milliseconds atMost) {
    std::this_thread::sleep_for(atMost);
}

/// The console stands before the window's web views: it writes where they go and says what came of it. Where
/// a toolkit shows them, a page that comes is left to it.
void ConsoleDesktop::hangPages(Window& window) {
    for (screen::Field* field : window.fields()) {
        auto* view = dynamic_cast<screen::WebView*>(field);
        if (!view) continue;
        view->driveNavigation = [this, view, toolkit = std::move(view->driveNavigation)](
                                    const std::string& address) { navigated(*view, address, toolkit); };
        view->driveStop = [this, view, toolkit = std::move(view->driveStop)] {
            forget(*view);
            if (toolkit) toolkit();
        };
    }
}

void ConsoleDesktop::forget(const screen::WebView& view) {
    std::erase_if(pages_, [&](const Page& page) { return page.view == &view; });
}

void ConsoleDesktop::navigated(screen::WebView& view, const std::string& address, const Drive& toolkit) {
    record("navigate " + escaped(address));
    forget(view);
    PageOutcome outcome = PageOutcome::Finished;
    if (!outcomes_.empty()) {
        outcome = outcomes_.front();
        outcomes_.pop_front();
    }
    never_ = outcome == PageOutcome::Never;
    if (outcome == PageOutcome::Finished && toolkit) {
        toolkit(address);
    } else if (!never_) {
        pages_.push_back({&view, outcome});
    }
}

void ConsoleDesktop::dropPages(const Window& window) {
    for (screen::Field* field : window.fields()) {
        auto* view = dynamic_cast<screen::WebView*>(field);
        if (!view) continue;
        view->driveNavigation = nullptr;
        view->driveStop = nullptr;
        forget(*view);
    }
}

/// Tells the web views what came of their pages; false when there was nothing to tell. A browser that can't
/// open a page shows one of its own, which is then finished.
bool ConsoleDesktop::deliverPages() {
    if (pages_.empty()) return false;
    const Page page = pages_.front();
    pages_.pop_front();
    const Window::Action telling(page.view->window());
    if (page.outcome == PageOutcome::Failed) page.view->onFailed();
    page.view->onFinished();
    return true;
}

}  // namespace zelvo::console
