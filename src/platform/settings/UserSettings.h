#pragma once

#include "platform/files/WholeFile.h"
#include "screen/Remembered.h"

namespace zelvo::settings {

/// The user's settings, an application a file: <application>/settings.ini in the user's settings folder. Each
/// call goes to the file, so two open programs see each other's values.
class UserSettings : public screen::SettingsStore {
public:
    explicit UserSettings(files::OnDisk onDisk = files::OnDisk::Now) : onDisk_(onDisk) {}

    /// `absent` also when the file can't be read, or is far too long to be one of ours.
    std::string read(std::string_view application, std::string_view section, std::string_view key,
                     std::string_view absent) const override;
    /// Replaces the file whole. Throws Fault when it can't be written, or stands there but can't be read.
    void write(std::string_view application, std::string_view section, std::string_view key,
               std::string_view value) override;

private:
    files::OnDisk onDisk_;
};

}  // namespace zelvo::settings
