#pragma once

#include <gtest/gtest.h>

#include "screen/Fields.h"
#include "screen/TextField.h"
#include "screen/Window.h"
#include "support/TestDesktop.h"

namespace zelvo::screen {

/// A window, and a log of what happened in it.
struct ScreenTest : ::testing::Test {
    std::string take() { return std::exchange(log, {}); }
    /// A listener that writes a word into the log.
    std::function<void()> says(const std::string& word) {
        return [this, word] { log += word + " "; };
    }
    void keys(const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            form.userKey(Key::named(name).value());
            desktop.deliverKeys();
        }
    }

    std::string log;
    testing::TestDesktop desktop;
    Window form{desktop, "frmTest", 9000, 6000};
};

}  // namespace zelvo::screen
