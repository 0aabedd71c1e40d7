#pragma once

#include <filesystem>
#include <string_view>

namespace zelvo::files {

/// Makes the folder and those above it, for this user alone. Nothing happens if it stands. Throws Fault.
void makeFolder(const std::filesystem::path& folder);

/// Whether a file is on the disk when its writing returns, or when the system gets to it: a killed program
/// loses neither, a power cut may lose the latter.
enum class OnDisk { Now, Later };

/// Writes a file for this user alone, whole or not at all: when it throws Fault the file that stood there
/// before still does.
void writeWholeFile(const std::filesystem::path& path, std::string_view bytes, OnDisk onDisk = OnDisk::Now);

}  // namespace zelvo::files
