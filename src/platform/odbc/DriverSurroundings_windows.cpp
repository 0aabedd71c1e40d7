#include "platform/odbc/DriverSurroundings.h"

#include <windows.h>

#include <cstdlib>
#include <fstream>

#include "basics/Paths.h"
#include "platform/odbc/Drivers.h"

namespace zelvo::odbc {

std::string usualDriver() {
    return newestForServer(installedDrivers());
}

// The folder for temporary files is the user's own here.
std::string makeTemporaryFile(std::string_view text) {
    const std::filesystem::path folder = std::filesystem::temp_directory_path();
    std::wstring name(MAX_PATH, L'\0');
    if (::GetTempFileNameW(folder.c_str(), L"zlv", 0, name.data()) == 0) return {};
    const std::filesystem::path path(name.c_str());
    std::ofstream file(path, std::ios::binary);
    file << text << std::flush;
    return file ? basics::textOf(path) : std::string();
}

void setVariable(const std::string& name, const std::optional<std::string>& value) {
    ::_wputenv_s(basics::pathOf(name).c_str(), basics::pathOf(value.value_or("")).c_str());
}

}  // namespace zelvo::odbc
