// tds-desk DATABASE READY_FILE: the desk of TdsServer as a program, until its input ends. No SQL Server.
#include <cstdio>
#include <fstream>
#include <string>

#include "support/tds/TdsServer.h"

int main(int count, char** words) {
    if (count != 3) return 2;
    const zelvo::testing::TdsServer server(words[1]);
    const std::string waiting = std::string(words[2]) + ".new";
    std::ofstream(waiting) << server.address() << '\n';
    if (std::rename(waiting.c_str(), words[2]) != 0) return 1;
    while (std::getchar() != EOF) {
    }
}
