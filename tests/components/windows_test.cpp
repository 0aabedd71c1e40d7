// The small windows of the clinic's machine: what a user types into them and what their caller gets.
#include "basics/Fault.h"
#include "basics/Text.h"
#include "components/AccountPrompt.h"
#include "components/EatGuideEditor.h"
#include "components/PostalLookup.h"
#include "platform/console/UserActions.h"
#include "support/TestDesktop.h"

namespace zelvo::components {
namespace {

constexpr const char* bold = R"({\rtf1\ansi{\b A}B})";

std::vector<PostalPlace> page(const std::string&, const std::string& text) {
    if (text == "고장") throw basics::Fault("서버 고장");
    if (text != "세종대로") return {};
    return {{"04524", "서울 중구 1"}, {"04525", "서울 중구 2"}};
}

class Windows : public ::testing::Test {
protected:
    /// Opens a window as its caller does, a user at it: "field=text" types, "field<key" presses a key, "?y"
    /// and "?n" answer the next question, a name alone is a button. Gives what the caller gets, "" when the
    /// user left it.
    std::string outcome(const std::string& window, const std::string& steps) {
        desktop.whenShown(window, [this, steps](screen::Window&) {
            for (const std::string& step : basics::split(steps, ";")) act(step);
        });
        std::string a = "came", b = a, sheet = bold, patient = "김하늘";
        std::int32_t place = 0;
        desktop.setPointer(screen::Pointer::Busy);
        bool ok = false;
        if (window == "frmLogin") ok = AccountPrompt(desktop).Login(a, b);
        if (window == "frmChangePassword") ok = AccountPrompt(desktop).ChangePassword("pass1", a);
        if (window == "frmPostalLookup") ok = PostalLookup(desktop, page).ZipCode(sheet, a, b, place, place);
        if (window == "frmEatGuideEditor") ok = EatGuideEditor(desktop).edit(nullptr, patient, sheet, a, b);
        EXPECT_EQ(desktop.pointer(), screen::Pointer::Busy) << "is the caller's";
        EXPECT_TRUE(ok || a + b == "camecame");
        EXPECT_EQ(sheet, bold) << "an untouched sheet comes back byte for byte";
        return ok ? a + "|" + b : "";
    }
    void act(const std::string& step) {
        if (step == "?y") return desktop.answer(screen::Answer::Yes);
        if (step == "?n") return desktop.answer(screen::Answer::No);
        const auto cut = step.find_first_of("=<");
        const std::string field = step.substr(0, cut), rest = step.substr(std::min(cut, step.size() - 1) + 1);
        if (cut == std::string::npos) return user.press(field);
        if (step[cut] == '=') return user.type(field, rest);
        user.key(field, {rest});
    }

    testing::TestDesktop desktop;
    console::UserActions user{desktop};
};

TEST_F(Windows, GiveWhatWasTypedAndTellWhatIsWrong) {
    struct Case {
        const char *window, *steps, *result, *boxes;
    };
    const char *login = "frmLogin", *change = "frmChangePassword", *postal = "frmPostalLookup",
               *editor = "frmEatGuideEditor",
               *lost =
                   "작성한 내용이 반영되지 않습니다. 닫으시겠습니까?;"
                   "작성한 내용이 반영되지 않습니다. 닫으시겠습니까?",
               *unfound = "[없는 길](으)로 찾은 주소가 없습니다.;주소를 먼저 찾아서 고르십시오.";
    const Case cases[] = {
        {login, "txtID= kim ;txtID<Enter;txtPassword= p w ;txtPassword<Enter", "kim| p w ", ""},
        {login, "txtPassword=pw;txtPassword<Enter", "", "아이디를 입력하여 주십시오."},
        {change, "txtOldPassword=Pass1;txtNewPassword=봄 봄;txtNewPasswordAgain=봄 봄;cmdOK", "봄 봄|came",
         ""},
        {change, "txtOldPassword=pass1;txtNewPassword=n ;txtNewPasswordAgain=n ;cmdOK", "",
         "비밀번호의 처음과 끝에는 빈칸을 쓸 수 없습니다."},
        {change, "txtOldPassword=pass1;txtNewPassword=a#$#b;cmdOK", "",
         "비밀번호에 \"/$/\" 또는 \"#$#\"를 쓸 수 없습니다."},
        {change, "txtOldPassword=pass1;txtNewPassword=n;txtNewPasswordAgain=N;cmdOK", "",
         "새 비밀번호와 확인이 서로 다릅니다."},
        {postal, "txtFind= 세종대로 ;txtFind<Enter;tdbFound<Down;tdbFound<Enter", "서울 중구 2|04525", ""},
        {postal, "txtFind=세종대로;cmdFind;tdbFound<Esc", "", ""},
        {postal, "txtFind<Enter", "", "찾을 도로명이나 건물명을 입력하여 주십시오."},
        {postal, "txtFind=세종대로;cmdFind;txtFind=없는 길;txtFind<Enter;cmdOK", "", unfound},
        {postal, "txtFind=세종대로;cmdFind;txtFind=고장;cmdFind;cmdOK", "서울 중구 1|04524", "서버 고장"},
        {editor, "txtHospName=새한의원;txtHospName<Enter;txtPhoneNo=02;txtPhoneNo<Enter", "새한의원|02", ""},
        {editor, "rtxSheet=식후;?n;rtxSheet<Esc;txtPhoneNo=02;?y;cmdCancel", "", lost},
        {editor, "rtxSheet<Esc", "", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.steps);
        EXPECT_EQ(outcome(c.window, c.steps), c.result);
        for (const std::string& box : basics::split(c.boxes, ";"))
            EXPECT_TRUE(box.empty() || desktop.takeBox().text == box) << box;
        desktop.expectNoBox();
    }
}

}  // namespace
}  // namespace zelvo::components
