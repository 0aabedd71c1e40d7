#pragma once

#include <sys/types.h>

#include <string_view>
#include <vector>

namespace zelvo::browser {

/// The system's browser, started by the desktop's own opener and without a shell.
class SystemBrowser {
public:
    SystemBrowser() = default;
    ~SystemBrowser();
    SystemBrowser(const SystemBrowser&) = delete;
    SystemBrowser& operator=(const SystemBrowser&) = delete;

    /// Opens an http or https address. Throws Fault for any other, and when no browser is there.
    void open(std::string_view address);

private:
    /// Takes leave of the openers that have ended.
    void collect();

    std::vector<pid_t> running_;
};

}  // namespace zelvo::browser
