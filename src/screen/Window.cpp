#include "screen/Window.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <utility>

#include "basics/Held.h"

namespace zelvo::screen {

/// One input of the user being worked off: an action, during which no other input comes in unless it lets it
/// itself.
class Window::InputTurn {
public:
    explicit InputTurn(Window& window)
        : actions_(window.actions_, window.actions_ + 1), allowed_(window.inputAllowed_, 0) {}

private:
    basics::Held<int> actions_, allowed_;
};

/// A window on the screen. Actions that already ran when it was shown neither hold it open nor keep its input
/// out.
class Window::ModalRun {
public:
    explicit ModalRun(Window& window)
        : window_(window), actions_(window.actions_, 0), allowed_(window.inputAllowed_, 0) {
        window_.shown_ = true;
        window_.desktop_.opened(window_);
    }
    ~ModalRun() {
        window_.desktop_.closed(window_);
        window_.shown_ = false;
        window_.onGlass_ = false;
        window_.entered_ = false;
        window_.waiting_.clear();
        if (window_.leaving_ == Leaving::Hide) window_.leaving_ = Leaving::No;
    }
    ModalRun(const ModalRun&) = delete;
    ModalRun& operator=(const ModalRun&) = delete;

private:
    Window& window_;
    basics::Held<int> actions_, allowed_;
};

Window::Window(Desktop& desktop, std::string name, double width, double height)
    : desktop_(desktop), name_(std::move(name)), width_(width), height_(height) {}

Window::~Window() {
    if (shown_) desktop_.closed(*this);
}

void Window::setCaption(std::string_view caption) {
    if (caption == caption_) return;
    caption_ = caption;
    touched(nullptr);
}

void Window::touch() {
    if (std::exchange(loaded_, true)) return;
    onLoad();
}

Field* Window::field(std::string_view name) const {
    const auto found = byName_.find(name);
    return found == byName_.end() ? nullptr : found->second;
}

void Window::registerField(Field& field) {
    if (!byName_.emplace(field.name(), &field).second)
        throw basics::Fault(name_ + ": " + field.name() + " 필드가 이미 있습니다.");
    fields_.push_back(&field);
    tabOrder_.push_back(&field);
}

namespace {

/// Takes a field out; most go in the reverse order of their making.
void takeOut(std::vector<Field*>& fields, const Field& field) {
    const auto found = std::find(fields.rbegin(), fields.rend(), &field);
    if (found != fields.rend()) fields.erase(std::next(found).base());
}

}  // namespace

void Window::forget(Field& field) {
    takeOut(fields_, field);
    takeOut(tabOrder_, field);
    byName_.erase(field.name());
    if (focus_ == &field) focus_ = nullptr;
    if (mainTabs_ == &field) mainTabs_ = nullptr;
}

bool Window::has(const Field& field) const {
    return std::find(fields_.begin(), fields_.end(), &field) != fields_.end();
}

void Window::showModal() {
    if (shown_ || unloaded_) return;
    touch();
    if (!closing()) {
        try {
            const ModalRun run(*this);
            open();
            desktop_.deliverKeys();
            if (!leaving()) desktop_.runModal(*this);
            if (!closing()) leaving_ = Leaving::Unload;  // the toolkit itself came to its end
        } catch (...) {
            leaving_ = Leaving::Unload;
            finish();
            throw;
        }
    }
    finish();
}

void Window::open() {
    const Action opening(*this);
    for (Field* field : fields_) field->recall();
    touched(nullptr);
    Field* first = focus_ && focus_->reachable() ? focus_ : nullptr;
    for (auto next = tabOrder_.begin(); !first && next != tabOrder_.end(); ++next) {
        if ((*next)->takesFocus() && (*next)->tabStop() && (*next)->reachable()) first = *next;
    }
    if (first) giveFocus(*first);
}

void Window::appear() {
    onGlass_ = true;
    const Action appearing(*this);
    touched(nullptr);
}

void Window::hide() {
    if (!shown_ || closing()) return;
    leaving_ = Leaving::Hide;
    waiting_.clear();
    finish();
}

void Window::unload() {
    if (unloaded_) return;
    leaving_ = Leaving::Unload;
    waiting_.clear();
    finish();
}

bool Window::leaving() const {
    return closing() && actions_ == 0;
}

/// Once nothing runs in a window that is to go: tells the toolkit that its run ends, or ends the life of one
/// that nothing shows any more.
void Window::finish() {
    if (!leaving()) return;
    if (shown_) {
        touched(nullptr);
    } else if (leaving_ == Leaving::Unload && !std::exchange(unloaded_, true)) {
        onUnload();
    }
}

Window::Action::Action(Window& window) : window_(window), unwinding_(std::uncaught_exceptions()) {
    ++window_.actions_;
}

Window::Action::~Action() noexcept(false) {
    --window_.actions_;
    if (std::uncaught_exceptions() == unwinding_) window_.runWaiting();
}

Window::InputAllowed::InputAllowed(Window& window) : window_(window) {
    ++window_.inputAllowed_;
    window_.runWaiting();
}

Window::InputAllowed::~InputAllowed() {
    --window_.inputAllowed_;
}

void Window::userInput(std::function<void()> input) {
    if (closing()) return;
    waiting_.push_back(std::move(input));
    runWaiting();
}

void Window::work(const std::function<void()>& input) {
    const InputTurn turn(*this);
    try {
        input();
    } catch (const std::exception& fault) {
        if (!desktop_.tellsFault(*this, fault)) throw;
    }
}

/// Works off the user's input in its order, as far as nothing stands in its way.
void Window::runWaiting() {
    while (!waiting_.empty() && takesInput()) {
        const std::function<void()> input = std::move(waiting_.front());
        waiting_.pop_front();
        work(input);
        if (actions_ > 0 || closing()) continue;
        work([this] { keepFocus(); });
        onSettled();
    }
    finish();
}

void Window::userKey(const Key& key) {
    userInput([this, key] { dispatch(key); });
}

bool Window::userKeyHeard(const Key& key) {
    if (!takesInput()) return false;
    bool stands = false;
    userInput([&] {
        Key asked = key;
        stands = heard(focus_, asked);
    });
    return stands;
}

/// Lets the listeners have a key; true where it still is to be applied to its field. It ends where one of
/// them swallows it, or where the window or the field is no longer there to take it.
bool Window::heard(Field* field, Key& key) {
    const auto takesIt = [&] { return field && has(*field) && field->reachable(); };
    onKeyPreview(key.code);
    if (key.code == keys::none || closing()) return false;
    if (takesIt()) field->onKeyDown(key.code);
    if (key.code == keys::none || closing()) return false;
    if (key.code != keys::tab && key.character != 0 && takesIt()) {
        field->onKeyPress(key.character);
        if (key.character == 0 || closing()) return false;
    }
    return key.code == keys::tab || takesIt();
}

/// A key belongs to the field that had the focus when it went down.
void Window::dispatch(const Key& key) {
    Field* const field = focus_;
    Key applied = key;
    if (!heard(field, applied)) return;
    if (applied.code == keys::tab) {
        moveFocus();
    } else {
        field->applyKey(applied);
    }
}

bool Window::userShortcut(std::string_view keys) {
    const auto found = std::find_if(shortcuts_.begin(), shortcuts_.end(),
                                    [&](const Shortcut& one) { return one.keys == keys && one.applies(); });
    if (found == shortcuts_.end() || !takesInput()) return false;
    found->run();
    return true;
}

void Window::userFocus(Field& field) {
    userInput([&field] {
        if (field.reachable()) field.setFocus();
    });
}

void Window::userClose() {
    if (!shown_) return;
    const Action asking(*this);
    if (closing() || mayClose()) unload();
}

std::string Window::rememberedName(std::string_view what) const {
    return (remembersFor.empty() ? "" : remembersFor + " ") + name_ + " " + std::string(what);
}

void Window::userResize(double width, double height) {
    width_ = width;
    height_ = height;
    userInput([this] { onResize(); });
}

}  // namespace zelvo::screen
