#pragma once

#include <filesystem>

namespace zelvo::files {

/// Where the user's data stands ($XDG_DATA_HOME, else ~/.local/share). Throws Fault when the user has no
/// home.
std::filesystem::path dataFolder();
/// Where the user's settings stand ($XDG_CONFIG_HOME, else ~/.config). Throws Fault when the user has no
/// home.
std::filesystem::path configFolder();

}  // namespace zelvo::files
