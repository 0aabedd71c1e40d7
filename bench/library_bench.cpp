// The library of 5,000 prescriptions: a search until its list is filled, and a merge, each against its
// statements run bare.
#include <stdexcept>

#include "BareDesktop.h"
#include "DemoSession.h"
#include "Measure.h"
#include "Recorder.h"
#include "composition/modHanYakGuk.h"
#include "host/clsZELVOInterface.h"
#include "platform/sqlite/Dialect.h"
#include "platform/sqlite/Functions.h"
#include "platform/sqlite/SqliteConnection.h"
#include "screen/Fields.h"
#include "screen/Grid.h"

namespace {

using namespace zelvo;
using bench::Comparison;

constexpr int prescriptions = 5'000, herbs = 60, searchRuns = 40, mergeRuns = 60;

/// The statements of a session, once through the system and once bare.
class Library {
public:
    explicit Library(const std::string& path) : path_(path) {
        sqlite3_open_v2(path.c_str(), &bare_, SQLITE_OPEN_READWRITE, nullptr);
        sqlite::registerServerFunctions(bare_);
        fill();
    }
    ~Library() { sqlite3_close(bare_); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    bool compare() {
        bench::BareDesktop desktop;
        desktop.inWindow = [&](screen::Window& window) {
            if (window.name() == "frmChubangRead") return inLibrary(window);
            dynamic_cast<screen::TabControl&>(*window.field("c1tMain")).select(1);
            press(window, "sscCBJRead");
        };
        const auto open = [&](const data::ServerLogin& login) {
            return std::make_unique<bench::Recorder>(sqlite::openFile(login), statements_);
        };
        host::clsZELVOInterface(desktop, session_, open).ZELVOInterface(bench::chartCall(path_));
        if (desktop.boxes > 0 || merges_ < mergeRuns) throw std::runtime_error("something stood in the way");
        const bool fast = search_.report();
        return merge_.report() && fast;
    }

private:
    /// 5,000 prescriptions of the first doctor; the one whose name comes first has the herbs of the merge.
    void fill() {
        const std::string statements =
            "BEGIN; DELETE FROM t_UserChubang WHERE DTR_PK = 1; WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1"
            " FROM n WHERE i < " +
            std::to_string(prescriptions) +
            ") INSERT INTO t_UserChubang (UCB_PK, DTR_PK, UCB_Name, UCB_Date, UCB_Note) SELECT 1000 + i, 1,"
            " printf('처방 %05d', i), '2025-01-02 09:00:00', '겨울철 어르신 보약 ' || i FROM n;"
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
            std::to_string(prescriptions) +
            ") INSERT INTO t_UserDetail (UCB_PK, DGL_CallSign, DGL_PK, UDET_Weight, UDET_Order, UDET_Note)"
            " SELECT 1000 + i, h.DGL_CallSign, h.DGL_PK, 2 + h.DGL_PK % 2 * 4, h.DGL_PK, '' FROM n, t_DrugList h"
            " WHERE h.DGL_PK <= CASE i WHEN 1 THEN " +
            std::to_string(herbs) +
            " ELSE 8 END;"
            "UPDATE t_DrugList SET DGL_IsValid = 1; DELETE FROM t_DrugDanga; INSERT INTO t_DrugDanga (DGL_PK, DGD_Danga,"
            " DGD_StartDate, DGD_EndDate) SELECT DGL_PK, 18, '2000-01-01', '2099-12-31' FROM t_DrugList; COMMIT";
        if (sqlite3_exec(bare_, statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(bare_));
    }

    static void press(const screen::Window& window, const char* button) {
        dynamic_cast<screen::Button&>(*window.field(button)).onPress();
    }

    /// What was asked since the last time, as bare SQLite reads it.
    std::vector<std::string> asked() {
        std::vector<std::string> all;
        for (const std::string& statement : statements_) all.push_back(sqlite::toSqlite(statement));
        statements_.clear();
        return all;
    }

    void inLibrary(screen::Window& window) {
        if (merges_ == 0) searchAll(window);
        if (merges_ == mergeRuns) return;
        ++merges_;
        mergeOnce(window);
    }

    void searchAll(screen::Window& window) {
        const auto& list = dynamic_cast<screen::Grid&>(*window.field("tdbMyChubang"));
        for (int run = 0; run < searchRuns; ++run) {
            statements_.clear();
            search_.measured([&] { press(window, "sscMyCBsearch"); });
            if (list.rowCount() != prescriptions) throw std::runtime_error("rows are missing");
            const std::vector<std::string> all = asked();
            search_.floor([&] { bench::readAll(bare_, {all.front()}); });
        }
    }

    /// Half of the herbs come with more than is there, half with less.
    void mergeOnce(screen::Window& window) {
        tables::XArrayDB& rows = session_.g_xaDrug;
        if (merges_ > 1) {
            for (int row = 0; row < herbs; ++row) rows.set(row, composition::herb::grams, "4");
        }
        dynamic_cast<screen::CheckButton&>(*window.field("sschkChubangRead(0)")).setValue(true);
        statements_.clear();
        if (merges_ == 1) return press(window, "sscConfirm(0)");
        merge_.measured([&] { press(window, "sscConfirm(0)"); });
        if (rows.rowCount() != std::size_t{herbs}) throw std::runtime_error("a herb went astray");
        const std::vector<std::string> lookups = asked();
        if (lookups.size() != std::size_t{2} * herbs)
            throw std::runtime_error("no two statements for a herb");
        merge_.floor([&] { bench::readAll(bare_, lookups); });
    }

    std::string path_;
    sqlite3* bare_ = nullptr;
    session::Session session_;
    std::vector<std::string> statements_;
    Comparison search_{"library_search_5000", 2.5}, merge_{"merge_60_herbs_into_60", 1.5};
    int merges_ = 0;
};

}  // namespace

int main() {
    bool within = false;
    try {
        const bench::DemoPharmacy pharmacy;
        within = Library(pharmacy.path()).compare();
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "%s\n", fault.what());
    }
    return within ? 0 : 1;
}
