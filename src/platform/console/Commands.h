#pragma once

#include <string>

#include "platform/console/ConsoleDesktop.h"

namespace zelvo::console {

/// Runs one command of the console's language. Throws UnreadableError for one that can't be read, names no
/// field, or can't be said any more when the main window has closed; ExpectationError for an expectation that
/// does not hold; ActionError for what a user could not do.
void runCommand(ConsoleDesktop& desktop, const std::string& line);

}  // namespace zelvo::console
