#include "components/frmChangePassword.h"

#include "basics/Text.h"
#include "basics/Utf8.h"

namespace zelvo::components {

namespace {

constexpr double designWidth = 6000, designHeight = 3300;

/// As the pharmacy compares them: case and blanks at the ends don't count.
std::string compared(const std::string& password) {
    return basics::foldCase(basics::trim(password));
}

/// Why a password would not open the account again: a chart hands it over between "/$/" and "#$#", trimmed.
/// "" for one that does.
std::string_view fault(const std::string& password) {
    if (basics::isBlank(password)) return "새 비밀번호를 입력하여 주십시오.";
    if (basics::trim(password) != password) return "비밀번호의 처음과 끝에는 빈칸을 쓸 수 없습니다.";
    for (const std::string_view separator : {"/$/", "#$#"}) {
        if (password.find(separator) != std::string::npos)
            return "비밀번호에 \"/$/\" 또는 \"#$#\"를 쓸 수 없습니다.";
    }
    return "";
}

}  // namespace

frmChangePassword::frmChangePassword(screen::Desktop& desktop, std::string oldPassword)
    : AskWindow(desktop, "frmChangePassword", "비밀번호 변경", designWidth, designHeight),
      txtOldPassword(*this, "txtOldPassword"),
      txtNewPassword(*this, "txtNewPassword"),
      txtNewPasswordAgain(*this, "txtNewPasswordAgain"),
      oldPassword_(std::move(oldPassword)) {
    txtOldPassword.setLabel("현재 비밀번호:");
    txtNewPassword.setLabel("새 비밀번호:");
    txtNewPasswordAgain.setLabel("새 비밀번호 확인:");
    for (screen::TextField* field : {&txtOldPassword, &txtNewPassword, &txtNewPasswordAgain})
        field->masked = true;
    fillInOrder({&txtOldPassword, &txtNewPassword, &txtNewPasswordAgain});
    setTabOrder({"txtOldPassword", "txtNewPassword", "txtNewPasswordAgain", "cmdOK", "cmdCancel"});
}

bool frmChangePassword::confirm() {
    if (compared(txtOldPassword.text()) != compared(oldPassword_))
        return refuse("현재 비밀번호가 맞지 않습니다.", txtOldPassword);
    const std::string_view wrong = fault(txtNewPassword.text());
    if (!wrong.empty()) return refuse(wrong, txtNewPassword);
    if (txtNewPasswordAgain.text() != txtNewPassword.text())
        return refuse("새 비밀번호와 확인이 서로 다릅니다.", txtNewPasswordAgain);
    return true;
}

}  // namespace zelvo::components
