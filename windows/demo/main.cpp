// Opens a chart, or a window of ZELVO, on a demo pharmacy of this machine.
#include <windows.h>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include "DemoPharmacy.h"
#include "basics/Paths.h"
#include "platform/console/System.h"
#include "program/Arguments.h"

namespace {

using zelvo::basics::pathOf;
using zelvo::basics::textOf;

constexpr const char* usage =
    "zelvo-demo [--fresh] [chart]\n"
    "zelvo-demo [--fresh] doctor|nurse [OPTION...]\n"
    "zelvo-demo --help | --version\n"
    "\n"
    "Opens a chart with a few patients on a demo pharmacy. In it, Enter on a patient opens ZELVO; what is ordered goes "
    "into the pharmacy's database and into the patient's record.\n"
    "\n"
    "chart: the chart; so does no word at all\n"
    "doctor: a doctor's window at once; OPTIONs are those of zelvo\n"
    "nurse: the same for a nurse of three doctors\n"
    "--fresh: makes the pharmacy's database anew, before anything else\n";

void tell(const std::string& text, UINT icon) {
    ::MessageBoxW(nullptr, pathOf(text).c_str(), L"ZELVO", MB_OK | MB_SETFOREGROUND | icon);
}

struct Wish {
    bool fresh = false;
    std::string mode = "chart";
    std::vector<std::string> options;
};

bool readWish(std::vector<std::string> words, Wish& wish) {
    wish.fresh = !words.empty() && words[0] == "--fresh";
    if (wish.fresh) words.erase(words.begin());
    if (words.empty()) return true;
    wish.mode = words[0];
    wish.options.assign(words.begin() + 1, words.end());
    if (wish.mode == "chart") return wish.options.empty();
    return wish.mode == "doctor" || wish.mode == "nurse";
}

int open(const Wish& wish) {
    const std::string chart = zelvo::console::besideThisProgram("zelvo-chart");
    const std::filesystem::path programs = pathOf(chart).parent_path();
    const demo::DemoPharmacy pharmacy(textOf(programs), wish.fresh);
    // The values are files: a password in a command line could be seen by everybody.
    const auto values = [shared = programs.parent_path() / "share" / "doctorzelvo"](const char* name) {
        return textOf(shared / name);
    };
    std::vector<std::string> words{chart};
    if (wish.mode != "chart") words = {zelvo::console::besideThisProgram("zelvo"), wish.mode};
    words.insert(words.end(), {"--server", pharmacy.address(), "--values",
                               values(wish.mode == "nurse" ? "nurse.values" : "clinic.values")});
    if (wish.mode == "doctor") words.insert(words.end(), {"--values", values("patient.values")});
    words.insert(words.end(), wish.options.begin(), wish.options.end());
    return demo::Program(words).wait();
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words = program::wordsOf(argc, argv);
    if (!words.empty() && (words[0] == "--help" || words[0] == "-h")) {
        tell(usage, MB_ICONINFORMATION);
        return 0;
    }
    if (words.size() == 1 && words[0] == "--version") {
        tell("zelvo-demo " ZELVO_VERSION, MB_ICONINFORMATION);
        return 0;
    }
    Wish wish;
    if (!readWish(words, wish)) {
        tell(usage, MB_ICONERROR);
        return 2;
    }
    try {
        const int code = open(wish);
        const bool inTerminal =
            std::find(wish.options.begin(), wish.options.end(), "--console") != wish.options.end();
        if (code != 0 && !inTerminal) tell("The window could not be opened.", MB_ICONERROR);
        return code;
    } catch (const std::exception& failure) {
        tell(failure.what(), MB_ICONERROR);
        return 1;
    }
}
