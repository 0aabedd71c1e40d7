#include "services/Notices.h"

#include "basics/Numbers.h"
#include "basics/Text.h"
#include "basics/Utf8.h"
#include "data/clsZELVORecordSet.h"
#include "screen/Window.h"

namespace zelvo::services {

namespace {

using namespace std::chrono_literals;

constexpr auto longestWait = 20s;
constexpr auto waitSlice = 100ms;
constexpr const char* boxCaption = "공지사항";

/// Whatever type the flag's column was declared with. A row without a flag is a formatted text.
bool isFalse(const std::string& flag) {
    return basics::foldCase(flag) == "false" || (basics::IsNumeric(flag) && basics::toNumber(flag) == 0);
}

}  // namespace

/// The wait for a page, for as long as it runs: the content can't be used, everything else can.
class Notices::Wait {
public:
    // What the user did meanwhile comes in at once, and has to find that a wait runs.
    explicit Wait(Notices& notices) : notices_(begin(notices)), input_(notices.form_) {}
    ~Wait() {
        notices_.c1eGongJi0.setEnabled(true);
        notices_.awaited_.reset();
        notices_.waiting_ = false;
    }
    Wait(const Wait&) = delete;
    Wait& operator=(const Wait&) = delete;

private:
    static Notices& begin(Notices& notices) {
        notices.waiting_ = true;
        notices.c1eGongJi0.setEnabled(false);
        return notices;
    }

    Notices& notices_;
    screen::Window::InputAllowed input_;
};

Notices::Notices(screen::Window& form, screen::Place noticeTab, session::Session& session)
    : lblGongJiYakGuk{{{form, "lblGongJiYakGuk(0)", noticeTab},
                       {form, "lblGongJiYakGuk(1)", noticeTab},
                       {form, "lblGongJiYakGuk(2)", noticeTab},
                       {form, "lblGongJiYakGuk(3)", noticeTab},
                       {form, "lblGongJiYakGuk(4)", noticeTab}}},
      lblYakGukSvrIP(form, "lblYakGukSvrIP", noticeTab),
      tdbGongJi(form, "tdbGongJi", noticeTab,
                {{.caption = "공지사항PK", .field = "PGJ_PK", .shown = false},
                 {.caption = "공지유형", .field = "PGJ_Type", .shown = false},
                 {.caption = "컨텐츠유형", .field = "PGJ_ContType", .shown = false},
                 {.caption = "제목", .field = "PGJ_Title", .width = 4200},
                 {.caption = "URL", .field = "PGJ_URLCont", .shown = false},
                 {.caption = "RTF TEXT", .field = "PGJ_RTFCont", .shown = false},
                 {.caption = "등록일자", .field = "PGJ_WriteDate", .width = 1800}}),
      c1eGongJi0(form, "c1eGongJi(0)", noticeTab, " 한약국 공지사항 상세내용"),
      rtxGongJi(form, "rtxGongJi", c1eGongJi0.inside()),
      wbrGongJi(form, "wbrGongJi", c1eGongJi0.inside()),
      sscExplorer(form, "sscExplorer", c1eGongJi0.inside(), "인터넷 브라우저로 열기"),
      form_(form),
      session_(session) {
    const char* labels[] = {"한약국명 :", "대표한약사 :", "한약국주소 :", "전화번호 :", "핸드폰 :"};
    for (std::size_t i = 0; i < lblGongJiYakGuk.size(); ++i) lblGongJiYakGuk[i].setLabel(labels[i]);
    tdbGongJi.allowsUpdate = false;
    tdbGongJi.emptyHint = "공지사항을 읽지 못하였습니다.";
    rtxGongJi.setLabel("공지사항 내용");
    rtxGongJi.setLocked(true);
    wbrGongJi.setLabel("공지사항 웹페이지");
    wbrGongJi.setVisible(false);
    sscExplorer.setVisible(false);
    // An action of its own, behind the click that changed the row: the rest of a tab's click must not come
    // when the doctor has long gone on.
    tdbGongJi.onRowChange.add([this](int, int) { form_.userInput([this] { Show_GongJi(); }); });
    wbrGongJi.onFinished.add([this] { Page_Finished(); });
    wbrGongJi.onFailed.add([this] { Page_Failed(); });
    sscExplorer.onPress.add([this] { sscExplorer_Click(); });
}

void Notices::Load_GongJi() {
    tdbGongJi.bind(&m_rsGongJi);
    if (data::clsZELVORecordSet().RecordSet_GongJi(session_.connection(), m_rsGongJi) == -1) return;
    tdbGongJi.emptyHint = "한약국의 공지사항이 없습니다.";
    tdbGongJi.refresh();
}

void Notices::Show_GongJi() {
    if (!tdbGongJi.onRow()) return;
    if (isFalse(tdbGongJi.value("컨텐츠유형"))) {
        showPage();
    } else {
        showText();
    }
}

void Notices::showText() {
    // A wait for another row's page ends without a word.
    if (awaited_) wbrGongJi.stop();
    awaited_.reset();
    wbrGongJi.setVisible(false);
    sscExplorer.setVisible(false);
    rtxGongJi.setVisible(true);
    form_.desktop().processEvents(false);
    rtxGongJi.setRtf(tdbGongJi.value("RTF TEXT"));
    rtxGongJi.select(0, 0);
}

void Notices::showPage() {
    rtxGongJi.setVisible(false);
    wbrGongJi.setVisible(true);
    sscExplorer.setVisible(true);
    form_.desktop().processEvents(false);
    const std::string page = address();
    if (waiting_) {
        form_.desktop().setPointer(screen::Pointer::Busy);
        ask(page);
        return;  // the wait that runs already goes on with this page, from the start
    }
    const screen::BusyPointer busy(form_.desktop(), "공지사항을 불러오는 중입니다.");
    ask(page);
    if (const auto missed = waitForPage()) tellOutcome(*missed);
}

void Notices::ask(const std::string& page) {
    wbrGongJi.navigate(page);
    m_GongJiLoaded = false;
    m_GongJiFailed = false;
    awaited_ = Page{page, form_.desktop().now()};
}

/// Waits for the page asked for last. Gives it when there is something to tell about it: it failed, or it is
/// not there yet. A page that nobody waits for any more is not told.
std::optional<Notices::Page> Notices::waitForPage() {
    const Wait wait(*this);
    while (stillWaits()) form_.desktop().waitForEvents(waitSlice);
    if (form_.closing() || (m_GongJiLoaded && !m_GongJiFailed)) return std::nullopt;
    return awaited_;
}

bool Notices::stillWaits() const {
    return awaited_ && !m_GongJiLoaded && !form_.closing() && !overdue();
}

bool Notices::overdue() const {
    return awaited_ && form_.desktop().now() - awaited_->asked > longestWait;
}

void Notices::tellOutcome(const Page& page) {
    const char* const outcome = m_GongJiFailed
                                    ? " WEB 페이지 열기 실패(인터넷 연결을 확인하여 주십시오.)"
                                    : " WEB 페이지 열기 시간초과(인터넷 연결을 확인하여 주십시오.)";
    form_.desktop().alarm(page.address + outcome, boxCaption);
}

void Notices::Page_Finished() {
    form_.desktop().processEvents(false);
    m_GongJiLoaded = true;
    form_.desktop().setPointer(screen::Pointer::Normal);
}

/// The wait goes on until the browser has finished its page about the failure.
void Notices::Page_Failed() {
    form_.desktop().processEvents(false);
    // The time may have run out under another window: then that is what is told.
    m_GongJiFailed = !overdue();
    wbrGongJi.stop();
}

void Notices::sscExplorer_Click() {
    if (tdbGongJi.onRow()) form_.desktop().openBrowser(address());
}

std::string Notices::address() const {
    return "http://" + basics::removeAll(tdbGongJi.value("URL"), "http://");
}

}  // namespace zelvo::services
