#include "platform/console/Console.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <sstream>

#include "platform/console/PharmacyTool.h"
#include "screen/TextField.h"
#include "tables/XArrayDB.h"

namespace zelvo::console {
namespace {

using screen::GridColumn;

class NoSettings : public screen::SettingsStore {
public:
    std::string read(std::string_view, std::string_view, std::string_view,
                     std::string_view absent) const override {
        return std::string(absent);
    }
    void write(std::string_view, std::string_view, std::string_view, std::string_view) override {}
};

/// A main window with a field of every kind; what its handlers did stands in lblLog.
class Form : public screen::Window {
public:
    explicit Form(ConsoleDesktop& console)
        : Window(console, "frmDoctorOCSmain", 9000, 6000), console_(console) {
        setCaption("ZEL-VO 메인 윈도우");
        txtNote.setMultiLine(true);
        txtNote.setText("old");
        txtLocked.setReadOnly(true);
        txtLocked.setText("stays");
        panel.setEnabled(false);
        hidden.setVisible(false);
        tabs.setSelectable(2, false);
        for (const char* method : {"미정", "택배(환자)", "한의원"}) cboBesongMethod.addEntry(method);
        for (const char* pay : {"적립 방식", "후불 방식"}) listPay.addItem(pay);
        stbMain.setPanel(1, "소라한약국 입니다...");
        dtpBesong.setValue({2024, 5, 6});
        sscStop.setTextColor({192, 0, 0});
        herbs.reDim(1, 3);
        herbs.set(0, 1, "당귀");
        herbs.set(0, 2, 1500);
        herbs.set(1, 0, true);
        herbs.set(1, 1, "작약");
        tdbDGL.bind(&herbs);
        listen();
    }

    screen::TextField txtChubsu{*this, "txtChubsu"}, txtNext{*this, "txtNext"}, txtNote{*this, "txtNote"},
        txtLocked{*this, "txtLocked"}, txtAway{*this, "txtAway"};
    screen::Label lblLog{*this, "lblLog"};
    screen::ComboList cboBesongMethod{*this, "cboBesongMethod"};
    screen::ItemList listPay{*this, "ListVpayment"};
    screen::CheckButton chkMerge{*this, "chkMerge"}, chkNever{*this, "chkNever"};
    screen::OptionButton sex0{*this, "ssoSex(0)"}, sex1{*this, "ssoSex(1)"};
    screen::Button sscNote{*this, "sscNote", {}, "비고"}, sscStop{*this, "sscStop"}, sscAsk{*this, "sscAsk"},
        sscSend{*this, "sscSend"}, sscFault{*this, "sscFault"};
    screen::TwoStateButton ssrConfirm{*this, "ssrConfirm"};
    screen::Panel panel{*this, "c1eDrug", {}, "약재"};
    screen::TextField txtInPanel{*this, "txtInPanel", panel.inside()}, hidden{*this, "txtHidden"};
    screen::TabControl tabs{*this, "c1tMain", {"공지", "처방전", "관리"}};
    screen::TextField txtBehind{*this, "txtBehind", tabs.page(1)};
    screen::StatusBar stbMain{*this, "stbMain"};
    screen::DateField dtpBesong{*this, "dtpBesong"};
    screen::RichTextField rtxSheet{*this, "rtxSheet"};
    screen::WebView wbrGongJi{*this, "wbrGongJi"};
    screen::Grid tdbDGL{*this,
                        "tdbDGL",
                        {},
                        {{.caption = "약재명", .stops = false},
                         {.caption = "이름", .editable = true, .button = true},
                         {.caption = "금액(원)", .format = basics::NumberPicture::SeparatedZero},
                         {.caption = "PK", .shown = false}}};
    tables::XArrayDB herbs;

private:
    void log(const std::string& what) { lblLog.setCaption(lblLog.caption() + what + " "); }
    void listen() {
        txtChubsu.onKeyDown.add([this](int& code) {
            if (code != screen::keys::enter) return;
            code = 0;
            desktop().sendKeys("{TAB}");
        });
        txtChubsu.onFocus.add([this] { txtChubsu.select(0, txtChubsu.text().size()); });
        txtChubsu.onChange.add([this] { log(txtChubsu.text()); });
        txtAway.onFocus.add([this] { txtNext.setFocus(); });
        chkNever.onClick.add([this] { chkNever.setValue(false); });
        usePressed(ssrConfirm, [this] { log("confirmed"); });
        sscNote.onPress.add([this] { showNote(); });
        sscAsk.onPress.add([this] { ask(); });
        sscSend.onPress.add([this] {
            console_.sent({"첩약", "20", "100", "3.5", "7", "21", "a\"b", "152000", ""});
        });
        sscFault.onPress.add([] { throw basics::Fault("가게"); });
        sscStop.onPress.add([this] { unload(); });
        onResize.add([this] { log("resized"); });
        tabs.onClick.add([this] { log("tab"); });
        listPay.onItemClick.add([this](int item) { listPay.setItemChecked(item, true); });
        wbrGongJi.onFinished.add([this] { log("finished"); });
        wbrGongJi.onFailed.add([this] {
            log("failed");
            wbrGongJi.stop();
        });
        tdbDGL.onCellButton.add([this](int) { wbrGongJi.navigate("http://sora/1"); });
        tdbDGL.onHeadClick.add([this](int column) { log("head" + std::to_string(column)); });
        tdbDGL.onRowStyle.add([](int row, std::string& style) { style = row == 0 ? "styRed" : ""; });
        tdbDGL.onRowChange.add([this](int, int) { log("row" + std::to_string(tdbDGL.currentRow())); });
    }
    void showNote() {
        Window note(desktop(), "frmMessage", 3000, 2000);
        note.setCaption("비고 \"1\"");
        screen::RichTextField rtxMessage(note, "rtxMessage");
        screen::Button cmdReg(note, "cmdReg");
        rtxMessage.setText(tdbDGL.value(1));
        cmdReg.onPress.add([&] { note.hide(); });
        desktop().setPointer(screen::Pointer::Busy);
        note.showModal();
        desktop().setPointer(screen::Pointer::Normal);
        log("note:" + rtxMessage.text());
    }
    void ask() {
        log(desktop().ask("삭제하시겠습니까?\r\n", "처방약재삭제", screen::Answer::No) ? "yes" : "no");
        desktop().inform("끝", "알림");
        desktop().openBrowser("http://sora");
    }

    ConsoleDesktop& console_;
};

struct Outcome {
    int code = -1;
    std::string out, errors;
};

std::string readAll(int from) {
    std::string all;
    char block[4096];
    for (ssize_t n = 0; (n = read(from, block, sizeof block)) > 0;)
        all.append(block, static_cast<std::size_t>(n));
    close(from);
    return all;
}

/// Runs a script in a process of its own, as a failing command ends it.
Outcome run(const std::string& script, const std::function<void(ConsoleDesktop&)>& session) {
    int out[2], errors[2];
    if (pipe(out) != 0 || pipe(errors) != 0) return {};
    const pid_t child = fork();
    if (child == 0) {
        dup2(out[1], STDOUT_FILENO);
        dup2(errors[1], STDERR_FILENO);
        for (const int end : {out[0], out[1], errors[0], errors[1]}) close(end);
        NoSettings settings;
        std::istringstream in(script);
        const auto pharmacy = [](const std::vector<std::string>& words) {
            return words.at(0) == "state" ? 0 : 5;
        };
        const int code =
            runConsole({.script = "", .settings = settings, .pharmacy = pharmacy, .in = in}, session);
        std::cout << std::flush;
        std::_Exit(code);
    }
    close(out[1]);
    close(errors[1]);
    Outcome outcome;
    outcome.out = readAll(out[0]);
    outcome.errors = readAll(errors[0]);
    int status = 0;
    waitpid(child, &status, 0);
    outcome.code = WIFEXITED(status) ? WEXITSTATUS(status) : -2;
    return outcome;
}

Outcome runForm(const std::string& script) {
    return run(script, [](ConsoleDesktop& desktop) { Form(desktop).showModal(); });
}

TEST(ConsoleTest, CommandsDoWhatAUserDoes) {
    const std::pair<const char*, const char*> cases[] = {
        {"typing replaces what the focus selected, then goes on",
         "type txtNext x\ntype txtChubsu 20\ntype txtChubsu 5\nexpect txtChubsu 205\nexpect lblLog \"row0 2 20 205 \""},
        {"the last word runs to the line's end", "type txtNext  a \"b\" c\nexpect txtNext a \"b\" c"},
        {"escapes stand in quotes only",
         "type txtNext \"a\\\"\\\\b\\q\"\nexpect txtNext a\"\\b\\q\ntype txtLocked \\n"},
        {"an empty text", "expect txtNext \"\"\ntype txtNext \"\"\nexpect txtNext \"\""},
        {"Enter in a text", "type txtNote \"\\n1\\r\\n2\"\nexpect txtNote \"old\\r\\n1\\r\\n2\""},
        {"injected keys come before the next command",
         "type txtChubsu \"7\\n9\"\nexpect focus txtNext\nexpect txtNext \"\""},
        {"keys go on where the focus goes",
         "key txtChubsu Enter x Backspace y\nexpect txtNext y\nkey txtNext Home z\nexpect txtNext zy"},
        {"what a field passes on is dropped",
         "type txtAway abc\nexpect txtAway \"\"\nexpect txtNext \"\"\nexpect focus txtNext"},
        {"a locked field takes keys and keeps its text",
         "type txtLocked x\nexpect txtLocked stays\nexpect focus txtLocked"},
        {"paste",
         "paste txtNext 010-1234 5678\nexpect txtNext 010-1234 5678\npaste txtChubsu \"1\\n2\"\nexpect txtChubsu 1"},
        {"combo",
         "expect selected cboBesongMethod -1\nchoose cboBesongMethod \"택배(환자)\"\nexpect cboBesongMethod 택배(환자)\n"
         "expect entries cboBesongMethod 미정 \"택배(환자)\" 한의원\nexpect selected cboBesongMethod 1"},
        {"list",
         "choose ListVpayment \"후불 방식\"\nexpect item ListVpayment 1 on\nexpect item ListVpayment 0 off\n"
         "expect selected ListVpayment 1\nexpect entries ListVpayment \"적립 방식\" \"후불 방식\""},
        {"check and option",
         "check chkMerge on\nexpect chkMerge on\ncheck chkMerge off\nexpect chkMerge off\n"
         "check ssoSex(0) on\ncheck ssoSex(1) on\nexpect ssoSex(0) off"},
        {"a press button acts once and comes up",
         "press ssrConfirm\nexpect lblLog \"row0 confirmed \"\nexpect focus ssrConfirm"},
        {"tabs",
         "expect tab c1tMain 0\ntab c1tMain 0\ntab c1tMain 1\ntype txtBehind 1\nexpect lblLog \"row0 tab tab \"\n"
         "expect selectable c1tMain 2 no\nexpect selectable c1tMain 0 yes"},
        {"date", "expect dtpBesong 2024-05-06\ndate dtpBesong 2024-02-29\nexpect dtpBesong 2024-02-29"},
        {"rows", "expect rows tdbDGL 2\nrow tdbDGL 1\nexpect current tdbDGL 1\nexpect lblLog \"row0 row1 \""},
        {"cells",
         "cell tdbDGL 이름 감 초\nexpect cell tdbDGL 0 1 \"감 초\"\ncell tdbDGL 1 \"\"\nexpect value tdbDGL 0 이름 \"\"\n"
         "cell tdbDGL 1 \"당귀\"\ncellkey tdbDGL 1 Down\nexpect current tdbDGL 1\n"
         "expect cell tdbDGL 0 \"금액(원)\" 1,500\nexpect value tdbDGL 0 2 1500\nexpect value tdbDGL 1 0 -1"},
        {"heads and styles",
         "head tdbDGL 약재명\nexpect lblLog \"row0 head0 \"\nexpect style tdbDGL 0 styRed\nexpect style tdbDGL 1 \"\""},
        {"pages",
         "cellbutton tdbDGL 1\npage failed\ncellbutton tdbDGL 1\npage never\ncellbutton tdbDGL 1\ncellbutton tdbDGL 1\n"
         "expect lblLog \"row0 row0 finished failed finished finished \""},
        {"rich text",
         "type rtxSheet 하루 \"3번\"\nexpect plain rtxSheet \"하루 \\\"3번\\\"\"\nexpect rtxSheet 하루 \"3번\""},
        {"states",
         "expect shown txtBehind\nexpect hidden txtHidden\nexpect enabled txtInPanel\nexpect disabled c1eDrug\n"
         "expect caption frmDoctorOCSmain \"ZEL-VO 메인 윈도우\"\nexpect caption c1eDrug 약재\nexpect sscNote 비고\n"
         "expect panel stbMain 1 \"소라한약국 입니다...\"\nexpect textcolor sscStop 192,0,0\n"
         "expect backcolor c1eDrug 240,240,240\nexpect pointer normal"},
        {"a dialog is in front until it closes",
         "press sscNote\nexpect window frmMessage\nexpect pointer busy\n"
         "expect caption frmDoctorOCSmain \"ZEL-VO 메인 윈도우\"\ntype rtxMessage !\npress cmdReg\n"
         "expect window frmDoctorOCSmain\nexpect lblLog \"row0 note:당귀! \""},
        {"boxes take queued answers, then their defaults",
         "answer Yes\npress sscAsk\npress sscAsk\nexpect lblLog \"row0 yes no \"\n"
         "expect message 처방약재삭제 \"삭제하시겠습니까?\\r\\n\"\n"
         "expect message 알림 *\nexpect message 처방약재삭제 *\n"
         "expect message 알림 끝\nexpect no message"},
        {"events",
         "expect events 0\npress sscSend\nexpect events 1\nexpect event 4 3.5\nexpect event 7 a\"b\nexpect event 9 \"\""},
        {"the pharmacy", "pharmacy state 1 2\nresize\nexpect lblLog \"row0 resized \""},
        {"passed over",
         "\xEF\xBB\xBF# a comment\r\n\r\n   \nexpect window frmDoctorOCSmain\r\nhelp\nshow txtNext\ndump tdbDGL\ndump"},
    };
    for (const auto& [name, script] : cases) {
        const Outcome outcome = runForm(std::string(script) + "\nclose\n");
        EXPECT_EQ(outcome.code, 0) << name << ": " << outcome.errors;
        EXPECT_EQ(outcome.errors, "") << name;
    }
}

TEST(ConsoleTest, WhatCannotBeDoneOrDoesNotHoldEndsTheProgram) {
    struct Case {
        const char* script;
        int code;
        const char* errors;  ///< behind "stdin:N: "
    };
    const Case cases[] = {
        {"expect txtNext a b", 1, "expected txtNext \"a b\", found \"\""},
        {"expect lblLog \"\\r\\n\"", 1, "expected lblLog \"\\r\\n\", found \"row0 \""},
        {"expect rows tdbDGL 3", 1, "expected rows of tdbDGL 3, found 2"},
        {"expect cell tdbDGL 7 1 x", 1, "expected row 7, column 1 of tdbDGL \"x\", found 2 rows"},
        {"expect message 알림 끝", 1, "expected the box [알림] 끝, found no box"},
        {"press sscAsk\nexpect no message", 1,
         "expected no box, found [처방약재삭제] (question) 삭제하시겠습니까?\\r\\n"},
        {"expect event 1 x", 1, "expected value 1 of the event \"x\", found no event"},
        {"expect focus txtNext", 1, "expected the focus in txtNext, found it in txtChubsu"},
        {"expect hidden txtNext", 1, "expected txtNext hidden, found it shown"},
        {"expect entries ListVpayment", 1,
         "expected entries of ListVpayment none, found \"적립 방식\" \"후불 방식\""},
        {"expect window frmMessage", 1, "expected the window frmMessage in front, found frmDoctorOCSmain"},
        {"expect rows txtNext 0", 1, "expected txtNext to be a grid, found another kind of field"},
        {"type txtInPanel x", 1,
         "expected that a user can type txtInPanel x, found that txtInPanel: c1eDrug is not enabled"},
        {"press sscNote\ntype txtNext x", 2, "frmMessage has no field txtNext"},
        {"focus txtHidden", 1, "expected that a user can focus txtHidden, found that txtHidden is hidden"},
        {"type txtBehind 1", 1,
         "expected that a user can type txtBehind 1, found that txtBehind stands on page 1 of c1tMain, which is "
         "not in front"},
        {"tab c1tMain 2", 1,
         "expected that a user can tab c1tMain 2, found that page 2 of c1tMain is not selectable"},
        {"tab c1tMain 3", 1, "expected that a user can tab c1tMain 3, found that c1tMain has no page 3"},
        {"check chkNever on", 1,
         "expected that a user can check chkNever on, found that chkNever stays off when it is clicked"},
        {"choose cboBesongMethod 퀵", 1,
         "expected that a user can choose cboBesongMethod 퀵, found that cboBesongMethod has no entry \"퀵\""},
        {"row tdbDGL 2", 1, "expected that a user can row tdbDGL 2, found that tdbDGL has no row 2, only 2"},
        {"cell tdbDGL 약재명 x", 1,
         "expected that a user can cell tdbDGL 약재명 x, found that the cursor of tdbDGL does not stop in column 0 \"약재명\""},
        {"cell tdbDGL 2 x", 1,
         "expected that a user can cell tdbDGL 2 x, found that tdbDGL does not let column 2 be changed"},
        {"cellbutton tdbDGL 2", 1,
         "expected that a user can cellbutton tdbDGL 2, found that tdbDGL has no button in column 2"},
        {"head tdbDGL PK", 1,
         "expected that a user can head tdbDGL PK, found that column PK of tdbDGL is hidden"},
        {"pharmacy nonsense", 1, "expected the pharmacy to do it, found exit code 5"},
        {"press sscFault", 1, "expected press sscFault to run, found the fault 가게"},
        {"click txtNext", 2, "there is no command click"},
        {"type txtnext 1", 2, "frmDoctorOCSmain has no field txtnext"},
        {"type txtNext", 2, "TEXT is missing"},
        {"type txtNext \"a", 2, "the quotes do not end"},
        {"type txtNext \"a\" b", 2, "\"b\" is one word too many"},
        {"choose cboBesongMethod \"a\"b", 2, "a word in quotes ends at its second quote"},
        {"press txtNext twice", 2, "\"twice\" is one word too many"},
        {"key txtNext Return", 2, "there is no key Return"},
        {"row tdbDGL one", 2, "one is no number"},
        {"date dtpBesong 2023-02-29", 2, "2023-02-29 is no day"},
        {"check chkMerge yes", 2, "yes is neither on nor off"},
        {"answer Maybe", 2, "Maybe is neither Yes nor No nor OK"},
        {"close\nexpect window none\npress sscAsk", 2, "no window is left for press"},
        {"close\nexpect events 0\nexpect txtNext \"\"", 2, "no window is left to look for txtNext"},
        {"close\nexpect no message\nexpect window x", 1, "expected the window x in front, found none"},
        {"type txtNext a", 1,
         "expected the window to be closed at the end of the script, found frmDoctorOCSmain open"},
        {"press sscNote", 1,
         "expected the window to be closed at the end of the script, found frmMessage open"},
    };
    for (const Case& c : cases) {
        const std::string script = c.script;
        const auto lines = std::count(script.begin(), script.end(), '\n') + 1;
        const Outcome outcome = runForm(script);
        EXPECT_EQ(outcome.code, c.code) << script;
        EXPECT_EQ(outcome.errors, "stdin:" + std::to_string(lines) + ": " + c.errors + "\n") << script;
        EXPECT_EQ(outcome.out.find("note:"), std::string::npos);
    }
}

TEST(ConsoleTest, WhatHappensIsRecorded) {
    const Outcome outcome = runForm(
        "answer Yes\npress sscAsk\npress sscSend\npress sscNote\nkey rtxMessage Esc\nclose\ncellbutton tdbDGL 1\n"
        "show lblLog\npress sscStop\nexpect window none\nexpect event 1 첩약\nexpect message 처방약재삭제 *\n");
    EXPECT_EQ(outcome.code, 0) << outcome.errors;
    EXPECT_EQ(outcome.out,
              "[처방약재삭제] (question) 삭제하시겠습니까?\\r\\n -> Yes\n"
              "[알림] (information) 끝 -> OK\n"
              "browser http://sora\n"
              "Send2Chart strJob=\"첩약\" intChupSu=20 intPouchAmount=100 sglDayTuYak=3.5 intTuyakilsu=7 "
              "intPouchTotal=21 strMessage=\"a\\\"b\" lngSumCost=152000 strxDrugList=\"\"\n"
              "window frmMessage \"비고 \\\"1\\\"\"\n"
              "closed frmMessage\n"
              "navigate http://sora/1\n"
              "lblLog \"row0 yes note:당귀 row0 finished \"\n"
              "closed frmDoctorOCSmain\n");
}

TEST(ConsoleTest, AFailureEndsTheProgramBeforeAnyHandlerGoesOn) {
    const Outcome outcome = runForm("press sscNote\nexpect rtxMessage 작약\n");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.out, "window frmMessage \"비고 \\\"1\\\"\"\n") << "no window closed, nothing went on";
}

TEST(ConsoleTest, ASessionThatOpensNoWindowReadsNoScript) {
    const Outcome outcome = run("nonsense\n", [](ConsoleDesktop& desktop) {
        desktop.alarm("한약국 DB서버 [x] 접속에 실패 하였습니다.", "한약국서버 연결 실패");
    });
    EXPECT_EQ(outcome.code, 3);
    EXPECT_EQ(outcome.out,
              "[한약국서버 연결 실패] (error) 한약국 DB서버 [x] 접속에 실패 하였습니다. -> OK\n");
    EXPECT_EQ(outcome.errors, "");
}

TEST(ConsoleTest, AScriptThatIsNotThereIsSaidBeforeAnythingOpens) {
    NoSettings settings;
    std::ostringstream errors;
    const ConsoleOptions options{
        .script = "/nowhere/x.zs", .settings = settings, .pharmacy = {}, .errors = errors};
    EXPECT_EQ(runConsole(options, [](ConsoleDesktop&) { FAIL(); }), 2);
    EXPECT_EQ(errors.str(), "/nowhere/x.zs: can't be read\n");
    EXPECT_THROW(runPharmacyTool("db.example.com", {"orders"}), basics::Fault) << "no embedded database";
}

}  // namespace
}  // namespace zelvo::console
