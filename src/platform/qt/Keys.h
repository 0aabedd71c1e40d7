#pragma once

#include <optional>

#include "screen/Key.h"

class QKeyEvent;

namespace zelvo::qt {

/// The key as the screen model knows it; nothing for one that the model has no word for (function keys,
/// Page Up, anything with Ctrl, Alt or Meta, an arrow with Shift).
std::optional<screen::Key> modelKey(const QKeyEvent& event);

}  // namespace zelvo::qt
