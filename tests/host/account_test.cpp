// A doctor's account in the main window: the login by hand, the record and its password, the address search;
// what the clinic's windows answer, and everything that can break around them.
#include <stdexcept>

#include "screen/Fields.h"
#include "screen/TextField.h"
#include "support/host/HostSession.h"

namespace zelvo {
namespace {

using testing::HostSession;
using enum screen::BoxIcon;

/// The clinic's windows: each answers as it is told.
using Answers = std::function<bool(std::string&, std::string&)>;
struct Prompt : screen::AccountPrompt {
    explicit Prompt(Answers given) : answers(std::move(given)) {}
    bool Login(std::string& id, std::string& password) override { return answers(id, password); }
    bool ChangePassword(const std::string& old, std::string& fresh) override {
        std::string given = old;
        return answers(given, fresh);
    }
    Answers answers;
};
struct Lookup : screen::PostalLookup {
    explicit Lookup(Answers given) : answers(std::move(given)) {}
    bool ZipCode(std::string&, std::string& juso, std::string& zip, std::int32_t&, std::int32_t&) override {
        return answers(juso, zip);
    }
    Answers answers;
};
template <class Window>
void answerWith(HostSession& host, const char* className, const Answers& answers) {
    host.desktop.components().add(className, [answers] { return std::make_unique<Window>(answers); });
}
constexpr const char* prompt = "AccountPrompt.clsAccountPrompt";

Answers types(const std::string& first, const std::string& second) {
    return [=](std::string& a, std::string& b) {
        a = first;
        b = second;
        return true;
    };
}
const Answers leaves = [](auto& a, auto&) { return a = "typed before Esc", false; };
const Answers fails = [](auto&, auto&) -> bool { throw std::runtime_error("no window"); };

// Doctor 1 is logged in; then this happens.
TEST(DoctorLogin, LeavesTheStateThatBelongsToItsEnd) {
    struct Case {
        Answers answers;
        int failing;  ///< the N-th statement of the login fails
        const char *meanwhile, *caption, *text;
        screen::BoxIcon icon;
        const char* state;  ///< key, account text, record and doctor in view, tab
    };
    const char *caption = "한약국 로그인", *stays = "1 doctor1/$/pass1 doctor1 이정민 0",
               *refused = "0 doctor1/$/pass1 doctor1 이정민 0", *out = "0    0",
               *wrong = "한약국 로그인 실패 -> [ID, PassWord를 확인해 주십시오.]",
               *unread = "Doctor 정보를 가져오는 중 오류 발생. [한약국 서버 연결 확인]",
               *gone = "입력된 아이디와 암호에 대한 Doctor 정보를 찾을 수 없습니다. [한약국 서버 연결 확인]",
               *success = "한약국 로그인 성공! [ 접속 ID = doctor2 ]";
    const Answers second = types("doctor2", "pass2");
    const Case cases[] = {
        {second, 0, "", caption, success, Information, "2 doctor2/$/pass2 doctor2 이청담 1"},
        {leaves, 0, "", "", "", Information, stays},
        {types("doctor2", "' OR '1'='1"), 0, "", caption, wrong, Information, refused},
        {second, 1, "", caption, wrong, Information, refused},
        {second, 2, "", caption, unread, Critical, out},
        {second, 0, "DELETE FROM t_Doctor WHERE DTR_PK = 2", caption, gone, Information, stays},
        {fails, 0, "", "한약국 로그인 실패", "no window", Critical, out},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        HostSession host;
        answerWith<Prompt>(host, prompt, c.answers);
        host.runDoctor(host.arguments(), [&] {
            host.user.tab("c1tMain", 0);
            host.line->failAt(c.failing);
            host.line->before = [&](const std::string& statement) {
                if (statement.starts_with("SELECT * FROM t_Doctor")) host.database.run(c.meanwhile);
            };
            host.user.press("ssrLogIN");
            if (*c.text) host.desktop.expectBox(c.caption, c.text, c.icon);
            EXPECT_EQ(std::to_string(host.session.m_DTRPK) + " " + host.session.m_DoctorIDPWD + " " +
                          host.textOf("txtDTRid") + " " + host.textOf("txtDoctor") + " " +
                          std::to_string(host.field<screen::TabControl>("c1tMain").current()),
                      c.state);
            for (const screen::Field* field : host.user.front().fields()) {
                const auto* text = dynamic_cast<const screen::TextField*>(field);
                if (text && c.state == std::string(out) && field->name().starts_with("txtDTR")) {
                    EXPECT_EQ(text->text(), "") << field->name();
                }
            }
        });
    }
}

TEST(DoctorProfile, StoresTheRecordCleanedAndThePasswordAsItIs) {
    HostSession host;
    const auto stored = [&host](const std::string& columns) {
        return host.database.value("SELECT " + columns + " FROM t_Doctor WHERE DTR_PK = 1");
    };
    const auto pressed = [&host](const char* button, const char* caption, const char* text,
                                 screen::BoxIcon icon = Information) {
        host.user.press(button);
        host.desktop.expectBox(caption, text, icon);
    };
    const char *change = "한의사정보 변경", *password = "비밀번호 변경",
               *nobody = "로그인 후에 사용하십시오.(m_DTRPK = 0)";
    host.runDoctor(host.arguments(), [&] {
        host.user.tab("c1tMain", 3);
        host.user.paste("txtDTRname", "  ");
        pressed("ssrDTRchang", change, "한의사명을 입력하여 주십시오.");
        host.field<screen::TextField>("txtDTRname").setText(" 김'보'원 ");
        host.user.paste("txtDTRaddress", "서울'; DROP TABLE t_Doctor --");
        host.line->failAt(1);
        pressed("ssrDTRchang", "한의사정보 변경 실패",
                "한의사 정보 변경 실패 [변경한 내용을 다시 한번 더 확인 바랍니다.]", Critical);
        EXPECT_EQ(host.textOf("txtDoctor"), "이정민") << "the sender follows what is stored";
        pressed("ssrDTRchang", change, "한의사 정보를 성공적으로 변경하였습니다.");
        EXPECT_EQ(host.textOf("txtDoctor") + host.textOf("txtBalsongZip"), " 김'보'원 06236");
        EXPECT_EQ(stored("DTR_Name || DTR_Address"), "김보원서울; DROP TABLE t_Doctor --");

        answerWith<Prompt>(host, prompt, fails);
        pressed("ssrPWDchang", password, "no window", Critical);
        answerWith<Prompt>(host, prompt, leaves);
        host.user.press("ssrPWDchang");
        answerWith<Prompt>(host, prompt, types("", "o'new"));
        host.line->failAt(1);
        pressed("ssrPWDchang", password, "비밀번호 변경 실패! (한약국 서버 연결 확인)", Critical);
        EXPECT_EQ(host.textOf("txtDTRpass") + stored("DTR_PWD"), "pass1pass1");
        pressed("ssrPWDchang", password, "비밀번호 변경 성공! ");
        EXPECT_EQ(host.textOf("txtDTRpass") + stored("DTR_PWD"), "o'newo'new");
        host.session.m_DTRPK = 0;
        pressed("ssrDTRchang", change, nobody);
        pressed("ssrPWDchang", password, nobody);
    });
}

TEST(AddressSearch, WritesBackWhatTheWindowBrings) {
    const Answers untouched = [](auto&, auto&) { return false; };
    const std::string before = "06236|서울특별시 강남구 테헤란로 152";
    const std::tuple<Answers, int, std::string> cases[] = {{nullptr, 0, before},
                                                           {fails, 0, before},
                                                           {untouched, 1, before},
                                                           {untouched, 0, before + " "},
                                                           {types("부산", "48058"), 0, "48058|부산 "}};
    for (const auto& [answers, failing, after] : cases) {
        HostSession host;
        if (answers) answerWith<Lookup>(host, "PostalLookup.clsPostalLookup", answers);
        host.runDoctor(host.arguments(), [&, failing = failing, after = after] {
            host.line->failAt(failing);
            host.user.press("ssrZipCode(0)");
            if (!after.ends_with(" "))
                host.desktop.expectBox("우편번호검색", "우편번호검색 폼 호출중 에러 발생.", Critical);
            EXPECT_EQ(host.textOf("txtBesongZip") + "|" + host.textOf("txtBesongJuso"), after);
            EXPECT_EQ(host.user.front().focus()->name(), "txtBesongZip");
        });
    }
}

}  // namespace
}  // namespace zelvo
