// The small windows of the clinic's machine: what a user types into them and what their caller gets.
#include "basics/Fault.h"
#include "components/AccountPrompt.h"
#include "components/EatGuideEditor.h"
#include "components/PostalLookup.h"
#include "platform/console/UserActions.h"
#include "support/TestDesktop.h"

namespace zelvo::components {
namespace {

/// A user at one of the windows: "field=text" types, "field<key" presses a key, a name alone is a button.
class WindowsTest : public ::testing::Test {
protected:
    void willDo(const std::string& window, const std::vector<std::string>& steps) {
        desktop.whenShown(window, [this, steps](screen::Window&) {
            for (const std::string& step : steps) {
                const auto cut = step.find_first_of("=<");
                const std::string field = step.substr(0, cut);
                if (cut == std::string::npos) {
                    user.press(field);
                } else if (step[cut] == '=') {
                    user.type(field, step.substr(cut + 1));
                } else {
                    user.key(field, {step.substr(cut + 1)});
                }
            }
        });
    }

    testing::TestDesktop desktop;
    console::UserActions user{desktop};
};

TEST_F(WindowsTest, Login) {
    struct Case {
        std::vector<std::string> steps;
        const char *box, *account;
    };
    const Case cases[] = {
        {{"txtID= kim ", "txtID<Enter", "txtPassword= p w ", "txtPassword<Enter"}, "", "kim| p w "},
        {{"txtID=kim", "txtPassword=pw", "cmdOK"}, "", "kim|pw"},
        {{"txtID=kim", "txtPassword=pw", "cmdCancel"}, "", ""},
        {{"txtID=kim", "txtPassword=pw", "txtPassword<Esc"}, "", ""},
        {{"txtPassword=pw", "txtPassword<Enter"}, "아이디를 입력하여 주십시오.", ""},
        {{"txtID=kim", "cmdOK", "txtPassword=pw", "cmdOK"}, "비밀번호를 입력하여 주십시오.", "kim|pw"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.steps.back());
        willDo("frmLogin", c.steps);
        std::string id, password;
        const bool ok = AccountPrompt(desktop).Login(id, password);
        EXPECT_EQ(ok ? id + "|" + password : id + password, c.account);
        if (*c.box) desktop.expectBox("한약국 로그인", c.box);
    }
}

TEST_F(WindowsTest, ChangePassword) {
    struct Case {
        const char *old, *fresh, *again, *box;
    };
    const Case cases[] = {
        {"Pass1", "열려라 참깨", "열려라 참깨", ""},
        {"", "new", "new", "현재 비밀번호가 맞지 않습니다."},
        {"pass", "new", "new", "현재 비밀번호가 맞지 않습니다."},
        {"pass1", "", "", "새 비밀번호를 입력하여 주십시오."},
        {"pass1", "new ", "new ", "비밀번호의 처음과 끝에는 빈칸을 쓸 수 없습니다."},
        {"pass1", "a#$#b", "a#$#b", "비밀번호에 \"/$/\" 또는 \"#$#\"를 쓸 수 없습니다."},
        {"pass1", "new", "New", "새 비밀번호와 확인이 서로 다릅니다."},
    };
    for (const Case& c : cases) {
        willDo("frmChangePassword",
               {std::string("txtOldPassword=") + c.old, "txtOldPassword<Enter",
                std::string("txtNewPassword=") + c.fresh, std::string("txtNewPasswordAgain=") + c.again,
                "txtNewPasswordAgain<Enter"});
        std::string fresh = "as it came";
        EXPECT_EQ(AccountPrompt(desktop).ChangePassword("pass1", fresh), !*c.box) << c.fresh;
        EXPECT_EQ(fresh, *c.box ? "as it came" : c.fresh);
        if (*c.box) desktop.expectBox("비밀번호 변경", c.box);
    }
}

TEST_F(WindowsTest, PostalLookup) {
    struct Case {
        std::vector<std::string> steps;
        std::vector<std::string> boxes;
        const char* result;
    };
    const std::string nothing = "[없는 길](으)로 찾은 주소가 없습니다.";
    const Case cases[] = {
        {{"txtFind= 세종대로 ", "txtFind<Enter", "tdbFound<Down", "tdbFound<Enter"}, {}, "04525|서울 중구 2"},
        {{"txtFind=세종대로", "cmdFind", "cmdOK"}, {}, "04524|서울 중구 1"},
        {{"txtFind=세종대로", "cmdFind", "tdbFound<Esc"}, {}, ""},
        {{"cmdOK", "txtFind<Enter"},
         {"주소를 먼저 찾아서 고르십시오.", "찾을 도로명이나 건물명을 입력하여 주십시오."},
         ""},
        {{"txtFind=세종대로", "cmdFind", "txtFind=없는 길", "txtFind<Enter", "cmdOK"},
         {nothing, "주소를 먼저 찾아서 고르십시오."},
         ""},
        {{"txtFind=세종대로", "cmdFind", "txtFind=고장", "txtFind<Enter", "cmdOK"},
         {"서버 고장"},
         "04524|서울 중구 1"},
    };
    const PostalSearch page = [this](const std::string& url, const std::string& text) {
        EXPECT_EQ(url, "http://zip");
        EXPECT_EQ(desktop.pointer(), screen::Pointer::Busy);
        if (text == "고장") throw basics::Fault("서버 고장");
        return text == "세종대로"
                   ? std::vector<PostalPlace>{{"04524", "서울 중구 1"}, {"04525", "서울 중구 2"}}
                   : std::vector<PostalPlace>();
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.result);
        willDo("frmPostalLookup", c.steps);
        std::string url = "http://zip", juso = "지금 주소", zip = "00000";
        std::int32_t left = 0, top = 0;
        desktop.setPointer(screen::Pointer::Busy);
        const bool taken = PostalLookup(desktop, page).ZipCode(url, juso, zip, left, top);
        EXPECT_EQ(desktop.pointer(), screen::Pointer::Busy) << "is its caller's";
        EXPECT_EQ(zip + "|" + juso, taken ? c.result : "00000|지금 주소");
        EXPECT_EQ(taken, *c.result != 0);
        for (const std::string& box : c.boxes) desktop.expectBox("우편번호검색", box);
    }
}

TEST_F(WindowsTest, EatGuideEditor) {
    const std::string bold = R"({\rtf1\ansi{\b A}B})";
    const std::pair<std::vector<std::string>, bool> cases[] = {
        {{"txtHospName=새한의원", "txtHospName<Enter", "txtPhoneNo<Enter"}, true},
        {{"txtHospName=새한의원", "cmdOK"}, true},
        {{"rtxSheet=식후", "txtHospName=새한의원", "rtxSheet<Esc"}, false},
        {{"rtxSheet=식후", "cmdCancel"}, false},
    };
    for (const auto& [steps, accepted] : cases) {
        willDo("frmEatGuideEditor", steps);
        std::string patient = "김하늘", sheet = bold, hospital = "한의원", phone = "02-1";
        EXPECT_EQ(EatGuideEditor(desktop).edit(nullptr, patient, sheet, hospital, phone), accepted);
        EXPECT_EQ(sheet, bold) << "an untouched sheet comes back byte for byte";
        EXPECT_EQ(patient + hospital + phone, accepted ? "김하늘새한의원02-1" : "김하늘한의원02-1");
    }
    willDo("frmEatGuideEditor", {"rtxSheet=하루 세 번", "cmdOK"});
    std::string patient, sheet, hospital, phone;
    ASSERT_TRUE(EatGuideEditor(desktop).edit(nullptr, patient, sheet, hospital, phone));
    EXPECT_TRUE(sheet.starts_with("{\\rtf1")) << sheet;
}

}  // namespace
}  // namespace zelvo::components
