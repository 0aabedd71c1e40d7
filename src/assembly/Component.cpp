#include "assembly/Component.h"

#include "basics/Fault.h"
#include "platform/files/FileSystemObject.h"
#include "platform/http/clsOrderCostText.h"
#include "platform/sqlite/SqliteConnection.h"
#include "platform/text/MachineCodePages.h"

namespace zelvo::assembly {

Component& Component::instance() {
    static Component component;
    return component;
}

std::unique_ptr<data::Connection> openPharmacy(const data::ServerLogin& login) {
    if (sqlite::isFileAddress(login.address)) return sqlite::openFile(login);
    throw basics::Fault("no driver for the server address " + login.address);
}

void registerComponents(screen::Components& components) {
    components.add("OrderCostText.clsOrderCostText",
                   [] { return std::make_unique<http::clsOrderCostText>(); });
    components.add("Scripting.FileSystemObject", [] { return std::make_unique<files::FileSystemObject>(); });
    components.setCodePages(text::machineCodePages());
}

}  // namespace zelvo::assembly
