#include "pharmacy/Server.h"

#include <fstream>
#include <iostream>

#include "basics/Paths.h"
#include "pharmacy/Pages.h"
#include "pharmacy/PharmacyBook.h"
#include "pharmacy/System.h"

namespace zelvo::pharmacy {

int serve(const ServeOptions& options) {
    PharmacyBook book(options.databasePath);
    const EndRequests requests;
    Pages pages(options.databasePath);
    const int port = pages.bind(options.port);
    if (port == 0) {
        std::cerr << "zelvo-pharmacy: port " << options.port << " cannot be had\n";
        return 1;
    }
    const auto base = "http://127.0.0.1:" + std::to_string(port);
    book.publishAddresses(base);
    pages.start();
    std::cout << "listening " << base << std::endl;
    if (!options.readyFile.empty() &&
        !(std::ofstream(basics::pathOf(options.readyFile)) << port << std::endl)) {
        std::cerr << "zelvo-pharmacy: " << options.readyFile << " cannot be written\n";
        return 1;
    }
    requests.wait(options.parent, [&pages] { return pages.isServing(); });
    return 0;
}

}  // namespace zelvo::pharmacy
