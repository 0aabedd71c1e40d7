#include "screen/Desktop.h"

#include <algorithm>

#include "screen/Window.h"

namespace zelvo::screen {

std::shared_ptr<basics::SupportRecord> Desktop::nowhere() {
    class Nowhere : public basics::SupportRecord {
        void add(std::string_view /*line*/) noexcept override {}
        std::string lastLines() const override { return {}; }
    };
    return std::make_shared<Nowhere>();
}

namespace {

/// Keys delivered at one time, so that keys which send keys come to an end.
constexpr int mostDelivered = 1000;
constexpr std::chrono::milliseconds yieldSlice{10};
/// The clock is read at one yield in so many: a walk over rows yields at each of them.
constexpr unsigned yieldsPerLook = 16;

}  // namespace

void Desktop::inform(std::string_view text, std::string_view caption) {
    messageBox({std::string(text), std::string(caption), BoxIcon::Information, BoxButtons::Ok, Answer::Ok});
}

void Desktop::alarm(std::string_view text, std::string_view caption) {
    messageBox({std::string(text), std::string(caption), BoxIcon::Critical, BoxButtons::Ok, Answer::Ok});
}

bool Desktop::ask(std::string_view text, std::string_view caption, Answer defaultAnswer) {
    return messageBox({std::string(text), std::string(caption), BoxIcon::Question, BoxButtons::YesNo,
                       defaultAnswer}) == Answer::Yes;
}

void Desktop::sendKeys(std::string_view keys) {
    if (!front()) return;
    if (keys == "{TAB}") keys_.push_back({keys::tab, U'\t'});
    if (keys == "{END}" || keys == "{end}") keys_.push_back({keys::end, 0});
}

void Desktop::deliverKeys() {
    for (int delivered = 0; !keys_.empty(); ++delivered) {
        Window* const window = front();
        if (!window || delivered == mostDelivered) {
            keys_.clear();
            return;
        }
        if (!window->takesInput()) return;
        const Key key = keys_.front();
        keys_.pop_front();
        window->userKey(key);
    }
}

void Desktop::yield() {
    if (!yieldsAlways_) {
        if (++yields_ % yieldsPerLook != 0) return;
        if (std::chrono::steady_clock::now() - lastYield_ < yieldSlice) return;
    }
    processEvents(false);
    lastYield_ = std::chrono::steady_clock::now();
}

std::function<bool()> Desktop::beginWait(std::string_view, std::chrono::steady_clock::time_point) {
    return [] { return true; };
}

void Desktop::waitFor(std::string_view, const WaitingJob& job) {
    job({});
}

bool Desktop::tellsFault(Window&, const std::exception&) {
    return false;
}

void Desktop::opened(Window& window) {
    shown_.push_back(&window);
}

void Desktop::closed(Window& window) {
    std::erase(shown_, &window);
    if (shown_.empty()) keys_.clear();
}

}  // namespace zelvo::screen
