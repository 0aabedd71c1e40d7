// From the chart's call to the window: login, catalogues, the chart's values, and everything that can fail on
// the way.
#include <gtest/gtest.h>

#include "basics/Fault.h"
#include "support/host/HostSession.h"

namespace zelvo {
namespace {

using screen::BoxIcon;
using screen::ComboList;
using screen::ItemList;
using screen::OptionButton;
using screen::StatusBar;
using screen::TabControl;
using testing::HostSession;

constexpr const char* readFailed = "Doctor 정보를 가져오는 중 오류 발생. [한약국 서버 연결 확인]";
constexpr const char* notFound =
    "입력된 아이디와 암호에 대한 Doctor 정보를 찾을 수 없습니다. [한약국 서버 연결 확인]";

std::vector<bool> openTabs(HostSession& host) {
    std::vector<bool> open;
    for (int page = 0; page < 4; ++page) open.push_back(host.field<TabControl>("c1tMain").selectable(page));
    return open;
}

TEST(SessionStart, fillsTheWindowForADoctor) {
    HostSession host;
    host::HostArguments call = host.arguments();
    call.DoctorIDPWD = " doctor1 /$/ pass1 /$/ignored";
    host.runDoctor(call, [&] {
        const std::pair<const char*, const char*> texts[] = {
            {"lblPatientPK", "1024"},
            {"txtPatientName", "김하늘"},
            {"txtPatientJumin", "850312-2345678"},
            {"txtPatientAge", "41"},
            {"txtPatientCell", "010-1234-5678"},
            {"txtPatientTel", "02-123-4567"},
            {"txtBesongZip", "06236"},
            {"txtBesongJuso", "서울특별시 강남구 테헤란로 152"},
            {"txtHospitalName", "하늘한의원"},
            {"txtDoctor", "이정민"},
            {"txtHospitalTel", "02-555-0123"},
            {"txtDoctorCell", "010-8765-4321"},
            {"txtBalsongZip", "03045"},
        };
        for (const auto& [name, text] : texts) EXPECT_EQ(host.textOf(name), text) << name;
        EXPECT_TRUE(host.field<OptionButton>("ssoSex(1)").value());
        EXPECT_FALSE(host.field<OptionButton>("ssoSex(0)").value());
        EXPECT_EQ(host.field<StatusBar>("stbMain").panel(1),
                  host.textOf("lblGongJiYakGuk(0)") + " 입니다...");
        EXPECT_EQ(host.field<StatusBar>("stbMain").panel(2), " 현재 접속 ID : doctor1");
        EXPECT_EQ(host.field<StatusBar>("stbMain").panel(3), " ZEL-VO 버전 : 1.0001");
        EXPECT_FALSE(host.field<TabControl>("c1tCBJmanage").selectable(2));
    });
    EXPECT_EQ(host.session.g_conYakGuk, nullptr);
    host.database.run("DELETE FROM t_PxInfo");
    host.runDoctor(call, [&] {
        EXPECT_EQ(host.field<StatusBar>("stbMain").panel(1), " 입니다...");
        EXPECT_EQ(host.textOf("lblYakGukSvrIP"), host.database.address());
        EXPECT_EQ(host.textOf("lblCBJcostAspURL"), "비용계산URL") << "as designed";
    });
}

TEST(SessionStart, goesOnWithoutALogin) {
    const std::pair<const char*, const char*> cases[] = {
        {"doctor1/$/wrong", notFound}, {"doctor1", ""}, {"", ""}, {"' OR 1=1 --/$/x", notFound}};
    for (const auto& [account, box] : cases) {
        SCOPED_TRACE(account);
        HostSession host;
        host::HostArguments call = host.arguments();
        call.DoctorIDPWD = account;
        call.PatientSex = 1;
        host.runDoctor(call, [&] {
            EXPECT_EQ(host.field<TabControl>("c1tMain").current(), 0);
            EXPECT_EQ(openTabs(host), (std::vector<bool>{true, false, false, false}));
            EXPECT_EQ(host.textOf("txtPatientName"), "김하늘");
            EXPECT_EQ(host.textOf("txtHospitalName"), "");
            EXPECT_TRUE(host.field<OptionButton>("ssoSex(0)").value());
            EXPECT_EQ(host.user.front().caption(), "ZEL-VO 메인 윈도우 - 한의사");
            EXPECT_EQ(host.field<StatusBar>("stbMain").panel(2), "");
            EXPECT_EQ(host.session.m_DTRPK, 0);
            EXPECT_EQ(host.session.m_DoctorIDPWD, "");
        });
        if (*box) host.desktop.expectBox("한약국 로그인", box);
        host.desktop.expectNoBox();
    }
}

TEST(SessionStart, offersThePayMethodsThatTheRecordAllows) {
    struct Case {
        const char* flags;
        std::vector<std::string> entries;
    };
    const Case cases[] = {{"000", {}},
                          {"", {}},
                          {"101", {"적립", "후불정산"}},
                          {"1", {"적립", "후불정산"}},
                          {"010", {"후불"}},
                          {"  1", {"후불정산"}},
                          {"11 ", {"적립", "후불"}},
                          {"한11", {"후불", "후불정산"}}};
    for (const Case& pay : cases) {
        HostSession host;
        host.database.run("UPDATE t_Doctor SET DTR_ValidPay = '" + std::string(pay.flags) +
                          "' WHERE DTR_ID = 'doctor1'");
        host.runDoctor(host.arguments(), [&] {
            auto& combo = host.field<ComboList>("cboPaymentMethod");
            std::vector<std::string> entries;
            for (int i = 0; i < combo.entryCount(); ++i) entries.push_back(combo.entry(i));
            EXPECT_EQ(entries, pay.entries) << pay.flags;
            EXPECT_EQ(combo.selectedIndex(), entries.empty() ? -1 : 0);
            const auto& list = host.field<ItemList>("ListVpayment");
            const bool deposit = !entries.empty() && entries[0] == "적립";
            EXPECT_EQ(list.itemChecked(0), deposit) << pay.flags;
        });
    }
}

// Each statement of the start fails in turn, alone or with the line gone from there on: the window opens all
// the same, what could not be read stays empty, and only the login says something.
TEST(SessionStart, opensWhicheverStatementFails) {
    for (const bool gone : {false, true}) {
        int calls = 0;
        {
            HostSession host;
            host.runDoctor(host.arguments(), [&] { calls = static_cast<int>(host.line->statements.size()); });
        }
        ASSERT_GE(calls, 6);
        for (int failing = 1; failing <= calls; ++failing) {
            HostSession host;
            host.failAtStart = failing;
            host.staysBroken = gone;
            bool opened = false;
            host.runDoctor(host.arguments(), [&] {
                opened = true;
                EXPECT_EQ(host.textOf("txtPatientName"), "김하늘");
            });
            EXPECT_TRUE(opened) << failing;
            if (failing == 1) host.desktop.expectBox("한약국 로그인", readFailed, BoxIcon::Critical);
            host.desktop.expectNoBox();
            EXPECT_EQ(host.session.g_conYakGuk, nullptr);
        }
    }
}

TEST(SessionStart, takesWhateverTheChartHandsOver) {
    const std::string hostile[] = {"",
                                   "   ",
                                   std::string("a\0b\x01\r\n\t", 7),
                                   std::string(100000, 'x'),
                                   "\xff\xfe bad \xc3",
                                   "'; DROP TABLE t_Doctor; --"};
    for (const std::string& text : hostile) {
        HostSession host;
        host::HostArguments call = host.arguments();
        for (std::string* value :
             {&call.PatientName, &call.PatientJumin, &call.PatientCell, &call.PatientTel, &call.PatientEmail,
              &call.PatientZipCode, &call.PatientJuso, &call.HospitalName, &call.DoctorName,
              &call.HospitalTel, &call.DoctorCell, &call.HospitalZipCode, &call.HospitalJuso}) {
            *value = text;
        }
        bool opened = false;
        host.runDoctor(call, [&] { opened = true; });
        EXPECT_TRUE(opened);
        call.DoctorIDPWD = text + "/$/" + text;
        host.runDoctor(call, [&] { EXPECT_EQ(host.session.m_DTRPK, 0); });
        host.desktop.expectBox("한약국 로그인", notFound);
    }
}

TEST(SessionStart, closesTheWindowOnABrokenLine) {
    HostSession host;
    host.runDoctor(host.arguments(), [&] {
        host.line->staysBroken = true;
        host.line->failAt(1);
    });
    EXPECT_EQ(host.session.g_conYakGuk, nullptr);
    host.runDoctor(host.arguments(), [&] { EXPECT_EQ(host.textOf("txtPatientName"), "김하늘"); });
    EXPECT_EQ(host.opened, 2);
}

}  // namespace
}  // namespace zelvo
