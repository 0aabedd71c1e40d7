#include "pharmacy/Commands.h"

#include <httplib.h>

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <sstream>
#include <thread>

#include "Pharmacy.h"
#include "pharmacy/Pages.h"

namespace zelvo::pharmacy {
namespace {

TEST(Commands, ChangeWhatThePharmacysPeopleChange) {
    const TestPharmacy pharmacy;
    const struct {
        std::vector<std::string> words;
        int code;
        std::string statement, expected;
    } cases[] = {
        {{"state", "8", "2"}, 0, "SELECT CBJ_State FROM t_ChubangJun WHERE CBJ_PK = 8", "2"},
        {{"paid", "7", "1"}, 0, "SELECT CBJ_IsPaid FROM t_ChubangJun WHERE CBJ_PK = 7", "1"},
        {{"paid", "7", "0"}, 0, "SELECT CBJ_IsPaid FROM t_ChubangJun WHERE CBJ_PK = 7", "0"},
        {{"deposit", "doctor2", "70000"},
         0,
         "SELECT STK_Money || ' ' || CBJ_PK FROM t_Stock WHERE DTR_PK = 2",
         "70000 0"},
        {{"deposit", "doctor2", "-5000"}, 0, "SELECT sum(STK_Money) FROM t_Stock WHERE DTR_PK = 2", "65000"},
        {{"state", "99", "1"}, 1, "", ""},
        {{"paid", "99", "1"}, 1, "", ""},
        {{"deposit", "nobody", "1000"}, 1, "", ""},
        {{"state", "8", "4"}, 2, "SELECT CBJ_State FROM t_ChubangJun WHERE CBJ_PK = 8", "2"},
        {{"state", "8"}, 2, "", ""},
        {{"paid", "seven", "1"}, 2, "", ""},
        {{"deposit", "doctor1", "0"}, 2, "", ""},
        {{"deposit", "doctor1", "1000won"}, 2, "", ""},
        {{"burn"}, 2, "", ""},
        {{}, 2, "", ""},
        {{"orders", "--port"}, 2, "", ""},
        {{"orders", "--quick"}, 2, "", ""},
        {{"--help"}, 0, "", ""},
        {{"orders"}, 0, "", ""},
    };
    for (const auto& c : cases) {
        auto words = c.words;
        SCOPED_TRACE(words.empty() ? "nothing" : words[0] + " " + words.back());
        words.insert(words.begin(), {"--db", pharmacy.path()});
        EXPECT_EQ(runCommand(words), c.code);
        EXPECT_EQ(c.statement.empty() ? "" : pharmacy.read(c.statement), c.expected);
    }
}

TEST(Commands, MakeTheDatabaseButNeverOverAnother) {
    const TestPharmacy pharmacy;
    const auto deposit = "SELECT count(*) FROM t_Stock WHERE DTR_PK = 2";
    runCommand({"--db", pharmacy.path(), "deposit", "doctor2", "1"});
    EXPECT_EQ(runCommand({"init", "--db", pharmacy.path()}), 0);
    EXPECT_EQ(pharmacy.read(deposit), "1") << "a pharmacy that is there stays";
    EXPECT_EQ(runCommand({"init", "--fresh", "--db", pharmacy.path()}), 0);
    EXPECT_EQ(pharmacy.read(deposit), "0");

    std::ofstream(pharmacy.file("letter.txt")) << "Dear pharmacy";
    EXPECT_EQ(runCommand({"init", "--db", pharmacy.file("letter.txt")}), 1);
    EXPECT_EQ(runCommand({"orders", "--db", pharmacy.file("letter.txt")}), 1);
    std::stringstream text;
    text << std::ifstream(pharmacy.file("letter.txt")).rdbuf();
    EXPECT_EQ(text.str(), "Dear pharmacy");
    EXPECT_EQ(runCommand({"orders", "--db", pharmacy.file("none.db")}), 1);
    EXPECT_FALSE(std::filesystem::exists(pharmacy.file("none.db")));
    EXPECT_EQ(runCommand({"init", "--db", pharmacy.file("new/folder/p.db")}), 0);
    EXPECT_TRUE(isPharmacy(pharmacy.file("new/folder/p.db")));
}

TEST(Pages, ServeAClinicOverHttp) {
    const TestPharmacy pharmacy;
    Pages pages(pharmacy.path());
    const int port = pages.bind(0);
    ASSERT_GT(port, 0);
    EXPECT_EQ(Pages(pharmacy.path()).bind(port), 0) << "a port is one server's";
    pages.start();
    httplib::Client client("127.0.0.1", port);

    const auto find = [&](const char* words) {
        return client.Get("/zip", httplib::Params{{"find", words}}, httplib::Headers{})->body;
    };
    EXPECT_EQ(find("테헤란로 강남구"), "06236\t서울특별시 강남구 테헤란로 152\n");
    EXPECT_EQ(find("06236"), "06236\t서울특별시 강남구 테헤란로 152\n");
    EXPECT_EQ(find("없는길"), "");
    EXPECT_EQ(find(" "), "");

    EXPECT_NE(client.Get("/notice/2")->body.find("배송 방식과 비용 안내"), std::string::npos);
    EXPECT_EQ(client.Get("/notice/1")->status, 404);

    // A long prescription is more than the 8 KiB that the server would read of a form by itself.
    const auto longForm =
        "Kind=1&DTR_PK=99&DrugText=&BesongMethod=4&BesongZip=&JobList_PK=1&Chubsu=1&DrugPrice=1&TJML_PK=1&TJAL_Slot=&"
        "PouchAmount=1&PouchTotal=1&PayMethod=1&BesongJuso=" +
        std::string(50000, 'x');
    const auto answer = client.Post("/cost", longForm, "application/x-www-form-urlencoded; charset=UTF-8");
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 200);
    EXPECT_NE(answer->body.find("[START]0/*/등록되지 않은 한의사입니다.[END]"), std::string::npos)
        << answer->body;
    EXPECT_NE(
        client.Post("/cost-update", "Kind=1", "application/x-www-form-urlencoded")->body.find("[START]0/*/"),
        std::string::npos);

    std::filesystem::remove(pharmacy.path());
    EXPECT_EQ(client.Post("/cost", longForm, "application/x-www-form-urlencoded")->status, 500);
    pages.stop();
    EXPECT_FALSE(client.Get("/notice/2"));
}

/// The exit code of a process that should end within five seconds; -1 when it does not.
int exitCode(pid_t process) {
    for (int tries = 0; tries < 500; ++tries) {
        int status = 0;
        if (waitpid(process, &status, WNOHANG) == process)
            return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    return -1;
}

pid_t startServer(std::vector<std::string> words) {
    const auto process = fork();
    if (process == 0) _exit(runCommand(words));
    return process;
}

TEST(Serve, TellsItsAddressesAndEndsOnTheSignal) {
    const TestPharmacy pharmacy;
    const auto ready = pharmacy.file("ready");
    const auto server = startServer({"--db", pharmacy.path(), "serve", "--ready-file", ready});
    int port = 0;
    for (int tries = 0; tries < 500 && port == 0; ++tries) {
        std::ifstream(ready) >> port;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    const auto base = "http://127.0.0.1:" + std::to_string(port);
    EXPECT_EQ(pharmacy.read(
                  "SELECT PIF_CostURL || ' ' || PIF_CostUpdateURL || ' ' || PIF_FindZipURL FROM t_PxInfo"),
              base + "/cost " + base + "/cost-update " + base + "/zip");
    EXPECT_EQ(pharmacy.read("SELECT PGJ_URLCont FROM t_PxGongJi WHERE PGJ_PK = 4"), base + "/notice/4");
    EXPECT_TRUE(httplib::Client("127.0.0.1", port).Get("/notice/4"));
    kill(server, SIGTERM);
    EXPECT_EQ(exitCode(server), 0);
}

TEST(Serve, EndsWhenItsParentIsGone) {
    const TestPharmacy pharmacy;
    const auto parent = fork();
    if (parent == 0) _exit(0);
    waitpid(parent, nullptr, 0);
    EXPECT_EQ(exitCode(startServer({"--db", pharmacy.path(), "serve", "--parent", std::to_string(parent)})),
              0);
}

}  // namespace
}  // namespace zelvo::pharmacy
