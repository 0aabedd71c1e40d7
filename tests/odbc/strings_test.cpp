// What is said to a driver, as text: settings, connection strings, statements.
#include <gtest/gtest.h>

#include <map>

#include "basics/Environment.h"
#include "basics/Fault.h"
#include "platform/odbc/ConnectionString.h"
#include "platform/odbc/Dialect.h"
#include "platform/odbc/DriverSurroundings.h"
#include "platform/odbc/Drivers.h"

namespace zelvo::odbc {

using basics::Fault;
using Variables = std::map<std::string, std::string>;

Settings settingsOf(const Variables& variables) {
    return readSettings([&](const char* name) {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional(found->second);
    });
}

const std::string common = "Language=us_english;APP=DoctorZELVO;";

TEST(ConnectionString, IsSaidInTheDriversOwnWords) {
    const struct {
        Variables variables;
        std::string address, text;
    } cases[] = {
        {{{"ZELVO_ODBC_DRIVER", "ODBC Driver 18 for SQL Server"}, {"ZELVO_ODBC_CERTIFICATE", "trust"}},
         "tcp:10.0.0.1,1500",
         "Driver={ODBC Driver 18 for SQL Server};Server={tcp:10.0.0.1,1500};Database=zelvo;UID=zelvo;PWD=pw;"
         "Encrypt=yes;TrustServerCertificate=yes;ConnectRetryCount=0;" +
             common},
        {{{"ZELVO_ODBC_DRIVER", "SQL Server"}, {"ZELVO_ODBC_CERTIFICATE_FILE", "/dev/null"}},
         "host\\A",
         "Driver={SQL Server};ServerCertificate=/dev/null;Server=host\\A;Database=zelvo;UID=zelvo;PWD=pw;Encrypt=yes;"
         "TrustServerCertificate=no;ConnectRetryCount=0;" +
             common},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(connectionString({test.address, "zelvo", "zelvo", "pw"}, settingsOf(test.variables)),
                  test.text);
    }
    Settings other;
    other.driver = "SQL Server";
    EXPECT_NE(
        connectionString({"h", "zelvo", "u};", "{;}} "}, other).find("UID={u}};};PWD={{;}}}} };Encrypt"),
        std::string::npos);
}

TEST(Settings, AMistypedWordNeverWeakensTheLine) {
    const Variables cases[] = {
        {{"ZELVO_ODBC_ENCRYPT", "no"}},
        {{"ZELVO_ODBC_CERTIFICATE", "yes"}},
        {{"ZELVO_ODBC_CERTIFICATE_FILE", "/nowhere"}},
        {{"ZELVO_ODBC_CERTIFICATE", "check"},
         {"ZELVO_ODBC_ENCRYPT", "off"},
         {"ZELVO_ODBC_DRIVER", "SQL Server"}},
        {{"ZELVO_ODBC_LOGIN_SECONDS", "0"}},
        {{"ZELVO_ODBC_QUERY_SECONDS", "3601"}},
        {{"ZELVO_ODBC_QUERY_SECONDS", "5 "}},
    };
    // Where no driver is installed that alone would be told.
    const Variables driver{{"ZELVO_ODBC_DRIVER", "FreeTDS"}};
    for (Variables variables : cases) {
        variables.insert(driver.begin(), driver.end());
        EXPECT_THROW(settingsOf(variables), Fault) << variables.begin()->first << variables.begin()->second;
    }
    Variables good{{"ZELVO_ODBC_LOGIN_SECONDS", "7"}, {"ZELVO_ODBC_ENCRYPT", ""}};
    good.insert(driver.begin(), driver.end());
    const Settings settings = settingsOf(good);
    EXPECT_TRUE(settings.loginSeconds == 7 && settings.querySeconds == 30 && settings.encrypted &&
                settings.checked);
}

TEST(Settings, ComeFromTheEnvironmentInEveryLetter) {
    setVariable("ZELVO_ODBC_DRIVER", "한약국 ODBC");
    EXPECT_EQ(readSettings(basics::environment).driver, "한약국 ODBC");
    setVariable("ZELVO_ODBC_DRIVER", std::nullopt);
    EXPECT_EQ(basics::environment("ZELVO_ODBC_DRIVER"), std::nullopt);
}

TEST(Drivers, TheNewestForAServerIsTaken) {
    const std::pair<std::vector<std::string>, std::string> cases[] = {
        {{"SQLite3", "SQL Server", "ODBC Driver 17 for SQL Server", "ODBC Driver 18 for SQL Server"},
         "ODBC Driver 18 for SQL Server"},
        {{"ODBC Driver 9 for SQL Server", "ODBC Driver 17 for Sybase", "SQL Server Native Client 11.0"},
         "ODBC Driver 9 for SQL Server"},
        {{"SQL Server", "SQL Server Native Client 10.0", "Oracle"}, "SQL Server Native Client 10.0"},
    };
    for (const auto& [drivers, newest] : cases) EXPECT_EQ(newestForServer(drivers), newest);
    EXPECT_THROW(newestForServer({"SQLite3", "My SQL Server"}), Fault);
}

TEST(Dialect, MeansTheSameToTheServer) {
    const std::pair<std::string, std::string> cases[] = {
        {"SELECT 1", "SELECT 1"},
        {"a = 'x' AND b = '당귀'' \\' AND c = ''", "a = 'x' AND b = N'당귀'' \\' AND c = ''"},
        {"('a\\\\\r\nb')", "((CAST('' AS varchar(max)) + 'a\\\\' + '\r\nb'))"},
        {"'귀\\\n''\\\n'", "(CAST(N'' AS nvarchar(max)) + N'귀\\' + N'\n''\\' + N'\n')"},
        {"'\\\r'", "(CAST('' AS varchar(max)) + '\\' + '\r')"},
        {"'\\n \\' + '\n'", "'\\n \\' + '\n'"},
        {"SELECT 당귀, 'open", "SELECT 당귀, 'open"},
    };
    for (const auto& [statement, said] : cases) EXPECT_EQ(toSqlServer(statement), said);
}

}  // namespace zelvo::odbc
