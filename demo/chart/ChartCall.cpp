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

std::map<std::string, Reader> readers(ChartCall& call) {
    const auto text = [](std::string& target) {
        return Reader([&target](const std::string& word) {
            target = word;
            return true;
        });
    };
    const auto number = [](auto& target) {
        return Reader([&target](const std::string& word) { return readNumber(word, target); });
    };
    return {{"--script", text(call.script)},
            {"--server", text(call.server)},
            {"--account", text(call.account)},
            {"--patient-pk", number(call.patientPk)},
            {"--patient-name", text(call.patientName)},
            {"--patient-jumin", text(call.patientJumin)},
            {"--patient-age", number(call.patientAge)},
            {"--patient-sex", number(call.patientSex)},
            {"--patient-cell", text(call.patientCell)},
            {"--patient-tel", text(call.patientTel)},
            {"--patient-email", text(call.patientEmail)},
            {"--patient-zip", text(call.patientZip)},
            {"--patient-address", text(call.patientAddress)},
            {"--hospital-name", text(call.hospitalName)},
            {"--doctor-name", text(call.doctorName)},
            {"--hospital-tel", text(call.hospitalTel)},
            {"--doctor-cell", text(call.doctorCell)},
            {"--hospital-zip", text(call.hospitalZip)},
            {"--hospital-address", text(call.hospitalAddress)}};
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
    const auto options = readers(call);
    for (std::size_t i = 1; i < words.size(); ++i) {
        if (words[i] == "--console") {
            call.console = true;
            continue;
        }
        const auto option = options.find(words[i]);
        if (option == options.end()) {
            error = "no such option: " + words[i];
            return false;
        }
        if (++i == words.size()) {
            error = option->first + " wants a value";
            return false;
        }
        if (!option->second(words[i])) {
            error = option->first + " wants a whole number that fits, not " + words[i];
            return false;
        }
    }
    return true;
}

std::string chartUsage() {
    return "usage: zelvo doctor|nurse --console [--script FILE] [--server ADDRESS] [--account TEXT]\n"
           "      --patient-pk N --patient-name T --patient-jumin T --patient-age N --patient-sex N --patient-cell T\n"
           "      --patient-tel T --patient-email T --patient-zip T --patient-address T\n"
           "      --hospital-name T --doctor-name T --hospital-tel T --doctor-cell T --hospital-zip T --hospital-address T\n"
           "\n"
           "ADDRESS is \"sqlite:\" and a file's path, or a SQL Server. Without --script the commands come from standard input.\n"
           "A text not given is empty, a number is 0.\n"
           "\n"
           "exit: 0 all went as the script says; 1 it did not; 2 a command that can't be read; 3 no connection\n";
}

}  // namespace chart
