#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace zelvo::screen {

/// Something that happens to a field, with any number of listeners, run in the order in which they were added. It bears
/// that its owner or a listener goes away while it runs: listeners taken out no longer run, new ones run the next time.
template <class... Args>
class Event {
public:
    using Handler = std::function<void(Args...)>;

    /// Ends a listener's subscription when it goes away.
    class Subscription {
    public:
        Subscription() = default;
        explicit Subscription(std::weak_ptr<Handler> handler) : handler_(std::move(handler)) {}
        Subscription(Subscription&& other) noexcept : handler_(std::exchange(other.handler_, {})) {}
        Subscription& operator=(Subscription&& other) noexcept {
            end();
            handler_ = std::exchange(other.handler_, {});
            return *this;
        }
        Subscription(const Subscription&) = delete;
        Subscription& operator=(const Subscription&) = delete;
        ~Subscription() { end(); }
        void end() {
            if (auto handler = handler_.lock()) *handler = nullptr;
            handler_.reset();
        }

    private:
        std::weak_ptr<Handler> handler_;
    };

    /// Adds a listener that stays as long as the event.
    void add(Handler handler) { handlers_->push_back(std::make_shared<Handler>(std::move(handler))); }
    /// Adds a listener that stays as long as the returned subscription.
    [[nodiscard]] Subscription listen(Handler handler) {
        add(std::move(handler));
        return Subscription(handlers_->back());
    }

    void operator()(Args... args) const {
        const auto keep = handlers_;  // outlives the owner
        const std::size_t count = keep->size();
        for (std::size_t i = 0; i < count && i < keep->size(); ++i) {
            const std::shared_ptr<Handler> handler = (*keep)[i];
            const Handler run = *handler;
            if (run) run(static_cast<Args>(args)...);
        }
    }

private:
    std::shared_ptr<std::vector<std::shared_ptr<Handler>>> handlers_ =
        std::make_shared<std::vector<std::shared_ptr<Handler>>>();
};

}  // namespace zelvo::screen
