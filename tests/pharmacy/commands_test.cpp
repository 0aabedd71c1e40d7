#include "pharmacy/Commands.h"

#include <httplib.h>

#include "pharmacy/Pages.h"
#include "support/Files.h"
#include "support/TestDatabase.h"

namespace zelvo::pharmacy {
namespace {

TEST(Commands, ChangeWhatThePharmacysPeopleChangeAndNeverAnotherFile) {
    const testing::TestDatabase pharmacy;
    pharmacy.run("DELETE FROM t_Stock");
    const std::string folder = pharmacy.path() + "-private", fresh = folder + "/new.db";
    const std::string letter = pharmacy.path() + ".txt", none = pharmacy.path() + ".none";
    std::ofstream(letter) << "Dear pharmacy";
    const std::tuple<std::vector<std::string>, std::string, int> cases[] = {
        {{"init"}, pharmacy.path(), 0},  // a pharmacy that is there stays
        {{"init"}, fresh, 0},
        {{"state", "8", "2"}, pharmacy.path(), 0},
        {{"paid", "7", "1"}, pharmacy.path(), 0},
        {{"deposit", "doctor2", "70000"}, pharmacy.path(), 0},
        {{"deposit", "doctor2", "-5000"}, pharmacy.path(), 0},
        {{"state", "99", "1"}, pharmacy.path(), 1},
        {{"deposit", "nobody", "1000"}, pharmacy.path(), 1},
        {{"state", "8", "4"}, pharmacy.path(), 2},
        {{"paid", "seven", "1"}, pharmacy.path(), 2},
        {{"deposit", "doctor2", "1000won"}, pharmacy.path(), 2},
        {{"burn"}, pharmacy.path(), 2},
        {{"orders", "--port"}, pharmacy.path(), 2},
        {{"orders"}, pharmacy.path(), 0},
        {{"init"}, letter, 1},
        {{"orders"}, letter, 1},
        {{"orders"}, none, 1},
    };
    for (auto [words, file, code] : cases) {
        words.insert(words.begin(), {"--db", file});
        EXPECT_EQ(runCommand(words), code) << words.back();
    }
    EXPECT_EQ(pharmacy.value("SELECT CBJ_State FROM t_ChubangJun WHERE CBJ_PK = 8"), "2");
    EXPECT_EQ(pharmacy.value("SELECT CBJ_IsPaid FROM t_ChubangJun WHERE CBJ_PK = 7"), "1");
    EXPECT_EQ(pharmacy.value("SELECT group_concat(DTR_PK || ' ' || STK_Money || ' ' || CBJ_PK) FROM t_Stock"),
              "2 70000 0,2 -5000 0");
    EXPECT_EQ(testing::contentOf(letter), "Dear pharmacy");
    EXPECT_FALSE(std::filesystem::exists(none));
    EXPECT_EQ(runCommand({"init", "--fresh", "--db", pharmacy.path()}), 0);
    EXPECT_NE(pharmacy.value("SELECT count(*) FROM t_Stock"), "2");
    // Where the new one can't take the place, nothing of the old one is gone.
    std::ofstream(folder + "-wal") << "an order";
    EXPECT_EQ(runCommand({"init", "--fresh", "--db", folder}), 1);
    EXPECT_EQ(testing::contentOf(folder + "-wal"), "an order");
    for (const std::string& file : {letter, folder + "-wal"}) std::filesystem::remove(file);
    std::filesystem::remove_all(folder);
}

TEST(Pages, ServeAClinicOverHttp) {
    const testing::TestDatabase pharmacy;
    Pages pages(pharmacy.path());
    const int port = pages.bind(0);
    pages.start();
    httplib::Client client("127.0.0.1", port);

    EXPECT_EQ(client.Get("/notice/1")->status, 404);

    // A long prescription is more than the 8 KiB that the server would read of a form by itself.
    const auto longForm =
        "Kind=1&DTR_PK=99&DrugText=&BesongMethod=4&BesongZip=&JobList_PK=1&Chubsu=1&DrugPrice=1&TJML_PK=1&TJAL_Slot=&"
        "PouchAmount=1&PouchTotal=1&PayMethod=1&BesongJuso=" +
        std::string(50000, 'x');
    const auto post = [&](const char* path) {
        return client.Post(path, longForm, "application/x-www-form-urlencoded; charset=UTF-8");
    };
    EXPECT_NE(post("/cost")->body.find("[START]0/*/등록되지 않은 한의사입니다.[END]"), std::string::npos);
    EXPECT_NE(post("/cost-update")->body.find("[START]0/*/"), std::string::npos);
    std::filesystem::remove(pharmacy.path());
    EXPECT_EQ(post("/cost")->status, 500);
}

}  // namespace
}  // namespace zelvo::pharmacy
