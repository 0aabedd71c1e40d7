#include "ChartCall.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <utility>

namespace chart {

namespace {

constexpr const char *values = "--values", *standardInput = "-";

constexpr const char* valuesHelp =
    "\nWhat stands in the command line can be seen by everybody on the machine. --values takes the same from a file, or\n"
    "from standard input as -: a line is a name as above without its dashes, a blank and the value to the line's end\n"
    "(account doctor1/$/secret); empty lines and those that begin with # are skipped. What is said later counts.\n";

// Reads a whole number into its place; false when the word is none or does not fit.
template <class Number>
bool readNumber(const std::string& word, Number& target) {
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), target);
    return error == std::errc() && end == word.data() + word.size();
}

using Reader = std::function<bool(const std::string&)>;

using Readers = std::map<std::string, Reader>;

Reader text(std::string& target) {
    return [&target](const std::string& word) {
        target = word;
        return true;
    };
}

template <class Number>
Reader number(Number& target) {
    return [&target](const std::string& word) { return readNumber(word, target); };
}

Readers clinicReaders(ChartCall& call) {
    return {{"--server", text(call.server)},
            {"--account", text(call.account)},
            {"--hospital-name", text(call.hospitalName)},
            {"--doctor-name", text(call.doctorName)},
            {"--hospital-tel", text(call.hospitalTel)},
            {"--doctor-cell", text(call.doctorCell)},
            {"--hospital-zip", text(call.hospitalZip)},
            {"--hospital-address", text(call.hospitalAddress)}};
}

Readers patientReaders(ChartCall& call) {
    return {{"--patient-pk", number(call.patientPk)},     {"--patient-name", text(call.patientName)},
            {"--patient-jumin", text(call.patientJumin)}, {"--patient-age", number(call.patientAge)},
            {"--patient-sex", number(call.patientSex)},   {"--patient-cell", text(call.patientCell)},
            {"--patient-tel", text(call.patientTel)},     {"--patient-email", text(call.patientEmail)},
            {"--patient-zip", text(call.patientZip)},     {"--patient-address", text(call.patientAddress)}};
}

/// Options with their values, in the order in which they were said.
using Said = std::vector<std::pair<std::string, std::string>>;

/// Sorts the words from `at` on; `--console` stands without a value where it is known.
bool sortWords(const std::vector<std::string>& words, std::size_t at, const Readers& options, bool* console,
               Said& said, std::string& error) {
    for (; at < words.size(); ++at) {
        if (console && words[at] == "--console") {
            *console = true;
            continue;
        }
        if (words[at] != values && !options.contains(words[at])) {
            error = "no such option: " + words[at];
            return false;
        }
        if (at + 1 == words.size()) {
            error = words[at] + " wants a value";
            return false;
        }
        said.emplace_back(words[at], words[at + 1]);
        ++at;
    }
    return true;
}

bool take(const Readers& options, const std::string& option, const std::string& value, std::string& error) {
    if (options.at(option)(value)) return true;
    error = option + " wants a whole number that fits, not " + value;
    return false;
}

/// A line of a file of values; what can't be read of it is not said again, for it may be a password.
bool takeLine(const Readers& options, const std::string& line, std::string& error) {
    if (line.empty() || line[0] == '#') return true;
    const std::size_t blank = line.find(' ');
    const std::string option = "--" + line.substr(0, blank);
    const std::string value = blank == std::string::npos ? "" : line.substr(blank + 1);
    if (options.contains(option)) return take(options, option, value, error);
    error = "a line is the name of a value, a blank and the value";
    return false;
}

bool takeFile(const Readers& options, const std::string& name, std::string& error) {
    std::ifstream file;
    if (name != standardInput) file.open(std::filesystem::path(std::u8string(name.begin(), name.end())));
    std::istream& in = name == standardInput ? std::cin : file;
    if (!in) {
        error = name + " can't be read";
        return false;
    }
    int number = 0;
    for (std::string line; std::getline(in, line);) {
        ++number;
        if (line.ends_with('\r')) line.pop_back();
        if (takeLine(options, line, error)) continue;
        error.insert(0, name + ":" + std::to_string(number) + ": ");
        return false;
    }
    if (in.bad()) error = name + " can't be read";
    return !in.bad();
}

bool takeAll(const Readers& options, const Said& said, std::string& error) {
    for (const auto& [option, value] : said) {
        if (!(option == values ? takeFile(options, value, error) : take(options, option, value, error)))
            return false;
    }
    return true;
}

/// Whether the commands of a console would be taken for values.
bool mixesInput(const ChartCall& call, const Said& said) {
    const auto is = [&](const char* option) {
        return [option](const auto& each) { return each.first == option; };
    };
    const auto fromInput = [](const auto& each) {
        return each.first == values && each.second == standardInput;
    };
    return call.console && std::none_of(said.begin(), said.end(), is("--script")) &&
           std::any_of(said.begin(), said.end(), fromInput);
}

}  // namespace

void ChartCall::make(doctorzelvo::clsZELVOInterface& component) const {
    if (nurse) {
        component.ZELVOInterface_Nurse(nullptr, server, account);
        return;
    }
    component.ZELVOInterface(nullptr, server, account, patientPk, patientName, patientJumin, patientAge,
                             patientSex, patientCell, patientTel, patientEmail, patientZip, patientAddress,
                             hospitalName, doctorName, hospitalTel, doctorCell, hospitalZip, hospitalAddress);
}

bool readChartCall(const std::vector<std::string>& words, ChartCall& call, std::string& error) {
    if (words.empty() || (words[0] != "doctor" && words[0] != "nurse")) {
        error = "the first word is doctor or nurse";
        return false;
    }
    call.nurse = words[0] == "nurse";
    Readers options = clinicReaders(call);
    options.merge(patientReaders(call));
    options.emplace("--script", text(call.script));
    Said said;
    if (!sortWords(words, 1, options, &call.console, said, error)) return false;
    if (mixesInput(call, said)) {
        error = "the console reads its commands from standard input: --values - goes with --script only";
        return false;
    }
    return takeAll(options, said, error);
}

bool readClinic(const std::vector<std::string>& words, ChartCall& clinic, std::string& error) {
    const Readers options = clinicReaders(clinic);
    Said said;
    return sortWords(words, 0, options, nullptr, said, error) && takeAll(options, said, error);
}

std::string chartUsage() {
    return "usage: zelvo doctor|nurse [--console [--script FILE]] [--values FILE] [--server ADDRESS] [--account TEXT]\n"
           "      --patient-pk N --patient-name T --patient-jumin T --patient-age N --patient-sex N --patient-cell T\n"
           "      --patient-tel T --patient-email T --patient-zip T --patient-address T\n"
           "      --hospital-name T --doctor-name T --hospital-tel T --doctor-cell T --hospital-zip T --hospital-address T\n"
           "       zelvo --help|--version\n"
           "\n"
           "Opens the order window of ZELVO as a chart would, and prints what the chart would get.\n"
           "\n"
           "ADDRESS is \"sqlite:\" and a file's path, or a SQL Server. A text not given is empty, a number is 0.\n" +
           std::string(valuesHelp) +
           "\nThe window opens on the screen; with --console it stands in the terminal and is worked by commands, from\n"
           "standard input or from the script.\n"
           "\n"
           "exit: 0 the window has closed; 1 it could not be opened; 2 an option that can't be read\n"
           "with --console: 0 all went as the script says; 1 it did not; 2 a command that can't be read; 3 no connection\n";
}

std::string clinicUsage() {
    return "usage: zelvo-chart [--values FILE] [--server ADDRESS] [--account TEXT] [--hospital-name T] [--doctor-name T]\n"
           "      [--hospital-tel T] [--doctor-cell T] [--hospital-zip T] [--hospital-address T]\n"
           "       zelvo-chart --help|--version\n"
           "\n"
           "Opens a chart with a few patients: Enter on one of them opens ZELVO for him, and what he is ordered is kept in\n"
           "his record.\n"
           "\n"
           "ADDRESS is \"sqlite:\" and a file's path, or a SQL Server.\n" +
           std::string(valuesHelp) +
           "\nexit: 0 the chart has been closed; 1 no window can be opened; 2 an option that can't be read\n";
}

bool tellsOfItself(const std::vector<std::string>& words, const std::string& program,
                   const std::string& usage) {
    if (words.size() != 1) return false;
    const bool help = words[0] == "--help" || words[0] == "-h";
    if (help) std::cout << usage;
    if (words[0] == "--version") std::cout << program << " " << ZELVO_VERSION << "\n";
    return help || words[0] == "--version";
}

}  // namespace chart
