#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "platform/odbc/DriverSurroundings.h"

namespace zelvo::odbc {

std::string usualDriver() {
    return "FreeTDS";
}

std::string makeTemporaryFile(std::string_view text) {
    std::string path = (std::filesystem::temp_directory_path() / "zelvo-freetds-XXXXXX").string();
    const int descriptor = ::mkstemp(path.data());
    if (descriptor < 0) return {};
    const bool written = ::write(descriptor, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    ::close(descriptor);
    if (written) return path;
    ::unlink(path.c_str());
    return {};
}

void setVariable(const std::string& name, const std::optional<std::string>& value) {
    if (value) {
        ::setenv(name.c_str(), value->c_str(), 1);
    } else {
        ::unsetenv(name.c_str());
    }
}

}  // namespace zelvo::odbc
