// The sample host: a chart that opens the component for one patient, on the screen or in the terminal, and
// prints what comes back.
#include <exception>
#include <iostream>

#include "ChartCall.h"
#include "program/Arguments.h"

namespace {

using doctorzelvo::ChartRecord;
using doctorzelvo::clsZELVOInterface;

std::string inQuotes(const std::string& text) {
    std::string quoted = "\"";
    for (const char character : text) {
        switch (character) {
            case '\r':
                quoted += "\\r";
                break;
            case '\n':
                quoted += "\\n";
                break;
            case '\t':
                quoted += "\\t";
                break;
            case '"':
                quoted += "\\\"";
                break;
            default:
                quoted += character;
        }
    }
    return quoted + "\"";
}

void print(const ChartRecord& order) {
    std::cout << "Send2Chart strJob=" << inQuotes(order.strJob) << " intChupSu=" << order.intChupSu
              << " intPouchAmount=" << order.intPouchAmount << " sglDayTuYak=" << order.sglDayTuYak
              << " intTuyakilsu=" << order.intTuyakilsu << " intPouchTotal=" << order.intPouchTotal
              << " strMessage=" << inQuotes(order.strMessage) << " lngSumCost=" << order.lngSumCost
              << " strxDrugList=" << inQuotes(order.strxDrugList) << std::endl;
}

/// Whether the window could be opened.
bool make(const chart::ChartCall& call, clsZELVOInterface& component) {
    call.make(component);
    if (component.errorText().empty()) return true;
    std::cerr << "zelvo: " << component.errorText() << "\n";
    return false;
}

int onScreen(const chart::ChartCall& call) {
    clsZELVOInterface component;
    component.Send2Chart = print;
    const bool opened = make(call, component);
    doctorzelvo::shutdown();
    return opened ? 0 : 1;
}

int inTerminal(const chart::ChartCall& call) {
    return doctorzelvo::runInTerminal(call.script,
                                      [&call](clsZELVOInterface& component) { make(call, component); });
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words = program::wordsOf(argc, argv);
    if (chart::tellsOfItself(words, "zelvo", chart::chartUsage())) return 0;
    chart::ChartCall call;
    std::string error;
    if (!chart::readChartCall(words, call, error)) {
        std::cerr << "zelvo: " << error << "\n" << chart::chartUsage();
        return 2;
    }
    if (!call.console && !call.script.empty()) {
        std::cerr << "zelvo: a script is worked in the terminal: say --console\n";
        return 2;
    }
    try {
        return call.console ? inTerminal(call) : onScreen(call);
    } catch (const std::exception& failure) {
        std::cerr << "zelvo: the call failed: " << failure.what() << "\n";
        return 1;
    }
}
