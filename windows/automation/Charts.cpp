#include "Charts.h"

#include <algorithm>
#include <utility>

namespace automation {

namespace {

/// How long a chart that can't be reached any more may take to end.
constexpr DWORD lastBreath = 5'000;

void end() {
    ::TerminateProcess(::GetCurrentProcess(), 1);
}

}  // namespace

void Charts::forget() {
    for (const Chart& chart : watched_) ::UnregisterWaitEx(chart.wait, INVALID_HANDLE_VALUE);
    watched_.clear();
}

void Charts::watch(DWORD program) {
    if (program == 0 || program == ::GetCurrentProcessId() || find(program)) return;
    Handle opened(::OpenProcess(SYNCHRONIZE, FALSE, program));
    if (!opened) return;
    watched_.push_back({*this, program, std::move(opened)});
    Chart& chart = watched_.back();
    ++running_;
    if (::RegisterWaitForSingleObject(&chart.wait, chart.program.get(), &Charts::ended, &chart, INFINITE,
                                      WT_EXECUTEONLYONCE)) {
        return;
    }
    --running_;
    watched_.pop_back();
}

void Charts::setCalling(DWORD program) {
    calling_ = program;
    const Chart* const chart = find(program);
    if (chart && ::WaitForSingleObject(chart->program.get(), 0) == WAIT_OBJECT_0) end();
}

void Charts::lost() const {
    const Chart* const chart = find(calling_);
    if (chart && ::WaitForSingleObject(chart->program.get(), lastBreath) == WAIT_OBJECT_0) end();
}

void CALLBACK Charts::ended(void* chart, BOOLEAN /*timedOut*/) {
    const Chart& gone = *static_cast<const Chart*>(chart);
    if (--gone.all.running_ == 0 || gone.all.calling_ == gone.number) end();
}

/// One that has ended stays in the list: as long as it is held, no other program gets its number.
const Charts::Chart* Charts::find(DWORD program) const {
    const auto found = std::ranges::find(watched_, program, &Chart::number);
    return found == watched_.end() ? nullptr : &*found;
}

}  // namespace automation
