// The order client as an automation object: what the system starts when a chart makes one.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "Guard.h"
#include "Registration.h"
#include "Server.h"
#include "program/Arguments.h"

namespace {

constexpr auto usage =
    "usage: DoctorZELVO /register | /unregister | -Embedding | /script FILE | --version\n"
    "\n"
    "/register enters the object DoctorZELVO.clsZELVOInterface for this user, /unregister takes it away. The\n"
    "system starts it by -Embedding. /script serves with windows in the terminal, worked by the commands in FILE,\n"
    "or in the standard input where it is \"-\".\n";

/// A program with windows has no console of its own; whoever calls it in one wants to read its answer there.
void writeToCallersConsole() {
    if (::GetStdHandle(STD_OUTPUT_HANDLE) || !::AttachConsole(ATTACH_PARENT_PROCESS)) return;
    // The console takes several writers, and so must each that opens it.
    for (std::FILE* stream : {stdout, stderr}) {
        // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): the program's own streams stay open to its end
        if (!std::freopen("CONOUT$", "w", stream)) return;
    }
}

int run(const std::vector<std::string>& words) {
    const std::string first = words.empty() ? "" : words.front();
    if (words.size() == 3 && first == "/guard") return automation::giveBackAfter(words[1], words[2]);
    const bool scripted = words.size() == 2 && first == "/script";
    if (scripted || (words.size() == 1 && (first == "-Embedding" || first == "/Embedding"))) {
        std::optional<std::string> script;
        if (scripted) script = words[1] == "-" ? "" : words[1];
        automation::Server server(std::move(script));
        if (scripted) std::puts("serving");
        std::fflush(stdout);
        server.serve();
        return 0;
    }
    if (words.size() == 1 && first == "/register") {
        automation::enterInRegistry();
        std::puts("DoctorZELVO.clsZELVOInterface is registered for this user.");
        return 0;
    }
    if (words.size() == 1 && first == "/unregister") {
        automation::removeFromRegistry();
        std::puts("DoctorZELVO.clsZELVOInterface of this place is not registered any more.");
        return 0;
    }
    if (words.size() == 1 && first == "--version") {
        std::puts("DoctorZELVO " ZELVO_VERSION);
        return 0;
    }
    const bool help = words.size() == 1 && (first == "/?" || first == "-h" || first == "--help");
    std::fputs(usage, help ? stdout : stderr);
    return help ? 0 : 2;
}

}  // namespace

int main(int argc, char** argv) {
    // A fault of this program is told to nobody here: it ends at once, and the chart has its windows back.
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    ::_set_error_mode(_OUT_TO_STDERR);
    writeToCallersConsole();
    try {
        return run(program::wordsOf(argc, argv));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "DoctorZELVO: %s\n", failure.what());
        return 1;
    }
}
