#pragma once

#include <array>
#include <chrono>
#include <optional>
#include <string>

#include "data/RecordSet.h"
#include "screen/Fields.h"
#include "screen/Grid.h"
#include "screen/TextField.h"
#include "session/Session.h"

namespace zelvo::services {

/// The notice tab: the pharmacy's card, the list of its notices, and the content of the one in the current
/// row, a formatted text or a web page.
class Notices {
public:
    Notices(screen::Window& form, screen::Place noticeTab, session::Session& session);

    std::array<screen::Label, 5> lblGongJiYakGuk;  ///< name, pharmacist, address, telephone, mobile
    screen::Label lblYakGukSvrIP;                  ///< the server's address, for display only
    screen::Grid tdbGongJi;
    screen::Panel c1eGongJi0;
    screen::RichTextField rtxGongJi;
    screen::WebView wbrGongJi;
    screen::Button sscExplorer;
    data::RecordSet m_rsGongJi;
    bool m_GongJiLoaded = false;  ///< the web page has finished loading
    bool m_GongJiFailed = false;  ///< the web page reported an error

    /// Binds the list and reads it; it stays empty when it can't be read.
    void Load_GongJi();
    /// Shows the notice of the current row. For a web page it waits at most 20 seconds, with the user's input
    /// coming in; a page that doesn't come is told in a box.
    void Show_GongJi();

private:
    /// A page that is being waited for.
    struct Page {
        std::string address;
        std::chrono::steady_clock::time_point asked;
    };
    class Wait;

    void showText();
    void showPage();
    void ask(const std::string& page);
    std::optional<Page> waitForPage();
    bool stillWaits() const;
    bool overdue() const;
    void tellOutcome(const Page& page);
    void Page_Finished();
    void Page_Failed();
    void sscExplorer_Click();
    std::string address() const;

    screen::Window& form_;
    session::Session& session_;
    std::optional<Page> awaited_;
    bool waiting_ = false;
};

}  // namespace zelvo::services
