#pragma once

#include <string>

namespace zelvo::qt {

/// The display that windows can be shown on.
struct Display {
    /// What the toolkit has to be told to find it; "" where it finds it by itself.
    std::string platform;
    /// What is missing where there is none, in words for the host; "" where there is one.
    std::string missing;
};

/// Looks for a display without the toolkit, which would end the process where there is none.
Display findDisplay();

}  // namespace zelvo::qt
