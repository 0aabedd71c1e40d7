#pragma once

#include "screen/AskWindow.h"

namespace zelvo::components {

/// Asks for a doctor's account with the pharmacy.
class frmLogin : public screen::AskWindow {
public:
    explicit frmLogin(screen::Desktop& desktop);

    screen::TextField txtID, txtPassword;

private:
    bool confirm() override;
};

}  // namespace zelvo::components
