#pragma once

#include <string>
#include <vector>

namespace zelvo::input {

/// The names of the main window's fields in the order in which the Tab and Enter keys come by: down a frame,
/// then to the next one.
const std::vector<std::string>& tabOrder();

}  // namespace zelvo::input
