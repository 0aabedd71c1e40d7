#include "components/AccountPrompt.h"

#include "basics/Text.h"
#include "components/frmChangePassword.h"
#include "components/frmLogin.h"

namespace zelvo::components {

bool AccountPrompt::Login(std::string& id, std::string& password) {
    frmLogin form(desktop_);
    screen::placeInFront(form);
    if (!form.ask()) return false;
    id = basics::trim(form.txtID.text());
    password = form.txtPassword.text();
    return true;
}

bool AccountPrompt::ChangePassword(const std::string& oldPassword, std::string& newPassword) {
    frmChangePassword form(desktop_, oldPassword);
    screen::placeInFront(form);
    if (!form.ask()) return false;
    newPassword = form.txtNewPassword.text();
    return true;
}

}  // namespace zelvo::components
