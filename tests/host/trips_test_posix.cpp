// How often a doctor's roads go to a server, counted at a desk that stands in for one.
#include <gtest/gtest.h>

#include "platform/odbc/OdbcConnection.h"
#include "screen/Grid.h"
#include "support/host/HostSession.h"
#include "support/tds/TdsServer.h"

namespace zelvo {

TEST(Trips, AreFew) {
    testing::HostSession host;  // its database, its texts; the session goes to the desk
    testing::TdsServer desk(host.database.path());
    host.database.run(
        "DELETE FROM t_ChubangJun; INSERT INTO t_ChubangJun (DTR_PK, Patient_Name, CBJ_JobList_PK, CBJ_TJML_PK, CBJ_TJAL_Slot, CBJ_RegDate,"
        " CBJ_State, CBJ_IsCanceled) SELECT DTR_PK, n, JL_PK, TJML_PK, '0110', '2024-05-0' || n, 0, 0"
        " FROM t_Doctor, (SELECT '1' AS n UNION SELECT '2'), (SELECT JL_PK FROM t_JobList LIMIT 1),"
        " (SELECT TJML_PK FROM t_TangJunMethodList LIMIT 1) WHERE DTR_ID = 'doctor1';"
        "INSERT INTO t_CBJDetail (CBJ_PK, DGL_PK, DET_Order) SELECT CBJ_PK, DGL_PK, 1 FROM t_ChubangJun,"
        " (SELECT DGL_PK FROM t_DrugList LIMIT 2)");
    odbc::Settings settings;
    settings.encrypted = settings.checked = false;
    host::clsZELVOInterface component(host.desktop, host.session, [&](const data::ServerLogin& login) {
        return odbc::openServerBy(settings, login);
    });
    const auto trips = [&] { return desk.takeBatches().size(); };
    host::HostArguments call = host.arguments();
    call.YakGukIP = desk.address();
    host.desktop.whenShown("frmDoctorOCSmain", [&](screen::Window&) {
        EXPECT_EQ(trips(), 4U) << "the login, the driver's own word, the doctor, the catalogue";
        host.user.tab("c1tMain", 2);
        host.user.tab("c1tCBJmanage", 4);
        host.user.choose("cboCBJstate", "대 기");
        trips();
        host.user.press("sscCBJsearchState");
        EXPECT_EQ(host.field<screen::Grid>("tdbCBJ").rowCount(), 2);
        EXPECT_EQ(trips(), 1U + 2U) << "the search, and the first order that it found";
        host.user.row("tdbCBJ", 1);
        EXPECT_EQ(trips(), 2U);
        EXPECT_EQ(host.textOf("txtCBJmPatientName"), "1");
        EXPECT_EQ(host.field<screen::ItemList>("lstCBJmTJAL").itemCount(), 2);
    });
    component.ZELVOInterface(call);
}

}  // namespace zelvo
