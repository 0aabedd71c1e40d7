#include "ChartCall.h"

#include <charconv>
#include <functional>
#include <limits>
#include <map>

namespace chart {

namespace {

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

bool readOption(const std::vector<std::string>& words, std::size_t& at, const Readers& options,
                std::string& error) {
    const auto option = options.find(words[at]);
    if (option == options.end()) {
        error = "no such option: " + words[at];
        return false;
    }
    if (++at == words.size()) {
        error = option->first + " wants a value";
        return false;
    }
    if (!option->second(words[at])) {
        error = option->first + " wants a whole number that fits, not " + words[at];
        return false;
    }
    return true;
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
    for (std::size_t i = 1; i < words.size(); ++i) {
        if (words[i] == "--console") {
            call.console = true;
        } else if (!readOption(words, i, options, error)) {
            return false;
        }
    }
    return true;
}

bool readClinic(const std::vector<std::string>& words, ChartCall& clinic, std::string& error) {
    const Readers options = clinicReaders(clinic);
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (!readOption(words, i, options, error)) return false;
    }
    return true;
}

std::string chartUsage() {
    return "usage: zelvo doctor|nurse [--console [--script FILE]] [--server ADDRESS] [--account TEXT]\n"
           "      --patient-pk N --patient-name T --patient-jumin T --patient-age N --patient-sex N --patient-cell T\n"
           "      --patient-tel T --patient-email T --patient-zip T --patient-address T\n"
           "      --hospital-name T --doctor-name T --hospital-tel T --doctor-cell T --hospital-zip T --hospital-address T\n"
           "\n"
           "ADDRESS is \"sqlite:\" and a file's path, or a SQL Server. A text not given is empty, a number is 0.\n"
           "The window opens on the screen; with --console it stands in the terminal and is worked by commands, from\n"
           "standard input or from the script.\n"
           "\n"
           "exit: 0 the window has closed; 1 it could not be opened; 2 an option that can't be read\n"
           "with --console: 0 all went as the script says; 1 it did not; 2 a command that can't be read; 3 no connection\n";
}

std::string clinicUsage() {
    return "usage: zelvo-chart [--server ADDRESS] [--account TEXT] [--hospital-name T] [--doctor-name T] [--hospital-tel T]\n"
           "      [--doctor-cell T] [--hospital-zip T] [--hospital-address T]\n"
           "\n"
           "A chart with a few patients: Enter on one of them opens ZELVO for him, and what he is ordered is kept in his\n"
           "record. ADDRESS is \"sqlite:\" and a file's path, or a SQL Server.\n";
}

}  // namespace chart
