#include "platform/qt/WebMirror.h"

#include <QtCore/QUrl>
#include <QtGui/QImage>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTextBrowser>
#include <algorithm>
#include <chrono>
#include <memory>

#include "basics/Fault.h"
#include "platform/qt/Contrast.h"
#include "platform/qt/Owned.h"
#include "platform/qt/PageDocument.h"
#include "platform/qt/Texts.h"
#include "screen/Fields.h"
#include "screen/Window.h"

namespace zelvo::qt {

namespace {

using namespace std::chrono_literals;

/// Pictures fetched at a time.
constexpr std::size_t mostHands = 4;
constexpr int mostForwards = 5;
/// A page is finished without those that have not come by then.
constexpr auto timeForPictures = 10s;

}  // namespace

WebMirror::WebMirror(screen::WebView& view, QTextBrowser& browser)
    : Mirror(view, browser),
      view_(view),
      browser_(browser),
      page_(owned<PageDocument>(&browser)),
      fetch_(view.window().desktop().components().webFetch()) {
    browser.setDocument(&page_);
    page_.setDefaultFont(browser.font());
    browser.setOpenLinks(false);
    browser.setPalette(paper(browser.palette()));
    connect(&browser, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) { follow(link); });
    connect(
        this, &WebMirror::handed, this,
        [this](unsigned turn, const std::function<void()>& act) {
            if (turn == turn_) act();
        },
        Qt::QueuedConnection);
    picturesEnd_.setSingleShot(true);
    connect(&picturesEnd_, &QTimer::timeout, this, [this] {
        for (std::jthread& hand : hands_) hand.request_stop();
    });
    view.driveNavigation = [this](const std::string& address) { navigate(address); };
    view.driveStop = [this] { stop(); };
}

WebMirror::~WebMirror() {
    view_.driveNavigation = nullptr;
    view_.driveStop = nullptr;
    stop();
}

bool WebMirror::ownKey(const QKeyEvent& key) const {
    return key.key() != Qt::Key_Escape;
}

/// Nothing that was under way is told any more.
void WebMirror::stop() {
    ++turn_;
    picturesEnd_.stop();
    for (std::jthread& hand : hands_) hand.request_stop();
    hands_.clear();
}

void WebMirror::navigate(const std::string& address) {
    stop();
    if (address != address_) page_.showSentence(QStringLiteral("페이지를 불러오는 중입니다."));
    address_ = address;
    hands_.emplace_back([this, address, turn = turn_](const std::stop_token& stopped) {
        try {
            const auto content = std::make_shared<const PageContent>(fetchPage(address, stopped));
            emit handed(turn, [this, content] { pageCame(*content); });
        } catch (const std::exception& fault) {
            emit handed(turn, [this, reason = std::string(fault.what())] { pageFailed(reason); });
        }
    });
}

/// A page that only sends on to another is followed as a redirect is: a few times, and from https to https.
PageContent WebMirror::fetchPage(const std::string& address, const std::stop_token& stopped) const {
    if (!fetch_) throw basics::Fault("이 컴퓨터에서는 웹페이지를 읽을 수 없습니다.");
    PageContent page = PageDocument::contentOf(fetch_(address, stopped));
    for (int sent = 0; sent < mostForwards && !page.forward.isEmpty(); ++sent) {
        const QString scheme = page.forward.scheme();
        const bool weaker = page.base.scheme() == QLatin1String("https") && scheme == QLatin1String("http");
        if (weaker || !scheme.startsWith(QLatin1String("http"))) break;
        page = PageDocument::contentOf(fetch_(page.forward.toEncoded().toStdString(), stopped));
    }
    return page;
}

void WebMirror::pageCame(const PageContent& content) {
    const std::vector<QUrl> wanted = page_.showContent(content);
    browser_.moveCursor(QTextCursor::Start);
    browser_.verticalScrollBar()->setValue(0);
    if (!wanted.empty()) return fetchPictures(wanted);
    report([this] { view_.onFinished(); });
}

/// The page about the failure is a page that has been finished.
void WebMirror::pageFailed(const std::string& reason) {
    page_.showSentence(qtText(reason));
    report([this] {
        view_.onFailed();
        view_.onFinished();
    });
}

/// A picture that can't be had is no failure of the page.
void WebMirror::fetchPictures(const std::vector<QUrl>& wanted) {
    const std::size_t hands = std::min(mostHands, wanted.size());
    handsBusy_ = hands;
    for (std::size_t first = 0; first < hands; ++first) {
        hands_.emplace_back([this, wanted, first, hands, turn = turn_](const std::stop_token& stopped) {
            for (std::size_t i = first; i < wanted.size() && !stopped.stop_requested(); i += hands) {
                const QUrl& address = wanted[i];
                const QImage picture = fetchPicture(address.toEncoded().toStdString(), stopped);
                emit handed(turn, [this, address, picture] { page_.addPicture(address, picture); });
            }
            emit handed(turn, [this] { handDone(); });
        });
    }
    picturesEnd_.start(timeForPictures);
}

QImage WebMirror::fetchPicture(const std::string& address, const std::stop_token& stopped) const {
    try {
        return PageDocument::pictureIn(fetch_(address, stopped).body);
    } catch (const std::exception&) {
        return {};
    }
}

void WebMirror::handDone() {
    if (--handsBusy_ == 0) report([this] { view_.onFinished(); });
}

void WebMirror::report(const std::function<void()>& tell) {
    const screen::Window::Action telling(view_.window());
    tell();
}

void WebMirror::follow(const QUrl& link) {
    if (link.isRelative() && link.path().isEmpty() && link.hasFragment())
        return browser_.scrollToAnchor(link.fragment());
    userDoes([&] { view_.userFollow(page_.baseUrl().resolved(link).toEncoded().toStdString()); });
}

}  // namespace zelvo::qt
