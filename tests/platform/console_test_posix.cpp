#include "platform/console/Console.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <sstream>

#include "screen/TextField.h"
#include "support/TestDesktop.h"
#include "tables/XArrayDB.h"

namespace zelvo::console {
namespace {

/// A main window in small; what its handlers did stands in lblLog.
class Form : public screen::Window {
public:
    explicit Form(ConsoleDesktop& console) : Window(console, "frmDoctorOCSmain", 9000, 6000) {
        hidden.setVisible(false);
        hidden.masked = txtPassword.masked = true;
        herbs.reDim(1, 1);
        herbs.set(0, 1, "당귀");
        herbs.set(1, 0, true);
        tdbDGL.bind(&herbs);
        sscNote.onPress.add([this] { showNote(); });
        sscAsk.onPress.add([this] {
            const bool yes = desktop().ask("삭제하시겠습니까?\r\n", "처방약재삭제", screen::Answer::No);
            log(yes ? "yes" : "no");
            desktop().inform("끝", "알림");
        });
        sscSend.onPress.add([&console] {
            console.sent({"첩약", "20", "100", "3.5", "7", "21", "a\"b", "152000", ""});
            console.alarm("끊겼습니다.", "연결 실패");
        });
        sscFault.onPress.add([] { throw basics::Fault("가게"); });
        wbrGongJi.onFinished.add([this] { log("finished"); });
        tdbDGL.onCellButton.add([this](int) { wbrGongJi.navigate("http://sora/1"); });
    }

    screen::TextField txtNext{*this, "txtNext"}, hidden{*this, "txtHidden"},
        txtPassword{*this, "txtPassword"};
    screen::Label lblLog{*this, "lblLog"};
    screen::Button sscNote{*this, "sscNote"}, sscAsk{*this, "sscAsk"}, sscSend{*this, "sscSend"},
        sscFault{*this, "sscFault"};
    screen::TabControl tabs{*this, "c1tMain", {"공지", "처방전", "관리"}};
    screen::TextField txtBehind{*this, "txtBehind", tabs.page(1)};
    screen::WebView wbrGongJi{*this, "wbrGongJi"};
    std::vector<screen::GridColumn> columns{{.caption = "약재명", .stops = false},
                                            {.caption = "이름", .editable = true, .button = true}};
    screen::Grid tdbDGL{*this, "tdbDGL", {}, columns};
    tables::XArrayDB herbs;

private:
    void log(const std::string& what) { lblLog.setCaption(lblLog.caption() + what + " "); }
    void showNote() {
        Window note(desktop(), "frmMessage", 3000, 2000);
        note.setCaption("비고 \"1\"");
        screen::RichTextField rtxMessage(note, "rtxMessage");
        rtxMessage.setText(tdbDGL.value(1));
        note.showModal();
        log("note:" + rtxMessage.text());
    }
};

struct Outcome {
    int code = -1;
    std::string out, errors;
};

/// Runs a script in a process of its own, as a failing command ends it.
Outcome runForm(const std::string& script) {
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    const pid_t child = fork();
    if (child == 0) {
        testing::TestDesktop settings;
        std::istringstream in(script);
        const auto pharmacy = [](const std::vector<std::string>&) { return 5; };
        const int code =
            runConsole({.script = "", .settings = settings.settings(), .pharmacy = pharmacy, .in = in},
                       [](ConsoleDesktop& desktop) { Form(desktop).showModal(); });
        std::cout << std::flush;
        std::_Exit(code);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ::testing::internal::GetCapturedStdout(),
            ::testing::internal::GetCapturedStderr()};
}

TEST(ConsoleTest, WhatCannotBeDoneOrDoesNotHoldEndsTheProgram) {
    struct Case {
        std::string script;
        int code;
        const char* errors;  ///< behind "stdin:N: "; "~ that" for what a user can't do with the last line
    };
    const Case cases[] = {
        {"expect txtNext a b", 1, "expected txtNext \"a b\", found \"\""},
        {"expect cell tdbDGL 7 1 x", 1, "expected row 7, column 1 of tdbDGL \"x\", found 2 rows"},
        {"expect message 알림 끝", 1, "expected the box [알림] 끝, found no box"},
        {"press sscAsk\nexpect no message", 1,
         "expected no box, found [처방약재삭제] (question) 삭제하시겠습니까?\\r\\n"},
        {"focus txtHidden", 1, "~ txtHidden is hidden"},
        {"type txtHidden geheim", 1,
         "expected that a user can type txtHidden ****, found that txtHidden is hidden"},
        {"type txtPassword geheim\nexpect txtPassword geheimer", 1,
         "expected txtPassword as it was said, found another text"},
        {"type txtBehind 1", 1, "~ txtBehind stands on page 1 of c1tMain, which is not in front"},
        {"row tdbDGL 2", 1, "~ tdbDGL has no row 2, only 2"},
        {"cell tdbDGL 약재명 x", 1, "~ the cursor of tdbDGL does not stop in column 0 \"약재명\""},
        {"pharmacy nonsense", 1, "expected the pharmacy to do it, found exit code 5"},
        {"press sscFault", 1, "expected press sscFault to run, found the fault 가게"},
        {"click txtNext", 2, "there is no command click"},
        {"type txtNext", 2, "TEXT is missing"},
        {"type txtNext \"a", 2, "the quotes do not end"},
        {"type txtNext \"a\" b", 2, "\"b\" is one word too many"},
        {"key txtNext Return", 2, "there is no key Return"},
        {"close\nexpect window none\npress sscAsk", 2, "no window is left for press"},
        {"press sscNote", 1,
         "expected the window to be closed at the end of the script, found frmMessage open"},
    };
    for (const Case& c : cases) {
        const auto lines = std::count(c.script.begin(), c.script.end(), '\n') + 1;
        std::string errors = c.errors;
        if (errors[0] == '~')
            errors = "expected that a user can " + c.script + ", found that" + errors.substr(1);
        const Outcome outcome = runForm(c.script);
        EXPECT_EQ(outcome.code, c.code) << c.script;
        EXPECT_EQ(outcome.errors, "stdin:" + std::to_string(lines) + ": " + errors + "\n") << c.script;
    }
    EXPECT_EQ(runForm("press sscNote\nexpect rtxMessage 작약").out, "window frmMessage \"비고 \\\"1\\\"\"\n")
        << "no window closes, no handler goes on";
}

TEST(ConsoleTest, WhatHappensIsRecorded) {
    const Outcome outcome = runForm(
        "answer Yes\npress sscAsk\npress sscSend\npress sscNote\nclose\ncellbutton tdbDGL 1\nshow lblLog\n"
        "type txtPassword geheim\nshow txtPassword\nclose\n"
        "expect window none\nexpect event 1 첩약\nexpect message 처방약재삭제 *\n");
    EXPECT_EQ(outcome.code, 0) << outcome.errors;
    EXPECT_EQ(outcome.out,
              "[처방약재삭제] (question) 삭제하시겠습니까?\\r\\n -> Yes\n"
              "[알림] (information) 끝 -> OK\n"
              "Send2Chart strJob=\"첩약\" intChupSu=20 intPouchAmount=100 sglDayTuYak=3.5 intTuyakilsu=7 "
              "intPouchTotal=21 strMessage=\"a\\\"b\" lngSumCost=152000 strxDrugList=\"\"\n"
              "[연결 실패] (error) 끊겼습니다. -> OK\n"
              "window frmMessage \"비고 \\\"1\\\"\"\n"
              "closed frmMessage\n"
              "navigate http://sora/1\n"
              "lblLog \"yes note:당귀 finished \"\n"
              "txtPassword **** focus\n"
              "closed frmDoctorOCSmain\n");
}

}  // namespace
}  // namespace zelvo::console
