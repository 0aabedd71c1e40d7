#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>

#include "basics/Fault.h"
#include "platform/files/UserFolders.h"

namespace zelvo::files {
namespace {

/// A folder that the environment names; one that is not absolute doesn't count.
std::filesystem::path fromEnvironment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value == '/' ? value : std::filesystem::path();
}

std::filesystem::path home() {
    auto folder = fromEnvironment("HOME");
    if (!folder.empty()) return folder;
    std::array<char, 16384> buffer{};
    passwd entry{};
    passwd* found = nullptr;
    getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
    if (found == nullptr || found->pw_dir == nullptr || *found->pw_dir != '/') {
        throw basics::Fault("사용자의 홈 폴더를 찾을 수 없습니다.");
    }
    return found->pw_dir;
}

}  // namespace

std::filesystem::path dataFolder() {
    const auto folder = fromEnvironment("XDG_DATA_HOME");
    return folder.empty() ? home() / ".local" / "share" : folder;
}

std::filesystem::path configFolder() {
    const auto folder = fromEnvironment("XDG_CONFIG_HOME");
    return folder.empty() ? home() / ".config" : folder;
}

}  // namespace zelvo::files
