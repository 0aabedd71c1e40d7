#pragma once

#include <string>

#include "screen/Desktop.h"

namespace zelvo::composition {

/// What a user keeps from session to session: the clinic's name and telephone that stand on a new dosage
/// sheet. Holds nothing itself. What was never stored reads as "".
class clsUserSetting {
public:
    explicit clsUserSetting(screen::SettingsStore& store) : store_(store) {}

    std::string BogYakHospName() const;
    /// Throws Fault when the value can't be stored.
    void BogYakHospName(const std::string& strHospName);
    std::string BogYakPhoneNo() const;
    /// Throws Fault when the value can't be stored.
    void BogYakPhoneNo(const std::string& strPhoneNo);

private:
    screen::SettingsStore& store_;
};

}  // namespace zelvo::composition
