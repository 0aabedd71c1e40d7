#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace zelvo::screen {

/// Per-user settings: string values under application, section and key.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    virtual std::string read(std::string_view application, std::string_view section, std::string_view key,
                             std::string_view absent) const = 0;
    /// Throws Fault when the value can't be stored.
    virtual void write(std::string_view application, std::string_view section, std::string_view key,
                       std::string_view value) = 0;
};

/// How a user left the windows: a text under a name ("frmDoctorOCSmain size"), from session to session. It is
/// a comfort and never a failure: what can't be read was never kept, what can't be stored lasts as long as
/// this lives. Whoever reads a text takes nothing in it for granted.
class Remembered {
public:
    Remembered() = default;
    explicit Remembered(std::unique_ptr<SettingsStore> store) : store_(std::move(store)) {}

    /// "" for what was never kept.
    std::string text(std::string_view name) const;
    /// Stored at once, unless it is what stands there.
    void keep(std::string_view name, std::string_view text);

private:
    std::unique_ptr<SettingsStore> store_;
    std::map<std::string, std::string, std::less<>> kept_;
};

}  // namespace zelvo::screen
