// A whole session's start and the detail of an order against their statements run bare, and a keystroke in
// the packets against the sum it makes.
#include <sqlite3.h>

#include <stdexcept>
#include <vector>

#include "BareDesktop.h"
#include "DemoSession.h"
#include "Measure.h"
#include "Recorder.h"
#include "basics/Numbers.h"
#include "host/clsZELVOInterface.h"
#include "platform/sqlite/SqliteConnection.h"
#include "screen/Fields.h"
#include "screen/Grid.h"

namespace {

using namespace zelvo;
using bench::BareDesktop;
using bench::chartCall;
using bench::Comparison;
using bench::readAll;
using bench::Recorder;

constexpr int startRuns = 60, keyRuns = 200, herbs = 100;

/// One session on a window that closes at once, or after what is to be done in it.
void runSession(const std::string& path, const data::ConnectionOpener& open,
                std::function<void(screen::Window&, session::Session&)> work = {}) {
    BareDesktop desktop;
    session::Session session;
    desktop.inWindow = [&](screen::Window& window) {
        if (work) work(window, session);
    };
    host::clsZELVOInterface(desktop, session, open).ZELVOInterface(chartCall(path));
    if (desktop.boxes > 0) throw std::runtime_error("a box stood in the way");
}

void openAndRead(const std::string& path, const std::vector<std::string>& statements) {
    sqlite3* database = nullptr;
    sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr);
    readAll(database, statements);
    sqlite3_close(database);
}

bool compareStarts(const std::string& path) {
    std::vector<std::string> statements;
    runSession(path, [&](const data::ServerLogin& login) {
        return std::make_unique<Recorder>(sqlite::openFile(login), statements);
    });
    Comparison start("window_start", 1.5);
    for (int run = 0; run < startRuns; ++run) {
        start.floor([&] { openAndRead(path, statements); });
        start.measured([&] { runSession(path, sqlite::openFile); });
    }
    return start.report();
}

/// An order of the list comes into view: its eleven or twelve statements bare, and the whole panel.
bool compareDetails(const std::string& path) {
    std::vector<std::string> statements;
    sqlite3* database = nullptr;
    sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr);
    Comparison detail("detail_of_an_order", 1.5);
    const auto open = [&](const data::ServerLogin& login) {
        return std::make_unique<Recorder>(sqlite::openFile(login), statements);
    };
    runSession(path, open, [&](screen::Window& window, session::Session&) {
        dynamic_cast<screen::TabControl*>(window.field("c1tMain"))->select(2);
        dynamic_cast<screen::Button*>(window.field("sscCBJsearchALL"))->onPress();
        auto* list = dynamic_cast<screen::Grid*>(window.field("tdbCBJ"));
        for (int run = 0; run < keyRuns; ++run) {
            statements.clear();
            list->setCurrentRow(1 + run % 2);
            if (statements.size() < 11 || statements.size() > 12)
                throw std::runtime_error(std::to_string(statements.size()) + " statements for one order");
            const std::vector<std::string> ofOne = statements;
            detail.floor([&] { readAll(database, ofOne); });
            list->setCurrentRow(0);
            detail.measured([&] { list->setCurrentRow(1 + run % 2); });
        }
    });
    sqlite3_close(database);
    return detail.report();
}

void fillHerbs(tables::XArrayDB& rows, std::vector<std::string>& amounts) {
    rows.insertRows(0, herbs);
    for (int row = 0; row < herbs; ++row) {
        amounts.push_back(basics::decimalText(std::int64_t{row * 37 + 11}));
        for (int column = 1; column <= 5; ++column) rows.set(row, column, "1");
        rows.set(row, 6, amounts.back());
        rows.set(row, 8, "0");
    }
}

// A keystroke and its floor are each too short for the clock: a hundred of them are one measurement.
bool compareKeystrokes(const std::string& path) {
    bool within = false;
    runSession(path, sqlite::openFile, [&](screen::Window& window, session::Session& session) {
        std::vector<std::string> amounts;
        fillHerbs(session.g_xaDrug, amounts);
        auto* packets = dynamic_cast<screen::EditField*>(window.field("txtChubsu"));
        window.userFocus(*packets);
        Comparison keystroke("keystroke_100_herbs", 3);
        volatile std::int32_t keep = 0;
        for (int run = 0; run < keyRuns; ++run) {
            keystroke.floor([&] {
                for (int i = 0; i < 100; ++i) {
                    std::int32_t sum = 0;
                    for (const std::string& amount : amounts)
                        sum = basics::addChecked(sum, basics::toInt32(amount));
                    keep = keep + sum;
                }
            });
            keystroke.measured([&] {
                for (int i = 0; i < 100; ++i) {
                    packets->select(0, 3);
                    window.userKey(screen::Key::typed(i % 2 == 0 ? U'2' : U'3'));
                }
            });
        }
        if (packets->text() != "3") throw std::runtime_error("the keys went astray");
        within = keystroke.report();
    });
    return within;
}

}  // namespace

int main() {
    bool within = false;
    try {
        const bench::DemoPharmacy pharmacy;
        within = compareStarts(pharmacy.path());
        within = compareKeystrokes(pharmacy.path()) && within;
        within = compareDetails(pharmacy.path()) && within;
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "%s\n", fault.what());
    }
    return within ? 0 : 1;
}
