#include "assembly/Component.h"

#include "components/AccountPrompt.h"
#include "components/EatGuideEditor.h"
#include "components/PostalLookup.h"
#include "platform/files/FileSystemObject.h"
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

std::vector<components::PostalPlace> askPostalPage(const std::string& page, const std::string& text) {
    std::vector<components::PostalPlace> places;
    for (http::PostalHit& hit : http::findPostalCodes(http::HttpClient(), page, text))
        places.push_back({std::move(hit.zip), std::move(hit.address)});
    return places;
}

}  // namespace

void registerComponents(screen::Desktop& desktop) {
    screen::Components& known = desktop.components();
    known.setCodePages(text::machineCodePages());
    known.setWebFetch([](const std::string& address, const std::stop_token& stop) {
        return http::fetchWebContent(http::HttpClient(http::pageLimits()), address, stop);
    });
    known.add("OrderCostText.clsOrderCostText", [] { return std::make_unique<http::clsOrderCostText>(); });
    known.add("Scripting.FileSystemObject", [] { return std::make_unique<files::FileSystemObject>(); });
    known.add("AccountPrompt.clsAccountPrompt",
              [&desktop] { return std::make_unique<components::AccountPrompt>(desktop); });
    known.add("PostalLookup.clsPostalLookup",
              [&desktop] { return std::make_unique<components::PostalLookup>(desktop, askPostalPage); });
    known.add("EatGuideEditor", [&desktop] { return std::make_unique<components::EatGuideEditor>(desktop); });
}

}  // namespace zelvo::assembly
