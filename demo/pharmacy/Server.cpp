#include "pharmacy/Server.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <fstream>
#include <iostream>

#include "pharmacy/Pages.h"
#include "pharmacy/PharmacyBook.h"

namespace zelvo::pharmacy {
namespace {

constexpr long parentLookNanoseconds = 250'000'000;

bool isGone(pid_t process) {
    return process != 0 && kill(process, 0) == -1 && errno == ESRCH;
}

/// Blocked in every thread that starts from here, so that they arrive in `waitForEnd` alone.
sigset_t blockEndSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signals;
}

void waitForEnd(const sigset_t& signals, pid_t parent, const Pages& pages) {
    const timespec look{0, parentLookNanoseconds};
    while (pages.isServing() && !isGone(parent)) {
        if (sigtimedwait(&signals, nullptr, &look) > 0) return;
    }
}

}  // namespace

int serve(const ServeOptions& options) {
    PharmacyBook book(options.databasePath);
    const auto signals = blockEndSignals();
    Pages pages(options.databasePath);
    const int port = pages.bind(options.port);
    if (port == 0) {
        std::cerr << "zelvo-pharmacy: port " << options.port << " cannot be had\n";
        return 1;
    }
    const auto base = "http://127.0.0.1:" + std::to_string(port);
    book.publishAddresses(base);
    pages.start();
    std::cout << "listening " << base << std::endl;
    if (!options.readyFile.empty() && !(std::ofstream(options.readyFile) << port << std::endl)) {
        std::cerr << "zelvo-pharmacy: " << options.readyFile << " cannot be written\n";
        return 1;
    }
    waitForEnd(signals, options.parent, pages);
    return 0;
}

}  // namespace zelvo::pharmacy
