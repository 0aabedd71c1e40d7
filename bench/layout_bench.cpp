// How long the window stands still for a page or a rich text: the worst of what their bounds let through, as
// the search found them ("layout_bench search 600" goes on searching for so many seconds).
#include <QtWidgets/QApplication>
#include <QtWidgets/QTextBrowser>
#include <array>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "Measure.h"
#include "platform/qt/PageDocument.h"
#include "platform/qt/RichDocument.h"
#include "platform/text/MachineCodePages.h"
#include "screen/RtfReader.h"
#include "screen/RtfWriter.h"

namespace {

using namespace zelvo;
using bench::Comparison;

constexpr int width = 800, height = 600;

std::string repeated(const std::string& what, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i) text += what;
    return text;
}

std::string numbered(const std::string& before, const std::string& behind, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) text += before + std::to_string(i) + behind;
    return text;
}

/// Milliseconds on the window's thread until a page stands on the glass: it was read on another one.
double pageTime(const std::string& html) {
    const qt::PageContent content = qt::PageDocument::contentOf({"http://sora/", "text/html", html});
    QTextBrowser browser;
    browser.resize(width, height);
    qt::PageDocument page;
    browser.setDocument(&page);
    return bench::processorMilliseconds([&] {
        page.showContent(content);
        browser.grab();
        static_cast<void>(page.size());
    });
}

/// An RTF text read, shown, read back and written.
void showRtf(const std::string& rtf, const screen::CodePages& pages) {
    QTextEdit editor;
    editor.resize(width, height);
    editor.grab();
    qt::fillDocument(*editor.document(), screen::readRtf(rtf, pages));
    editor.grab();
    static_cast<void>(editor.document()->size());
    screen::writeRtf(qt::contentOf(*editor.document()));
}

const std::array<std::string, 38>& pieces() {
    static const std::array<std::string, 38> all{"<table><tr><td>",
                                                 "</td><td>",
                                                 "</td></tr><tr><td>",
                                                 "</table>",
                                                 "<p>",
                                                 "<br>",
                                                 "<b>",
                                                 "</b>",
                                                 "<i>a</i> ",
                                                 "<ul><li>",
                                                 "<li>",
                                                 "<ol><li>",
                                                 "</ul>",
                                                 "<div>",
                                                 "</div>",
                                                 "<hr>",
                                                 "<img src=x.png>",
                                                 "<span style='font-size:72pt'>",
                                                 "</span>",
                                                 "<span style='font-size:50%;font-family:x'>",
                                                 "<a href=x>",
                                                 "</a>",
                                                 "<pre>",
                                                 "<blockquote>",
                                                 "<h1>",
                                                 "<td colspan=20 rowspan=50>",
                                                 "a ",
                                                 "가나다 ",
                                                 "나",
                                                 "e\u0301",
                                                 "שלום ",
                                                 "سلام ",
                                                 "😀",
                                                 "漢",
                                                 "ᄀ",
                                                 "नि",
                                                 "&nbsp;",
                                                 "<tr>"};
    return all;
}

/// Runs of pieces; a page that takes longer is changed further.
void search(int seconds) {
    std::mt19937 random(std::random_device{}());
    const auto below = [&](std::size_t end) {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
    };
    using Page = std::vector<std::pair<std::vector<std::size_t>, std::size_t>>;
    const auto textOf = [](const Page& page) {
        std::string html;
        for (const auto& [what, times] : page) {
            std::string stretch;
            for (const std::size_t piece : what) stretch += pieces()[piece];
            html += repeated(
                stretch, std::min<std::size_t>(times, 2'000'000 / std::max<std::size_t>(stretch.size(), 1)));
        }
        return html;
    };
    const auto stretch = [&] {
        std::vector<std::size_t> what(1 + below(4));
        for (std::size_t& piece : what) piece = below(pieces().size());
        constexpr std::array<std::size_t, 8> counts{1, 2, 4, 50, 300, 3'000, 30'000, 300'000};
        return std::pair(what, counts[below(counts.size())]);
    };
    Page best;
    double worst = 0, worstOfAll = 0;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    for (int idle = 0; std::chrono::steady_clock::now() < end;) {
        Page tried = best;
        const std::size_t place = below(tried.size() + 1);
        if (place == tried.size() && tried.size() < 6) {
            tried.push_back(stretch());
        } else if (!tried.empty()) {
            tried[std::min(place, tried.size() - 1)] = stretch();
        }
        const double time = pageTime(textOf(tried));
        idle = time > worst * 1.03 ? 0 : idle + 1;
        if (time > worst) {
            worst = time;
            best = tried;
        }
        if (worst > worstOfAll) {
            worstOfAll = worst;
            std::printf("%8.1f ms:", worst);
            for (const auto& [what, times] : best) {
                std::printf(" %zu x \"", times);
                for (const std::size_t piece : what) std::printf("%s", pieces()[piece].c_str());
                std::printf("\"");
            }
            std::printf("\n");
            std::fflush(stdout);
        }
        if (idle < 60) continue;
        best.clear();
        worst = 0;
        idle = 0;
    }
}

const std::vector<std::pair<const char*, std::string>>& pages() {
    static const std::vector<std::pair<const char*, std::string>> all{
        {"page of tables in tables", repeated("<table><tr><td>", 20) + repeated("가나다 ", 100'000)},
        {"page of table cells", "<table>" + repeated("<tr>" + repeated("<td>a", 50), 2'000)},
        {"page of cells in tables",
         repeated("<table><tr><td>", 3) + "<table>" + repeated("<tr><td>a<td>b", 50'000)},
        {"page of list entries", "<ol>" + repeated("<li>a", 100'000)},
        {"page of one word", repeated("가", 1'000'000)},
        {"page of one letter", "e" + repeated("\u0301", 1'000'000)},
        {"page of scripts", repeated("אבג abc 가 😀 ", 100'000)},
        {"page of links", repeated("<a href=x>y</a> ", 100'000)},
        {"page of sizes", numbered("<span style='font-size:", "px'>가</span> ", 50'000)},
        {"page of 999 points", "<p style='font-size:999pt'>" + repeated("word ", 200'000)},
        {"page of paragraphs", repeated("<p>a", 100'000)},
    };
    return all;
}

bool runAll() {
    bool sound = true;
    constexpr int runs = 3;
    for (const auto& [name, html] : pages()) {
        Comparison page(name, 1);
        page.floorIs(1000);
        for (int run = 0; run < runs; ++run) page.measuredIs(pageTime(html));
        sound = page.report() && sound;
    }
    const std::string head = "{\\rtf1\\ansi\\ansicpg949{\\fonttbl{\\f0\\fcharset129 Gulim;}}\\fs20 ";
    const std::vector<std::pair<const char*, std::string>> texts{
        {"rtf of 5 MB", repeated(repeated("\\u44032?\\u45208? {\\b word}", 40) + "\\par ", 4'700)},
        {"rtf of one word", repeated("a", 5'000'000)},
        {"rtf of one letter", "e" + repeated("\\u769?", 200'000)},
        {"rtf of paragraphs", repeated("a\\par ", 200'000)},
        {"rtf of 999 points", "\\fs1998 " + repeated("word ", 100'000)},
        {"rtf of runs", repeated("{\\b a}b ", 100'000)},
    };
    const screen::CodePages codePages = text::machineCodePages();
    for (const auto& [name, rtf] : texts) {
        Comparison text(name, 3);
        text.floorIs(1000);
        for (int run = 0; run < runs; ++run)
            text.measuredIs(bench::processorMilliseconds([&] { showRtf(head + rtf + "}", codePages); }));
        sound = text.report() && sound;
    }
    return sound;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc > 2 && std::string(argv[1]) == "search") {
        search(std::atoi(argv[2]));
        return 0;
    }
    return runAll() ? 0 : 1;
}
