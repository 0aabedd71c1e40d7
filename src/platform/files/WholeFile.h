#pragma once

#include <filesystem>
#include <string_view>

namespace zelvo::files {

/// Makes the folder and those above it, for this user alone. Nothing happens if it stands. Throws Fault.
void makeFolder(const std::filesystem::path& folder);

/// Writes a file for this user alone, whole or not at all: when this returns it is on the disk, and when it
/// throws Fault the file that stood there before still does.
void writeWholeFile(const std::filesystem::path& path, std::string_view bytes);

}  // namespace zelvo::files
