#include "platform/files/UserFolders.h"

#include <windows.h>

#include <knownfolders.h>
#include <shlobj.h>

#include "basics/Environment.h"
#include "basics/Fault.h"
#include "basics/Paths.h"

namespace zelvo::files {
namespace {

/// A folder that the environment names, as on every system; else the user's own.
std::filesystem::path folder(const char* name, const KNOWNFOLDERID& kind) {
    std::filesystem::path named = basics::pathOf(basics::environment(name).value_or(""));
    if (named.is_absolute()) return named;
    PWSTR found = nullptr;
    const HRESULT result = ::SHGetKnownFolderPath(kind, KF_FLAG_CREATE, nullptr, &found);
    if (SUCCEEDED(result)) named = found;
    ::CoTaskMemFree(found);
    if (FAILED(result)) throw basics::Fault("사용자의 홈 폴더를 찾을 수 없습니다.");
    return named;
}

}  // namespace

std::filesystem::path dataFolder() {
    return folder("XDG_DATA_HOME", FOLDERID_LocalAppData);
}

std::filesystem::path configFolder() {
    return folder("XDG_CONFIG_HOME", FOLDERID_RoamingAppData);
}

}  // namespace zelvo::files
