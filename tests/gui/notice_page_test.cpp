#include <QtCore/QBuffer>
#include <QtCore/QTemporaryDir>
#include <QtGui/QTextBlock>
#include <QtWidgets/QTextBrowser>
#include <atomic>
#include <condition_variable>
#include <fstream>
#include <mutex>

#include "GuiSession.h"
#include "platform/qt/PageDocument.h"
#include "platform/qt/PageHtml.h"
#include "platform/qt/Texts.h"
#include "screen/TextField.h"

namespace zelvo::testing {
namespace {

/// A picture of one colour, as a server sends it.
std::string pictureBytes(const QColor& color, QSize size = {8, 6}) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes.toStdString();
}

/// The web as far as these tests need it. An address that is not in it fails; one that "hangs" ends when it
/// is stopped.
class SmallWeb {
public:
    std::map<std::string, screen::WebContent> pages;
    std::atomic<int> asked = 0, stopped = 0;

    void page(const std::string& path, const std::string& html, const std::string& type = "text/html") {
        pages[path] = {path, type, html};
    }
    screen::WebFetch fetch() {
        return [this](const std::string& address, const std::stop_token& stop) {
            ++asked;
            const auto found = pages.find(address);
            if (address.find("hangs") != std::string::npos) waitFor(stop);
            if (found == pages.end()) throw basics::Fault("not there");
            return found->second;
        };
    }

private:
    void waitFor(const std::stop_token& stop) {
        std::mutex mutex;
        std::unique_lock lock(mutex);
        std::condition_variable_any().wait(lock, stop, [] { return false; });
        ++stopped;
        throw basics::Fault("stopped");
    }
};

/// A doctor's session that begins at its notices: a text, then pages.
struct NoticeSession : GuiSession {
    NoticeSession() {
        desktop.components().setWebFetch(web.fetch());
        database.run("DELETE FROM t_PxGongJi");
        notice("1", "", "{\\rtf1 text}");
    }
    void notice(const std::string& contType, const std::string& url, const std::string& rtf = "") const {
        database.run(
            "INSERT INTO t_PxGongJi (PGJ_Type, PGJ_WriteDate, PGJ_Title, PGJ_ContType, PGJ_URLCont, PGJ_RTFCont) "
            "SELECT COUNT(*), '2024-01-01', 'title', " +
            contType + ", '" + url + "', '" + rtf + "' FROM t_PxGongJi");
    }
    void read(std::function<void()> script) {
        run([this, script = std::move(script)] {
            hand().tab("c1tMain", 0);
            script();
        });
    }
    QTextBrowser& browser() { return widget<QTextBrowser>("wbrGongJi"); }
    std::string shown() { return browser().toPlainText().toStdString(); }
    QSize pictureSize(const char* address) {
        const QVariant picture =
            browser().document()->resource(QTextDocument::ImageResource, QUrl(QLatin1String(address)));
        return picture.value<QPixmap>().size();
    }

    SmallWeb web;
};

TEST(NoticePage, ShowsTextAndPicturesAndOpensLinksOutside) {
    NoticeSession session;
    session.notice("0", "sora/1");
    session.web.page("http://sora/1", "<meta http-equiv=refresh content='0;url=page'>");
    session.web.page("http://sora/page",
                     "<script>no</script><h1>공지</h1><img src='pic/a.png'><img src='pic/a.png'>"
                     "<img src='gone.png'><p><a href='2?a=1&amp;b=2'>next</a></p>");
    session.web.page("http://sora/pic/a.png", pictureBytes(Qt::red), "image/png");
    session.read([&] {
        session.hand().row("tdbGongJi", 1);
        EXPECT_EQ(session.web.asked, 4) << "the page that sends on, the page, and each picture once";
        EXPECT_NE(session.shown().find("공지"), std::string::npos);
        EXPECT_EQ(session.shown().find("no"), std::string::npos);
        EXPECT_EQ(session.pictureSize("http://sora/pic/a.png"), QSize(8, 6));
        QTextBrowser& browser = session.browser();
        QTextCursor link(browser.document()->find(QStringLiteral("next")));
        link.movePosition(QTextCursor::Left);
        stage::WidgetUser::click(*browser.viewport(), browser.cursorRect(link).center());
        EXPECT_EQ(session.desktop.browsed, std::vector<std::string>{"http://sora/2?a=1&b=2"});
    });
}

TEST(NoticePage, NothingOfThisMachineIsRead) {
    const QTemporaryDir folder;
    const std::string path = folder.filePath(QStringLiteral("secret.png")).toStdString();
    ASSERT_TRUE(std::ofstream(path) << pictureBytes(Qt::red, {50, 40}));
    NoticeSession session;
    session.notice("0", "sora/1");
    session.web.page("http://sora/1", "<link rel=stylesheet href='file://" + path +
                                          "'><body background='file://" + path + "'><img src='file://" +
                                          path + "'><img src='" + path + "'><img src='//" + path +
                                          "'><img src='qrc:/x.png'><p>end</p>");
    session.read([&] {
        session.hand().row("tdbGongJi", 1);
        EXPECT_NE(session.shown().find("end"), std::string::npos);
        const QImage glass = session.browser().viewport()->grab().toImage();
        for (int y = 0; y < glass.height(); y += 2) {
            for (int x = 0; x < glass.width(); x += 2)
                ASSERT_NE(glass.pixelColor(x, y), QColor(Qt::red)) << x << " " << y;
        }
    });
}

TEST(NoticePage, WhatIsNoPageIsShownOrSaid) {
    NoticeSession session;
    const std::vector<std::vector<std::string>> cases{
        {"http://sora/text", "text/plain", "a < b\n<b>c</b>", "a < b\n<b>c</b>"},
        {"http://sora/pdf", "application/pdf", "%PDF", "이 창에서 볼 수 없는 형식의 공지사항입니다."},
        {"http://sora/pic", "image/png", pictureBytes(Qt::blue), "\uFFFC"},
        {"http://sora/bad", "image/png", "no picture", "\uFFFC"},
        {"http://sora/gone", "", "", "not there"},
    };
    for (const auto& c : cases) {
        session.notice("0", c[0]);
        session.web.page(c[0], c[2], c[1]);
    }
    session.web.pages.erase("http://sora/gone");
    session.read([&] {
        for (std::size_t i = 0; i < cases.size(); ++i) {
            session.hand().row("tdbGongJi", static_cast<int>(i) + 1);
            EXPECT_TRUE(session.shown().starts_with(cases[i][3])) << cases[i][0] << ": " << session.shown();
        }
        session.desktop.expectBox("공지사항",
                                  "http://sora/gone WEB 페이지 열기 실패(인터넷 연결을 확인하여 주십시오.)",
                                  screen::BoxIcon::Critical);
    });
}

TEST(NoticePage, TheWindowLivesWhileAPageLoads) {
    NoticeSession session;
    for (const char* url : {"sora/hangs", "sora/2", "sora/pictures"}) session.notice("0", url);
    session.web.page("http://sora/2", "second");
    session.web.page("http://sora/pictures", "before<img src=hangs.png>");
    session.read([&] {
        // Another row during the load gives it up: what it would have come to is never told.
        session.desktop.onEvents = [&] {
            if (session.web.asked == 0) return;
            session.desktop.onEvents = nullptr;
            EXPECT_FALSE(session.browser().isEnabled());
            session.hand().row("tdbGongJi", 2);
        };
        session.hand().row("tdbGongJi", 1);
        EXPECT_EQ(session.web.stopped, 1);
        EXPECT_EQ(session.shown(), "second");

        session.hand().row("tdbGongJi", 0);
        session.web.asked = 0;
        session.desktop.onEvents = [&] {
            if (session.web.asked < 2) return;
            session.desktop.onEvents = nullptr;
            EXPECT_EQ(session.shown().substr(0, 6), "before") << "the text before its pictures";
            session.hand().close();
        };
        session.hand().row("tdbGongJi", 3);
        EXPECT_EQ(session.web.stopped, 1);
    });
    EXPECT_EQ(session.web.stopped, 2) << "the closed window waits for nobody";
}

TEST(PageHtml, KeepsWhatIsReadAndMendsTheRest) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"<table><tr><td><b>a</td><td>c</b></div></table>",
         "<table><tbody><tr><td><b>a</b></td><td>c</td></tr></tbody></table>"},
        {"<!-- <b> --><!DOCTYPE x><?xml?>a<!--", "a"},
        {"x<script>if (a < b) '</p>'</script >y<style>p{}</STYLE>z<script>", "xyz"},
        {"a < b <3 <", "a &lt; b &lt;3 &lt;"},
        {"<a href='a\"b' onclick=x()>l</a>", "<a href=\"a&quot;b\" style=\"color:#003cb4;\">l</a>"},
        {"<img src=a.png width=99999999999 height=\"50%\" border=x/>",
         "<img src=\"a.png\" width=\"4000\" height=\"50%\">"},
        {"<p style=\"COLOR: red; font-size:2000px; position:fixed; background-color: url(a)\">a",
         "<p style=\"font-size:96px;color:#e60000;\">a</p>"},
        {"<b style=font-family:x<script&gt;>a</b>", "<b style=\"font-family:'x&lt;script&gt;';\">a</b>"},
        {"a<a href=\"unended", "a"},
        {"&#1599999999999 &#x0000AC00;&#xFFFFFF8a;<i title='&#2272165887'>",
         "\uFFFD 가\uFFFD<i title=\"\uFFFD\"></i>"},
        {"a&nbsp&copy;&#150;&lt;<noscript><p>b</noscript>", "a\u00A0©–&lt;<div><p>b</p></div>"},
        // What was light on a ground that stays is light; where the ground is lost it can still be read.
        {"<div style='background:#036 url(x);color:#fff'><p>a</div>",
         "<div style=\"color:#ffffff;background-color:#003366;\"><p style=\"background-color:#003366;\">a</p>"
         "</div>"},
        {"<div class=dark style='color:#fff'>a</div>", "<div style=\"color:#737373;\">a</div>"},
    };
    for (const auto& [html, kept] : cases)
        EXPECT_EQ(qt::readablePage(html).html, "<body>" + kept + "</body>") << html;
}

TEST(PageHtml, APageMaySayWhereItStandsAndWhereItGoes) {
    struct Case {
        const char *html, *base, *forward;
        bool hint;
    };
    const Case cases[] = {
        {"<base href='/a/'><p>text", "http://sora/a/", "", false},
        {"<base href='file:///etc/'><img src=x>", "http://sora/1", "", false},
        {"<meta http-equiv=Refresh content='0; URL=\"2?a\"'>", "http://sora/1", "http://sora/2?a", true},
        {"<meta http-equiv=refresh content='0;url=2'><p>text", "http://sora/1", "", false},
        {"<script>document.write('text')</script>", "http://sora/1", "", true},
    };
    for (const Case& c : cases) {
        const qt::PageContent page = qt::PageDocument::contentOf({"http://sora/1", "text/html", c.html});
        EXPECT_EQ(page.base, QUrl(QLatin1String(c.base))) << c.html;
        EXPECT_EQ(page.forward, QUrl(QLatin1String(c.forward))) << c.html;
        EXPECT_EQ(page.html.find("인터넷 브라우저") != std::string::npos, c.hint) << c.html;
    }
}

TEST(PageHtml, ADrawingThatCouldNameFilesIsNoPicture) {
    EXPECT_TRUE(qt::PageDocument::pictureIn("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>")
                    .isNull());
    EXPECT_EQ(qt::PageDocument::pictureIn(pictureBytes(Qt::red)).size(), QSize(8, 6));
}

}  // namespace
}  // namespace zelvo::testing
