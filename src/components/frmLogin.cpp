#include "components/frmLogin.h"

#include "basics/Text.h"

namespace zelvo::components {

namespace {
constexpr double designWidth = 5400, designHeight = 2700;
}

frmLogin::frmLogin(screen::Desktop& desktop)
    : AskWindow(desktop, "frmLogin", "한약국 로그인", designWidth, designHeight),
      txtID(*this, "txtID"),
      txtPassword(*this, "txtPassword") {
    txtID.setLabel("아이디:");
    txtPassword.setLabel("비밀번호:");
    txtPassword.masked = true;
    fillInOrder({&txtID, &txtPassword});
    setTabOrder({"txtID", "txtPassword", "cmdOK", "cmdCancel"});
}

bool frmLogin::confirm() {
    if (basics::isBlank(txtID.text())) return refuse("아이디를 입력하여 주십시오.", txtID);
    if (txtPassword.text().empty()) return refuse("비밀번호를 입력하여 주십시오.", txtPassword);
    return true;
}

}  // namespace zelvo::components
