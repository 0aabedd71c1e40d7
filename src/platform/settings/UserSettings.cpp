#include "platform/settings/UserSettings.h"

#include <filesystem>

#include "basics/Fault.h"
#include "basics/Paths.h"
#include "platform/files/UserFolders.h"
#include "platform/settings/SettingsText.h"

namespace zelvo::settings {
namespace {

std::filesystem::path fileOf(std::string_view application) {
    return files::configFolder() / basics::pathOf(application) / "settings.ini";
}

constexpr std::uintmax_t longest = std::uintmax_t{1024} * 1024;

/// The text of a settings file; nothing for what can't be read or is none.
std::optional<std::string> textOf(const std::filesystem::path& path) {
    std::error_code none;
    const auto length = std::filesystem::file_size(path, none);
    if (!none && length > longest) return std::nullopt;
    return files::readPlainFile(path);
}

}  // namespace

std::string UserSettings::read(std::string_view application, std::string_view section, std::string_view key,
                               std::string_view absent) const {
    try {
        const auto text = textOf(fileOf(application));
        if (text) return SettingsText(*text).value(section, key).value_or(std::string(absent));
    } catch (const basics::Fault&) {
        // A user without a home folder has no settings, but still has patients.
    }
    return std::string(absent);
}

void UserSettings::write(std::string_view application, std::string_view section, std::string_view key,
                         std::string_view value) {
    const auto path = fileOf(application);
    const auto text = textOf(path);
    if (!text)
        throw basics::Fault("설정 파일 " + basics::textOf(path) + "을(를) 읽을 수 없어 저장하지 않았습니다.");
    SettingsText settings(*text);
    settings.setValue(section, key, value);
    files::makeFolder(path.parent_path());
    files::writeWholeFile(path, settings.text(), onDisk_);
}

}  // namespace zelvo::settings
