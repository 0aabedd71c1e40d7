#pragma once

#include <QtCore/QTimer>
#include <functional>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

#include "platform/qt/Mirror.h"
#include "screen/WebFetch.h"

class QImage;
class QTextBrowser;
class QUrl;

namespace zelvo::screen {
class WebView;
}

namespace zelvo::qt {

class PageDocument;
struct PageContent;

/// A page of the web. It is fetched off the window's thread, its pictures after it, and shown as a document;
/// what the user clicks in it opens in the system's browser.
class WebMirror : public Mirror {
    Q_OBJECT

public:
    WebMirror(screen::WebView& view, QTextBrowser& browser);
    ~WebMirror() override;
    bool ownKey(const QKeyEvent& key) const override;

signals:
    /// From a hand to the window's thread: to be done there, unless that navigation has been stopped by then.
    void handed(unsigned turn, const std::function<void()>& act);

private:
    void draw() override {}
    void navigate(const std::string& address);
    void stop();
    PageContent fetchPage(const std::string& address, const std::stop_token& stopped) const;
    void pageCame(const PageContent& content);
    void pageFailed(const std::string& reason);
    void fetchPictures(const std::vector<QUrl>& wanted);
    QImage fetchPicture(const std::string& address, const std::stop_token& stopped) const;
    void handDone();
    void follow(const QUrl& link);
    void report(const std::function<void()>& tell);

    screen::WebView& view_;
    QTextBrowser& browser_;
    PageDocument& page_;
    screen::WebFetch fetch_;
    std::vector<std::jthread> hands_;
    std::string address_;
    unsigned turn_ = 0;  ///< of the navigations
    std::size_t handsBusy_ = 0;
    QTimer picturesEnd_;
};

}  // namespace zelvo::qt
