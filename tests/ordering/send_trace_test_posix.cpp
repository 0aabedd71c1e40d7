// What becomes of a send when its answer, its program or its machine fails, and what the next one is told.
#include <dlfcn.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cstdlib>

#include "SendTest.h"
#include "data/clsZELVORecordSet.h"
#include "platform/files/WholeFile.h"
#include "support/Killing.h"

namespace zelvo::ordering {
namespace {

TEST(SendTrace, ACommitWithoutAnAnswerIsAskedAfter) {
    const Box failed("처방전 전송 실패", "처방전 전송 실패 - 처방전이 저장되지 않았습니다.");
    const Box unknown("처방전 전송 실패", "처방전 전송 결과를 확인할 수 없습니다. 다시 전송하지 마십시오.");
    const Box unmarked("처방전 전송 실패", "처방전 전송 결과를 확인할 수 없습니다. [처방전 관리]에서");
    const struct {
        const char* name;
        bool stored, answers, diskFull;
        Box box;
        std::size_t events, files;  // files: the log, and the mark beside it
    } cases[] = {{"it stands", true, true, false, {"처방전 전송 성공", success}, 1, 1},
                 {"it does not", false, true, false, failed, 0, 0},
                 {"nobody says", true, false, false, unknown, 0, 2},
                 {"nor can it be marked", true, false, true, unmarked, 0, 0}};
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        OrderWindow window;
        window.compose();
        if (test.stored) {
            window.line->nextCommit = data::CommitOutcome::Unknown;
        } else {
            window.line->before = [&](const std::string& statement) {
                window.line->staysBroken = statement == "COMMIT";
                window.line->failAt(statement == "COMMIT" ? 1 : 0);
            };
        }
        window.line->another = [&] {
            return test.answers ? window.pharmacy->connect() : throw basics::Fault("no server");
        };
        if (test.diskFull) window.spoilLogFolder();
        window.run([&] { window.priceAndSend(); });
        const screen::MessageBox box = window.desktop.takeBox();
        EXPECT_EQ(box.caption, test.box.first);
        EXPECT_TRUE(box.text.starts_with(test.box.second)) << box.text;
        EXPECT_EQ(window.sent.size(), test.events);
        EXPECT_EQ(window.logs().size(), test.files);
        EXPECT_EQ(written(*window.pharmacy), test.stored ? all : nothing);
    }
}

TEST(SendTrace, AMarkedSendIsAskedAfterBeforeTheNext) {
    const std::string time = "2024-05-06 09:08:07", file = "unsettled_20240506090807_345.txt";
    const std::string former = "[" + time + "] [김환자] 결과를 확인할 수 없었던 처방전은 ";
    const std::string stands = former + "저장되어 있습니다. 진료부에는 전달되지 않았을 수 있습니다.";
    const std::string unread = "결과를 확인할 수 없었던 처방전의 기록을 읽을 수 없습니다.";
    const auto mark = [&](int doctor, const std::string& server = "server:1") {
        return std::to_string(doctor) + "\r\n345\r\n" + time + "\r\n" + server + "\r\n김환자\r\nab\r\n";
    };
    const std::string asked = "\r\n다른 ZELVO 창에서 이 처방전에 대해 묻고 있습니다.";
    enum class Kind { Plain, Folder, Pipe, Made, Taken };
    const struct {
        const char* name = "";
        std::string marked = {};
        const char* storedAt = "";  // the time stamp of an order of that key, where one stands
        Answer answer = Answer::Yes;
        std::string told = {};
        bool settled = false, sends = true, lineBroken = false;
        Kind kind = Kind::Plain;
    } cases[] = {{.name = "another doctor's", .marked = mark(11)},
                 {.name = "another server's", .marked = mark(1, "server:1.kr")},
                 {.name = "a running send's", .marked = mark(1), .kind = Kind::Made},
                 {.name = "another window asks",
                  .marked = mark(1),
                  .answer = Answer::No,
                  .told = former + "저장되지 않았습니다." + asked,
                  .sends = false,
                  .kind = Kind::Taken},
                 {.name = "damaged", .marked = "1\r\n99999999999\r\n", .told = unread},
                 {.name = "cut off", .marked = mark(1).substr(0, 40), .told = unread},
                 {.name = "a folder", .told = unread, .kind = Kind::Folder},
                 {.name = "a pipe", .told = unread, .kind = Kind::Pipe},
                 {.name = "it stands and is enough",
                  .marked = mark(1),
                  .storedAt = time.c_str(),
                  .answer = Answer::No,
                  .told = stands,
                  .sends = false},
                 {.name = "it stands and this is one more",
                  .marked = mark(1),
                  .storedAt = time.c_str(),
                  .told = stands,
                  .settled = true},
                 {.name = "it does not stand",
                  .marked = mark(1),
                  .told = former + "저장되지 않았습니다",
                  .settled = true},
                 {.name = "its key was given to another order",
                  .marked = mark(1),
                  .storedAt = "2024-05-06 09:08:09",
                  .told = former + "저장되지 않았습니다",
                  .settled = true},
                 {.name = "the server spelled otherwise",
                  .marked = mark(1, "TCP:SERVER,1"),
                  .storedAt = time.c_str(),
                  .answer = Answer::No,
                  .told = stands,
                  .sends = false},
                 {.name = "nobody says",
                  .marked = mark(1),
                  .storedAt = time.c_str(),
                  .told = former + "지금도",
                  .sends = false,
                  .lineBroken = true}};
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        OrderWindow window;
        window.compose();
        if (*test.storedAt != 0) {
            window.pharmacy->run("INSERT INTO t_ChubangJun (CBJ_PK, DTR_PK, CBJ_RegDate) VALUES (345, 1, '" +
                                 std::string(test.storedAt) + "')");
        }
        const std::filesystem::path path = window.machine->path / "zelvo" / file;
        std::filesystem::create_directories(test.kind == Kind::Folder ? path : path.parent_path());
        if (test.kind == Kind::Pipe) ::mkfifo(path.c_str(), 0600);
        std::optional<files::LockedFile> held;
        if (test.kind == Kind::Made)
            held.emplace(*files::LockedFile::make(path, test.marked, files::OnDisk::Now));
        if (test.kind == Kind::Plain || test.kind == Kind::Taken) std::ofstream(path) << test.marked;
        if (test.kind == Kind::Taken) held.emplace(*files::LockedFile::take(path));
        window.run([&] {
            window.user.press("ssrCostConfirm");
            if (test.lineBroken) window.line->failAt(1);
            if (!test.told.empty()) window.desktop.answer(test.answer);
            if (test.sends) window.desktop.answer(Answer::No);
            window.user.press("ssrCBJSend");
            if (!test.told.empty()) {
                const screen::MessageBox box = window.desktop.takeBox();
                EXPECT_TRUE(box.text.starts_with(test.told)) << box.text;
            }
            if (test.sends) {
                window.desktop.expectQuestion("처방전 전송 성공", success);
                window.priceAndSend();  // what can't be read has been told
                EXPECT_EQ(window.desktop.takeBox().caption, "처방전 전송 성공");
            }
        });
        EXPECT_EQ(window.sent.size(), test.sends ? 2U : 0U);
        EXPECT_EQ(window.logs()[file], test.settled ? "" : test.marked);
    }
}

TEST(SendTrace, ASendThatRunsIsNobodyElsesBusiness) {
    OrderWindow first;
    OrderWindow second(first.pharmacy, first.machine);
    for (OrderWindow* window : {&first, &second}) window->compose();
    first.send.Send2Chart.add([&](const ChartRecord&) {  // its chart takes its time
        second.desktop.answer(Answer::No);
        second.run([&] {
            second.priceAndSend();
            second.desktop.expectQuestion("처방전 전송 성공", success);
            second.line->before = [&](const std::string& statement) {
                second.line->failAt(statement == "COMMIT" ? 1 : 0);
            };
            second.priceAndSend();
            EXPECT_EQ(second.desktop.takeBox().caption, "처방전 전송 실패");
        });
        EXPECT_EQ(marksOf(first), 1);
    });
    first.run([&] { first.priceAndSend(); });
    first.desktop.expectQuestion("처방전 전송 성공", success);
    EXPECT_EQ(written(*first.pharmacy), "2 2 2 4 2");
    EXPECT_EQ(first.logs().size(), 2U) << "one for each order that stands, though of one second";
}

using Pharmacy = std::shared_ptr<testing::OrderPharmacy>;
using Machine = std::shared_ptr<testing::TestFolder>;

/// The doctor's next session sends, with every question answered as its default says; what it is told.
std::string sendOnceMore(const Pharmacy& pharmacy, const Machine& machine) {
    OrderWindow window(pharmacy, machine);
    window.send.Form_Load();
    window.compose();
    window.run([&] { window.priceAndSend(); });
    return window.desktop.takeTexts();
}
constexpr const char* left = "결과를 확인할 수 없었던";

TEST(SendTrace, AKilledSendLeavesAllOrNothing) {
    constexpr int statements = 9;
    for (const char* journal : {"delete", "wal"}) {
        for (int at = 1; at <= statements + 1; ++at) {
            SCOPED_TRACE(std::string(journal) + ", killed before statement " + std::to_string(at));
            const auto pharmacy = std::make_shared<testing::OrderPharmacy>();
            const auto machine = std::make_shared<testing::TestFolder>();
            pharmacy->run(std::string("PRAGMA journal_mode = ") + journal);
            ASSERT_TRUE(testing::diesIn([&] {
                OrderWindow window(pharmacy, machine);
                testing::dieAt(*window.line, at);
                window.send.Send2Chart.add([](const ChartRecord&) { testing::die(); });
                window.compose();
                window.run([&] { window.priceAndSend(); });
            }));
            EXPECT_EQ(written(*pharmacy), at <= statements ? nothing : all);
            EXPECT_EQ(pharmacy->value("PRAGMA integrity_check"), "ok");
            const std::string told = sendOnceMore(pharmacy, machine);
            EXPECT_EQ(told.find(left) != std::string::npos, at >= statements) << "the order was marked";
            EXPECT_EQ(written(*pharmacy), all);
            EXPECT_EQ(machine->files("zelvo").size(), at <= statements ? 1U : 2U)
                << "the log of the order that stands, and the mark of one that was not gone on from";
        }
    }
}

using Told = data::CommitOutcome;
using Program = std::function<Told(const std::function<void()>& arm)>;
using Check = std::function<void(Told told)>;

/// Runs a program in a process of its own for each call of the system that it makes once it is armed: that
/// one fails, alone or with all behind it. `prepare` makes what it works on; then what it told is looked at.
void whileEachCallFails(const std::function<void()>& prepare, const Program& program, const Check& check) {
    const auto call = [](const char* name) { return ::dlsym(RTLD_DEFAULT, name); };
    const auto fail = reinterpret_cast<void (*)(const char*, int, bool)>(call("failCalls"));
    const auto came = reinterpret_cast<bool (*)()>(call("cameToFailure"));
    for (const char* kind : {"write", "sync", "unlock", "rename", "unlink"}) {
        for (const bool lasting : {false, true}) {
            for (int nth = 1, status = 0;; ++nth) {
                SCOPED_TRACE(std::string(kind) + " " + std::to_string(nth) + (lasting ? " and on" : ""));
                prepare();
                const pid_t child = ::fork();
                if (child == 0) {
                    const Told told = program([&] { fail(kind, nth, lasting); });
                    ::_exit(came() ? static_cast<int>(told) : 9);
                }
                ::waitpid(child, &status, 0);
                ASSERT_TRUE(WIFEXITED(status));
                if (WEXITSTATUS(status) == 9) break;
                const auto told = static_cast<Told>(WEXITSTATUS(status));
                EXPECT_TRUE(lasting || told != Told::Unknown) << "a second connection can say";
                check(told);
            }
        }
    }
}

TEST(SendTrace, WhateverTheSystemRefusesNoOrderIsToldWronglyOrSentTwice) {
    if (::dlsym(RTLD_DEFAULT, "failCalls") == nullptr) {  // once more, with the calls preloaded
        const std::string program = std::filesystem::read_symlink("/proc/self/exe");
        const std::string command =
            "ASAN_OPTIONS=verify_asan_link_order=0 LD_PRELOAD=" ZELVO_FAILING_CALLS " ";
        EXPECT_EQ(std::system((command + program + " --gtest_filter=SendTrace.WhateverTheSystem*").c_str()),
                  0);
        return;
    }
    Pharmacy pharmacy;
    Machine machine;
    const auto prepare = [&] {
        pharmacy = std::make_shared<testing::OrderPharmacy>();
        machine = std::make_shared<testing::TestFolder>();
    };
    const auto send = [&](const std::function<void()>& arm) {
        OrderWindow window(pharmacy, machine);
        window.line->another = [&] { return pharmacy->connect(); };
        window.compose();
        window.run([&] {
            window.user.press("ssrCostConfirm");
            arm();
            window.user.press("ssrCBJSend");
        });
        const bool unknown = window.desktop.takeTexts().find("확인할 수 없습니다.") != std::string::npos;
        return !window.sent.empty() ? Told::Done : unknown ? Told::Unknown : Told::Refused;
    };
    whileEachCallFails(prepare, send, [&](Told told) {
        const std::string stands = written(*pharmacy);
        EXPECT_TRUE(told == Told::Unknown || stands == (told == Told::Done ? all : nothing)) << stands;
        if (told == Told::Done) return;
        EXPECT_EQ(sendOnceMore(pharmacy, machine).find(left) != std::string::npos, told == Told::Unknown);
        EXPECT_EQ(written(*pharmacy), all);
    });
    const auto prepareOrder = [&] {
        prepare();
        pharmacy->run("INSERT INTO t_ChubangJun (CBJ_PK, DTR_PK, CBJ_IsCanceled) VALUES (345, 1, 0)");
    };
    const auto cancel = [&](const std::function<void()>& arm) {
        const auto line = pharmacy->connect();
        line->another = [&] { return pharmacy->connect(); };
        arm();
        return data::clsZELVORecordSet().Update_CBJCancel(*line, 345);
    };
    whileEachCallFails(prepareOrder, cancel, [&](Told told) {
        const std::string canceled = pharmacy->value("SELECT CBJ_IsCanceled FROM t_ChubangJun");
        EXPECT_TRUE(told == Told::Unknown || canceled == (told == Told::Done ? "1" : "0"));
    });
}

}  // namespace
}  // namespace zelvo::ordering
