#pragma once

#include <string>

#include "screen/AskWindow.h"

namespace zelvo::components {

/// Asks for a doctor's new password, twice, after the present one.
class frmChangePassword : public screen::AskWindow {
public:
    frmChangePassword(screen::Desktop& desktop, std::string oldPassword);

    screen::TextField txtOldPassword, txtNewPassword, txtNewPasswordAgain;

private:
    bool confirm() override;

    std::string oldPassword_;
};

}  // namespace zelvo::components
