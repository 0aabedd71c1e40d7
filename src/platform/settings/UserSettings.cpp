#include "platform/settings/UserSettings.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <optional>

#include "basics/Fault.h"
#include "platform/files/UserFolders.h"
#include "platform/files/WholeFile.h"
#include "platform/settings/SettingsText.h"

namespace zelvo::settings {
namespace {

std::filesystem::path fileOf(std::string_view application) {
    return files::configFolder() / application / "settings.ini";
}

/// The file's text: "" where none stands, nothing where it can't be read.
std::optional<std::string> textOf(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::exists(path, error) && !error) return "";
    std::ifstream file(path, std::ios::binary);
    if (!file.is_open()) return std::nullopt;
    std::string text;
    std::array<char, 4096> block{};
    while (file.read(block.data(), block.size()) || file.gcount() > 0) {
        text.append(block.data(), static_cast<std::size_t>(file.gcount()));
    }
    if (file.bad()) return std::nullopt;
    return text;
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
    if (!text) throw basics::Fault("설정 파일 " + path.string() + "을(를) 읽을 수 없어 저장하지 않았습니다.");
    SettingsText settings(*text);
    settings.setValue(section, key, value);
    files::makeFolder(path.parent_path());
    files::writeWholeFile(path, settings.text());
}

}  // namespace zelvo::settings
