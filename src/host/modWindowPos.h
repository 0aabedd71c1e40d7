#pragma once

#include "screen/Window.h"

namespace zelvo::host::modWindowPos {

/// Puts a window in the middle of the screen. Reading its size is the first touch of a new window, so it is
/// loaded then.
void CenterForm(screen::Window& form);

}  // namespace zelvo::host::modWindowPos
