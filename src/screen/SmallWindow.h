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

/// The keys by which the user zooms.
inline void addZoomKeys(Window& window) {
    Zoom& zoom = window.desktop().zoom();
    const auto always = [] { return true; };
    window.addShortcut({"Ctrl++", "크게 보기", always, [&zoom] { zoom.step(1); }});
    window.addShortcut({"Ctrl+-", "작게 보기", always, [&zoom] { zoom.step(-1); }});
    window.addShortcut({"Ctrl+0", "원래 크기로 보기", always, [&zoom] { zoom.reset(); }});
}

}  // namespace zelvo::screen
