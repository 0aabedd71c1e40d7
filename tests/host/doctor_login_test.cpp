// The doctor's login by hand, and the address search of the main window: what the clinic's windows answer,
// and everything that can break around them.
#include <stdexcept>

#include "basics/Fault.h"
#include "screen/Fields.h"
#include "support/host/HostSession.h"

namespace zelvo {
namespace {

using screen::BoxIcon;
using screen::StatusBar;
using screen::TabControl;
using testing::HostSession;

constexpr const char* loginCaption = "한약국 로그인";

/// A login dialog in which someone types an account, or which fails.
struct Prompt : screen::AccountPrompt {
    using Answer = std::function<bool(std::string& id, std::string& password)>;
    explicit Prompt(Answer given) : answer(std::move(given)) {}
    bool Login(std::string& id, std::string& password) override { return answer(id, password); }
    bool ChangePassword(const std::string&, std::string&) override { return false; }
    Answer answer;
};

Prompt::Answer types(const std::string& account, const std::string& secret) {
    return [=](std::string& id, std::string& password) {
        id = account;
        password = secret;
        return true;
    };
}

void registerPrompt(HostSession& host, const Prompt::Answer& answer) {
    host.desktop.components().add("AccountPrompt.clsAccountPrompt",
                                  [answer] { return std::make_unique<Prompt>(answer); });
}

struct LoginCase {
    const char* name;
    Prompt::Answer answer;
    const char *caption, *text;
    BoxIcon icon;
    int key;
    const char *account, *shown;  ///< the account text and the record in view afterwards
    int failing = 0;              ///< the N-th statement of the login fails
    const char* beforeRecord = "";
};

// Doctor 1 is logged in; then this happens.
TEST(DoctorLogin, LeavesTheStateThatBelongsToItsEnd) {
    const char* unread = "Doctor 정보를 가져오는 중 오류 발생. [한약국 서버 연결 확인]";
    const char* gone = "입력된 아이디와 암호에 대한 Doctor 정보를 찾을 수 없습니다. [한약국 서버 연결 확인]";
    const char* wrong = "한약국 로그인 실패 -> [ID, PassWord를 확인해 주십시오.]";
    const Prompt::Answer second = types("doctor2", "pass2");
    const LoginCase cases[] = {
        {"another doctor", second, loginCaption, "한약국 로그인 성공! [ 접속 ID = doctor2 ]",
         BoxIcon::Information, 2, "doctor2/$/pass2", "doctor2"},
        {"cancelled", [](auto& id, auto&) { return id = "doctor2", false; }, "", "", BoxIcon::Information, 1,
         "doctor1/$/pass1", "doctor1"},
        {"wrong password", types("doctor2", "' OR '1'='1"), loginCaption, wrong, BoxIcon::Information, 0,
         "doctor1/$/pass1", "doctor1"},
        {"no check", second, loginCaption, wrong, BoxIcon::Information, 0, "doctor1/$/pass1", "doctor1", 1},
        {"no record", second, loginCaption, unread, BoxIcon::Critical, 0, "", "", 2},
        {"account gone", second, loginCaption, gone, BoxIcon::Information, 1, "doctor1/$/pass1", "doctor1", 0,
         "DELETE FROM t_Doctor WHERE DTR_PK = 2"},
        {"a dialog that fails", [](auto&, auto&) -> bool { throw std::runtime_error("no dialog"); },
         "한약국 로그인 실패", "no dialog", BoxIcon::Critical, 0, "", ""},
    };
    for (const LoginCase& c : cases) {
        SCOPED_TRACE(c.name);
        HostSession host;
        registerPrompt(host, c.answer);
        host.runDoctor(host.arguments(), [&] {
            host.user.tab("c1tMain", 0);
            host.line->failAt(c.failing);
            host.line->before = [&](const std::string& statement) {
                if (statement.starts_with("SELECT * FROM t_Doctor")) host.database.run(c.beforeRecord);
            };
            host.user.press("ssrLogIN");
            if (*c.text) host.desktop.expectBox(c.caption, c.text, c.icon);
            EXPECT_EQ(host.session.m_DTRPK, c.key);
            EXPECT_EQ(host.session.m_DoctorIDPWD, c.account);
            EXPECT_EQ(host.textOf("txtDTRid"), c.shown);
            EXPECT_EQ(host.field<StatusBar>("stbMain").panel(2),
                      *c.shown ? " 현재 접속 ID : " + std::string(c.shown) : "");
            EXPECT_EQ(host.field<TabControl>("c1tMain").current(), c.key == 2 ? 1 : 0);
            EXPECT_EQ(host.textOf("txtDoctor"), c.key == 2 ? "이청담" : *c.shown ? "이정민" : "");
            EXPECT_EQ(host.desktop.pointer(), screen::Pointer::Normal);
        });
    }
}

TEST(DoctorLogin, OpensTheTabsOfAFailedStart) {
    HostSession host;
    host::HostArguments call = host.arguments();
    call.DoctorIDPWD = "doctor1";
    host.runDoctor(call, [&] {
        host.user.press("ssrLogIN");
        EXPECT_NE(host.desktop.takeBox().text.find("AccountPrompt"), std::string::npos)
            << "no such component";
        registerPrompt(host, types("doctor1", "pass1"));
        host.user.press("ssrLogIN");
        host.desktop.takeBox();
        EXPECT_EQ(host.textOf("txtBalsongJuso"), "서울특별시 강남구 테헤란로 152");
        for (const int tab : {3, 2, 1}) host.user.tab("c1tMain", tab);
    });
}

/// A search dialog that brings a place, or fails.
struct Lookup : screen::PostalLookup {
    explicit Lookup(std::function<void(std::string& juso, std::string& zip)> given)
        : brings(std::move(given)) {}
    bool ZipCode(std::string&, std::string& juso, std::string& zip, std::int32_t&, std::int32_t&) override {
        brings(juso, zip);
        return true;
    }
    std::function<void(std::string& juso, std::string& zip)> brings;
};

TEST(AddressSearch, WritesBackWhatTheDialogBrings) {
    const char *failed = "우편번호검색 폼 호출중 에러 발생.", *caption = "우편번호검색";
    HostSession host;
    std::function<void(std::string&, std::string&)> brings = [](std::string&, std::string&) {};
    host.runDoctor(host.arguments(), [&] {
        const auto block = [&] { return host.textOf("txtBesongZip") + "|" + host.textOf("txtBesongJuso"); };
        host.user.press("ssrZipCode(0)");
        host.desktop.expectBox(caption, failed, BoxIcon::Critical);
        host.desktop.components().add("PostalLookup.clsPostalLookup",
                                      [&] { return std::make_unique<Lookup>(brings); });
        const std::string before = block();
        host.user.press("ssrZipCode(0)");
        EXPECT_EQ(block(), before + " ") << "cancelled";
        EXPECT_EQ(host.user.front().focus()->name(), "txtBesongZip");
        host.user.press("ssrZipCode(0)");
        EXPECT_EQ(block(), before + "  ");
        brings = [](std::string& juso, std::string& zip) {
            juso = "부산";
            zip = "48058";
            throw basics::Fault("gone");
        };
        host.user.press("ssrZipCode(0)");
        host.desktop.expectBox(caption, failed, BoxIcon::Critical);
        EXPECT_EQ(block(), before + "  ");
        brings = [](std::string& juso, std::string& zip) {
            juso = "부산";
            zip = "48058";
        };
        host.line->failAt(1);
        host.user.press("ssrZipCode(0)");
        host.desktop.expectBox(caption, failed, BoxIcon::Critical);
        host.user.press("ssrZipCode(0)");
        EXPECT_EQ(block(), "48058|부산 ");
        host.user.press("ssrZipCode(1)");
        EXPECT_EQ(host.textOf("txtBalsongZip") + host.textOf("txtBalsongJuso"), "48058부산 ");
        host.user.tab("c1tMain", 3);
        host.user.press("ssrZipCode(4)");
        EXPECT_EQ(host.textOf("txtDTRhoszip") + host.textOf("txtDTRaddress"), "48058부산 ");
        EXPECT_EQ(host.desktop.pointer(), screen::Pointer::Normal);
    });
}

}  // namespace
}  // namespace zelvo
