#pragma once

#include <string>
#include <vector>

#include "platform/console/ConsoleDesktop.h"

namespace zelvo::console {

/// What a script expected, and what was found instead.
class ExpectationError : public ActionError {
public:
    ExpectationError(const std::string& expected, const std::string& found)
        : ActionError("expected " + expected + ", found " + found) {}
};

/// Reads the rest of an `expect` command and looks whether it holds. Throws ExpectationError when it doesn't.
void expect(ConsoleDesktop& desktop, WordReader& words);

/// How each form of `expect` is said.
std::vector<std::string> expectationForms();

}  // namespace zelvo::console
