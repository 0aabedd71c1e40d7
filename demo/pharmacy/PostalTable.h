#pragma once

#include <string>

namespace zelvo::pharmacy {

/// The places in whose code or address every word of `find` stands, a line each: the code, a tab, the
/// address. Nothing for a blank text.
std::string findPlaces(const std::string& find);

}  // namespace zelvo::pharmacy
