#pragma once

#include <string_view>
#include <vector>

namespace zelvo::pharmacy {

struct EmbeddedFile {
    std::string_view name;
    std::string_view text;
};

/// The scripts that make a fresh database, in the order in which they run.
const std::vector<EmbeddedFile>& databaseScripts();
/// The notices' pages, named by the notice's key ("2.html"), and the pictures in them; byte for byte.
const std::vector<EmbeddedFile>& noticePages();
/// The postal table as it stands in its file: a line a place, the code, a tab, the address.
std::string_view postalText();

}  // namespace zelvo::pharmacy
