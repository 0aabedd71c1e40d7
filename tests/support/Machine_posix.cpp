#include "support/Machine.h"

#include <cstdlib>

namespace zelvo::testing {

void liveIn(const std::filesystem::path& home) {
    ::setenv("HOME", home.c_str(), 1);
    ::setenv("XDG_DATA_HOME", "not/absolute", 1);
    ::unsetenv("XDG_CONFIG_HOME");
}

std::filesystem::path scratchFolder() {
    const std::filesystem::path memory = "/dev/shm";
    return std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
}

bool isPrivate(const std::filesystem::path& path) {
    using std::filesystem::perms;
    const perms all =
        std::filesystem::is_directory(path) ? perms::owner_all : perms::owner_read | perms::owner_write;
    return std::filesystem::status(path).permissions() == all;
}

}  // namespace zelvo::testing
