#pragma once

#include <string>

#include "screen/Components.h"
#include "screen/Desktop.h"

namespace zelvo::components {

/// The account dialogs as windows of our own.
class AccountPrompt : public screen::AccountPrompt {
public:
    explicit AccountPrompt(screen::Desktop& desktop) : desktop_(desktop) {}

    /// The id comes back without blanks around it.
    bool Login(std::string& id, std::string& password) override;
    bool ChangePassword(const std::string& oldPassword, std::string& newPassword) override;

private:
    screen::Desktop& desktop_;
};

}  // namespace zelvo::components
