#include "platform/odbc/Caller.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

#include "basics/Fault.h"

namespace zelvo::odbc {

struct Caller::Shared {
    std::mutex mutex;
    std::condition_variable changed;
    std::function<void()> work;
    bool running = false, ending = false;
};

Caller::Caller() : shared_(std::make_shared<Shared>()), thread_([shared = shared_] { serve(*shared); }) {}

Caller::~Caller() {
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->ending = true;
        shared_->changed.notify_all();
        if (shared_->running) thread_.detach();
    }
    if (thread_.joinable()) thread_.join();
}

void Caller::serve(Shared& shared) {
    std::unique_lock lock(shared.mutex);
    for (;;) {
        shared.changed.wait(lock, [&] { return shared.work || shared.ending; });
        if (!shared.work) return;
        std::function<void()> work = std::exchange(shared.work, nullptr);
        lock.unlock();
        work();
        work = nullptr;
        lock.lock();
        shared.running = false;
        shared.changed.notify_all();
    }
}

bool Caller::run(std::function<void()> work, const std::function<bool()>& waiting) {
    constexpr std::chrono::milliseconds tick(20);
    std::unique_lock lock(shared_->mutex);
    // What a window does while it waits must not ask the database: the line is taken.
    if (shared_->running) throw basics::Fault("the line waits for another statement");
    shared_->work = std::move(work);
    shared_->running = true;
    shared_->changed.notify_all();
    while (!shared_->changed.wait_for(lock, tick, [&] { return !shared_->running; })) {
        lock.unlock();
        const bool goesOn = waiting();
        lock.lock();
        if (!goesOn && shared_->running) return false;
    }
    return true;
}

}  // namespace zelvo::odbc
