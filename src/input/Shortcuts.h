#pragma once

#include "screen/Window.h"

namespace zelvo::input {

/// Gives the main window the keys of the daily road: to the herbs, the dose, the options, the price, the
/// send, the search. Finds the fields by name; a name that no field bears throws Fault.
void addShortcuts(screen::Window& form);

}  // namespace zelvo::input
