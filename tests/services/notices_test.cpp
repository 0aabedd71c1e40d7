#include "services/Notices.h"

#include "platform/console/UserActions.h"
#include "support/TestDatabase.h"
#include "support/TestDesktop.h"

namespace zelvo::services {
namespace {

using namespace std::chrono_literals;

/// The notice tab in a small window. What the browser does with a page is told by the test: it runs at the
/// passes of the event loop.
class NoticesTest : public ::testing::Test {
protected:
    NoticesTest() {
        session.g_conYakGuk = pharmacy.connect();
        notices.wbrGongJi.driveNavigation = [this](const std::string& address) {
            navigated.push_back(address);
            pending = true;
        };
        notices.wbrGongJi.driveStop = [this] { ++stops; };
        desktop.onEvents = [this] {
            if (!std::exchange(pending, false)) return;
            const auto comesTo = browser;
            comesTo();
        };
    }
    void add(const std::string& title, const std::string& contType, const std::string& url,
             const std::string& rtf = "") const {
        pharmacy.run(
            "INSERT INTO t_PxGongJi (PGJ_Type, PGJ_WriteDate, PGJ_Title, PGJ_ContType, PGJ_URLCont, PGJ_RTFCont) "
            "SELECT 1, '2024-01-' || (20 - COUNT(*)), '" +
            title + "', " + contType + ", '" + url + "', '" + rtf + "' FROM t_PxGongJi");
    }
    /// Two pages and a text between them.
    void addThree() const {
        add("text", "1", "", "안녕");
        add("first", "0", "http://sora/1");
        add("second", "0", "sora/2");
    }
    void show(std::function<void()> script) {
        notices.Load_GongJi();
        desktop.show(form, std::move(script));
    }
    void finishes() { notices.wbrGongJi.onFinished(); }
    void fails() { notices.wbrGongJi.onFailed(); }
    std::chrono::milliseconds lasts(const std::function<void()>& act) const {
        const auto start = desktop.now();
        act();
        return std::chrono::duration_cast<std::chrono::milliseconds>(desktop.now() - start);
    }
    /// The content can be used, and the pointer says so.
    void expectRest() const {
        EXPECT_TRUE(notices.c1eGongJi0.enabled());
        EXPECT_EQ(desktop.pointer(), screen::Pointer::Normal);
    }
    void expectFailureBox(const std::string& text) {
        desktop.expectBox("공지사항", text + "(인터넷 연결을 확인하여 주십시오.)", screen::BoxIcon::Critical);
    }

    testing::TestDesktop desktop;
    testing::TestDatabase pharmacy{false};
    session::Session session;
    screen::Window form{desktop, "frmNotices", 9000, 6000};
    Notices notices{form, {}, session};
    console::UserActions user{desktop};
    std::vector<std::string> navigated;
    std::function<void()> browser = [this] { finishes(); };
    int stops = 0;
    bool pending = false;
};

TEST_F(NoticesTest, TheKindDecidesWhatIsShown) {
    struct Case {
        std::string contType, url, navigated;
    };
    const std::vector<Case> cases{
        {"0", "http://sora/1", "http://sora/1"},
        {"'False'", "sora/1", "http://sora/1"},
        {"0", "http://http://sora/?u=http://a", "http://sora/?u=a"},
        {"0", "https://sora/1", "http://https://sora/1"},
        {"0", "", "http://"},
        {"1", "http://sora/1", ""},
        {"''", "", ""},
    };
    add("elsewhere", "1", "", "first");
    for (const Case& c : cases) add("notice", c.contType, c.url, "{\\rtf1 {\\b form}}");
    show([&] {
        for (int row = 1; row <= static_cast<int>(cases.size()); ++row) {
            const Case& c = cases[static_cast<std::size_t>(row) - 1];
            SCOPED_TRACE(c.contType + " " + c.url);
            navigated.clear();
            user.row("tdbGongJi", row);
            EXPECT_EQ(navigated.empty() ? "" : navigated[0], c.navigated);
            EXPECT_EQ(notices.wbrGongJi.visible(), !c.navigated.empty());
            EXPECT_EQ(notices.sscExplorer.visible(), !c.navigated.empty());
            if (c.navigated.empty()) {
                EXPECT_EQ(notices.rtxGongJi.text(), "form");
            }
            expectRest();
        }
    });
}

TEST_F(NoticesTest, WhatThePageComesToIsTold) {
    const std::string failed = "http://sora/1 WEB 페이지 열기 실패",
                      late = "http://sora/1 WEB 페이지 열기 시간초과";
    struct Case {
        const char* name;
        std::function<void()> browser;
        std::string box;
        bool waitsItOut;
    };
    const Case cases[] = {
        {"failed, and its page about that finished", [this] { fails(), finishes(); }, failed, false},
        {"failed, and no more", [this] { fails(); }, failed, true},
        {"never", [] {}, late, true},
    };
    addThree();
    show([&] {
        for (const Case& c : cases) {
            SCOPED_TRACE(c.name);
            user.row("tdbGongJi", 0);
            browser = [&] {
                EXPECT_FALSE(notices.c1eGongJi0.enabled());
                EXPECT_EQ(desktop.pointer(), screen::Pointer::Busy);
                c.browser();
            };
            stops = 0;
            const auto time = lasts([&] { user.row("tdbGongJi", 1); });
            expectFailureBox(c.box);
            EXPECT_TRUE(c.waitsItOut ? time >= 20s && time < 21s : time < 1s) << time.count();
            EXPECT_EQ(stops, c.box == failed ? 1 : 0);
            EXPECT_EQ(notices.m_GongJiLoaded, !c.waitsItOut);
            expectRest();
        }
    });
}

}  // namespace
}  // namespace zelvo::services
