#pragma once

#include <filesystem>

namespace zelvo::testing {

/// From now on the user of this process lives in that folder: data in .local/share, settings in .config.
void liveIn(const std::filesystem::path& home);

/// True when nobody but this user may do anything with a file or a folder.
bool isPrivate(const std::filesystem::path& path);

/// Where the tests' files may lie: in memory where the machine has such a folder, for every file waits for
/// the disk and a test need not; on Windows where a file's rights are kept.
std::filesystem::path scratchFolder();

}  // namespace zelvo::testing
