#include "platform/console/Console.h"

#include <fstream>

#include "basics/Paths.h"
#include "platform/console/System.h"

namespace zelvo::console {

int runConsole(const ConsoleOptions& options, const std::function<void(ConsoleDesktop&)>& session) {
    const bool fromFile = !options.script.empty();
    std::ifstream file;
    if (fromFile) {
        file.open(basics::pathOf(options.script), std::ios::binary);
        if (!file) {
            options.errors << options.script << ": can't be read\n";
            return exits::unreadable;
        }
    }
    const bool atTerminal = prepareTerminal();
    const bool person = !fromFile && &options.in == &std::cin && atTerminal;
    Script script(fromFile ? file : options.in, fromFile ? options.script : "stdin",
                  person ? &options.errors : nullptr);
    ConsoleDesktop desktop({script, options.out, options.errors, options.settings, options.pharmacy});
    session(desktop);
    if (!person && desktop.exitCode() == exits::done) desktop.readRest();
    return desktop.exitCode();
}

}  // namespace zelvo::console
