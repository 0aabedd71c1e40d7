#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace zelvo::screen {

/// Something that happens to a field, with any number of listeners, run in the order in which they were
/// added. It bears that its owner or a listener goes away while it runs: listeners taken out no longer run,
/// new ones run the next time.
template <class... Args>
class Event {
public:
    using Handler = std::function<void(Args...)>;

private:
    struct Listener {
        Handler run;
        bool ended = false;
    };
    struct Listeners {
        std::vector<std::shared_ptr<Listener>> all;
        int running = 0;
    };

public:
    /// Ends a listener's subscription when it goes away.
    class Subscription {
    public:
        Subscription() = default;
        Subscription(Subscription&& other) noexcept : listener_(std::exchange(other.listener_, {})) {}
        Subscription& operator=(Subscription&& other) noexcept {
            if (this == &other) return *this;
            end();
            listener_ = std::exchange(other.listener_, {});
            return *this;
        }
        Subscription(const Subscription&) = delete;
        Subscription& operator=(const Subscription&) = delete;
        ~Subscription() { end(); }
        void end() {
            if (const auto listener = listener_.lock()) listener->ended = true;
            listener_.reset();
        }

    private:
        friend class Event;
        explicit Subscription(std::weak_ptr<Listener> listener) : listener_(std::move(listener)) {}

        std::weak_ptr<Listener> listener_;
    };

    /// Adds a listener that stays as long as the event.
    void add(Handler handler) {
        if (!listeners_) listeners_ = std::make_shared<Listeners>();
        auto& all = listeners_->all;
        if (listeners_->running == 0)
            std::erase_if(all, [](const auto& listener) { return listener->ended; });
        all.push_back(std::make_shared<Listener>(Listener{std::move(handler)}));
    }
    /// Adds a listener that stays as long as the returned subscription.
    [[nodiscard]] Subscription listen(Handler handler) {
        add(std::move(handler));
        return Subscription(listeners_->all.back());
    }

    void operator()(Args... args) const {
        runWhile([] { return true; }, static_cast<Args>(args)...);
    }
    /// Runs the listeners as long as `goOn()` says so before each of them.
    template <class GoOn>
    void runWhile(GoOn goOn, Args... args) const {
        const auto keep = listeners_;  // outlives the owner
        if (!keep) return;
        const Run run(*keep);
        const std::size_t count = keep->all.size();
        for (std::size_t i = 0; i < count && goOn(); ++i) {
            const std::shared_ptr<Listener> listener = keep->all[i];
            if (!listener->ended && listener->run) listener->run(static_cast<Args>(args)...);
        }
    }

private:
    struct Run {
        explicit Run(Listeners& running) : listeners(running) { ++listeners.running; }
        ~Run() { --listeners.running; }
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;
        Listeners& listeners;
    };

    // Made with the first listener: most events of a window have none.
    std::shared_ptr<Listeners> listeners_;
};

}  // namespace zelvo::screen
