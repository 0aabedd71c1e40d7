#pragma once

#include <functional>
#include <string>

namespace zelvo::screen {

class Field;

/// A combination of keys that does one thing in its window.
struct Shortcut {
    std::string keys;               ///< "F5", "Ctrl+Z"
    std::string what;               ///< in the words of the sheet of keys
    std::function<bool()> applies;  ///< whether it does anything as the window stands
    std::function<void()> run;      ///< does it as the user would, through the window's user... operations
    const Field* serves = nullptr;  ///< the field whose tip bears the keys, if there is one
};

}  // namespace zelvo::screen
