#pragma once

#include <functional>

#include "screen/Window.h"

namespace zelvo::screen {

/// Windows are designed in pixels of 96 to the inch.
inline constexpr double twipsPerPixel = 15;

/// Esc does this in the window, whatever field has the focus, and nothing else.
inline void onEscape(Window& window, std::function<void()> action) {
    window.onKeyPreview.add([action = std::move(action)](int& code) {
        if (code != keys::escape) return;
        code = keys::none;
        action();
    });
}

}  // namespace zelvo::screen
