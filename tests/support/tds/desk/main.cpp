// tds-desk DATABASE READY_FILE [MILLISECONDS [TROUBLE [TEXT [alone]]]]: the desk of TdsServer as a program,
// until its input ends; behind a line of so many milliseconds a trip, and with a trouble at the first batch
// with the text in it. No SQL Server.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>

#include "support/tds/TdsPipe.h"
#include "support/tds/TdsServer.h"

int main(int count, char** words) {
    using zelvo::testing::TdsServer;
    using Trouble = TdsServer::Trouble;
    const std::map<std::string, Trouble> troubles = {
        {"cut", Trouble::CutBeforeRun},  {"lost", Trouble::CutBeforeAnswer},
        {"late", Trouble::Late},         {"slow", Trouble::Slow},
        {"deadlock", Trouble::Deadlock}, {"constraint", Trouble::Constraint},
        {"tls", Trouble::None},          {"none", Trouble::None}};
    if (count < 3 || count > 7) return 2;
    TdsServer server(words[1]);
    if (count > 3) server.milliseconds = std::atoi(words[3]);
    if (count > 4) server.tls = words[4] == std::string("tls");
    if (server.tls) zelvo::testing::TdsCertificate::instance();  // takes its time, which is not the login's
    if (count > 5) server.misbehave(words[5], troubles.at(words[4]));
    server.alone = count > 6;
    const std::string waiting = std::string(words[2]) + ".new";
    std::ofstream(waiting) << server.address() << '\n';
    if (std::rename(waiting.c_str(), words[2]) != 0) return 1;
    while (std::getchar() != EOF) {
    }
}
