#pragma once

#include <string_view>

#include "platform/browser/Opener.h"

namespace zelvo::browser {

/// The system's browser, started by the desktop's own opener and without a shell.
class SystemBrowser {
public:
    /// Opens an http or https address. Throws Fault for any other, and when no browser is there.
    void open(std::string_view address);

private:
    Opener opener_;
};

}  // namespace zelvo::browser
