// tds-desk DATABASE READY_FILE [MILLISECONDS]: the desk of TdsServer as a program, until its input ends;
// behind a line of so many milliseconds a trip. No SQL Server.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "support/tds/TdsServer.h"

int main(int count, char** words) {
    if (count < 3 || count > 4) return 2;
    zelvo::testing::TdsServer server(words[1]);
    if (count == 4) server.milliseconds = std::atoi(words[3]);
    const std::string waiting = std::string(words[2]) + ".new";
    std::ofstream(waiting) << server.address() << '\n';
    if (std::rename(waiting.c_str(), words[2]) != 0) return 1;
    while (std::getchar() != EOF) {
    }
}
