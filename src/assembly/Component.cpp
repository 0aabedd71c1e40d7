#include "assembly/Component.h"

#include "components/AccountPrompt.h"
#include "components/EatGuideEditor.h"
#include "components/PostalLookup.h"
#include "platform/files/FileSystemObject.h"
#include "platform/files/SupportFile.h"
#include "platform/files/UserFolders.h"
#include "platform/http/PostalPage.h"
#include "platform/http/WebPage.h"
#include "platform/http/clsOrderCostText.h"
#include "platform/odbc/OdbcConnection.h"
#include "platform/sqlite/SqliteConnection.h"
#include "platform/text/MachineCodePages.h"

namespace zelvo::assembly {

Component& Component::instance() {
    static Component component;
    return component;
}

std::unique_ptr<data::Connection> openPharmacy(const data::ServerLogin& login) {
    if (sqlite::isFileAddress(login.address)) return sqlite::openFile(login);
    return odbc::openServer(login);
}

namespace {

using Support = std::shared_ptr<basics::SupportRecord>;

std::vector<components::PostalPlace> askPostalPage(screen::Desktop& desktop, const std::string& page,
                                                   const std::string& text, const Support& support) {
    std::vector<http::PostalHit> hits;
    desktop.waitFor("우편번호를 찾는 중입니다.", [&](const std::stop_token& stop) {
        hits = http::findPostalCodes(http::HttpClient({}, support), page, text, stop);
    });
    std::vector<components::PostalPlace> places;
    places.reserve(hits.size());
    for (http::PostalHit& hit : hits) places.push_back({std::move(hit.zip), std::move(hit.address)});
    return places;
}

/// One for the process, beside the logs; nothing where the user has no folder.
Support supportRecord() {
    try {
        static const Support record = std::make_shared<files::SupportFile>(files::dataFolder() / "zelvo");
        return record;
    } catch (const std::exception&) {
        return nullptr;
    }
}

}  // namespace

void registerComponents(screen::Desktop& desktop) {
    const Support support = supportRecord();
    if (support) desktop.setSupport(support);
    screen::Components& known = desktop.components();
    known.setCodePages(text::machineCodePages());
    known.setWebFetch([support](const std::string& address, const std::stop_token& stop) {
        return http::fetchWebContent(http::HttpClient(http::pageLimits(), support), address, stop);
    });
    known.add(screen::OrderCostText::className, [&desktop, support] {
        return std::make_unique<http::clsOrderCostText>(
            http::HttpClient({}, support), [&desktop](const screen::WaitingJob& job) {
                desktop.waitFor("처방전 비용을 계산 중입니다.", job);
            });
    });
    known.add(screen::FileSystemObject::className,
              [] { return std::make_unique<files::FileSystemObject>(); });
    known.add(screen::AccountPrompt::className,
              [&desktop] { return std::make_unique<components::AccountPrompt>(desktop); });
    known.add(screen::PostalLookup::className, [&desktop, support] {
        return std::make_unique<components::PostalLookup>(
            desktop, [&desktop, support](const std::string& page, const std::string& text) {
                return askPostalPage(desktop, page, text, support);
            });
    });
    known.add(screen::EatGuideEditor::className,
              [&desktop] { return std::make_unique<components::EatGuideEditor>(desktop); });
}

}  // namespace zelvo::assembly
