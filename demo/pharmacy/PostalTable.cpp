#include "pharmacy/PostalTable.h"

#include <algorithm>

#include "basics/Text.h"
#include "pharmacy/Embedded.h"

namespace zelvo::pharmacy {

std::string findPlaces(const std::string& find) {
    const auto words = basics::split(basics::trim(find), " ");
    std::string found;
    if (basics::isBlank(find)) return found;
    for (const auto& place : basics::split(postalText(), "\n")) {
        const auto holds = [&](const std::string& word) { return place.find(word) != std::string::npos; };
        if (!place.empty() && std::all_of(words.begin(), words.end(), holds)) found += place + "\n";
    }
    return found;
}

}  // namespace zelvo::pharmacy
