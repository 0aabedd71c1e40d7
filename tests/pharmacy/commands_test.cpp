#include "pharmacy/Commands.h"

#include <httplib.h>

#include <fstream>

#include "Pharmacy.h"
#include "pharmacy/Pages.h"

namespace zelvo::pharmacy {
namespace {

TEST(Commands, ChangeWhatThePharmacysPeopleChange) {
    const TestPharmacy pharmacy;
    const std::pair<std::vector<std::string>, int> cases[] = {
        {{"state", "8", "2"}, 0},
        {{"paid", "7", "1"}, 0},
        {{"deposit", "doctor2", "70000"}, 0},
        {{"deposit", "doctor2", "-5000"}, 0},
        {{"state", "99", "1"}, 1},
        {{"deposit", "nobody", "1000"}, 1},
        {{"state", "8", "4"}, 2},
        {{"paid", "seven", "1"}, 2},
        {{"deposit", "doctor2", "1000won"}, 2},
        {{"burn"}, 2},
        {{"orders", "--port"}, 2},
        {{"orders"}, 0},
    };
    for (auto [words, code] : cases) {
        words.insert(words.begin(), {"--db", pharmacy.path()});
        EXPECT_EQ(runCommand(words), code) << words.back();
    }
    EXPECT_EQ(pharmacy.read("SELECT CBJ_State FROM t_ChubangJun WHERE CBJ_PK = 8"), "2");
    EXPECT_EQ(pharmacy.read("SELECT CBJ_IsPaid FROM t_ChubangJun WHERE CBJ_PK = 7"), "1");
    EXPECT_EQ(pharmacy.read("SELECT STK_Money || ' ' || CBJ_PK FROM t_Stock WHERE DTR_PK = 2"),
              "70000 0, -5000 0");
}

TEST(Commands, MakeTheDatabaseButNeverOverAnother) {
    const TestPharmacy pharmacy;
    const auto run = [&](std::vector<std::string> words, const std::string& file) {
        words.insert(words.end(), {"--db", pharmacy.file(file)});
        return runCommand(words);
    };
    const auto modeOf = [&](const char* name) {
        return static_cast<int>(std::filesystem::status(pharmacy.file(name)).permissions());
    };
    pharmacy.run("DELETE FROM t_Stock");
    std::filesystem::permissions(pharmacy.path(), std::filesystem::perms(0644));
    for (const char* file : {"pharmacy.db", "private/new.db"}) {
        EXPECT_EQ(run({"init"}, file), 0);
        EXPECT_EQ(modeOf(file), 0600) << file;
    }
    EXPECT_EQ(modeOf("private"), 0700);
    EXPECT_EQ(pharmacy.read("SELECT count(*) FROM t_Stock"), "0") << "a pharmacy that is there stays";
    EXPECT_EQ(run({"init", "--fresh"}, "pharmacy.db"), 0);
    EXPECT_NE(pharmacy.read("SELECT count(*) FROM t_Stock"), "0");

    std::ofstream(pharmacy.file("letter.txt")) << "Dear pharmacy";
    EXPECT_EQ(run({"init"}, "letter.txt"), 1);
    EXPECT_EQ(run({"orders"}, "letter.txt"), 1);
    std::string text;
    std::getline(std::ifstream(pharmacy.file("letter.txt")), text);
    EXPECT_EQ(text, "Dear pharmacy");
    EXPECT_EQ(run({"orders"}, "none.db"), 1);
    EXPECT_FALSE(std::filesystem::exists(pharmacy.file("none.db")));
}

TEST(Pages, ServeAClinicOverHttp) {
    const TestPharmacy pharmacy;
    Pages pages(pharmacy.path());
    const int port = pages.bind(0);
    pages.start();
    httplib::Client client("127.0.0.1", port);

    const auto find = [&](const char* words) {
        return client.Get("/zip", httplib::Params{{"find", words}}, httplib::Headers{})->body;
    };
    EXPECT_EQ(find("테헤란로 강남구"), "06236\t서울특별시 강남구 테헤란로 152\n");
    EXPECT_NE(client.Get("/notice/2")->body.find("배송 방식과 비용 안내"), std::string::npos);
    EXPECT_TRUE(client.Get("/notice/steps.png")->body.starts_with("\x89PNG\r\n"));
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
