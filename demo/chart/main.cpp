// The sample host: a chart that opens the component for one patient and lets its window run in the terminal.
#include <exception>
#include <iostream>

#include "ChartCall.h"

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() == 1 && (words[0] == "--help" || words[0] == "-h")) {
        std::cout << chart::chartUsage();
        return 0;
    }
    chart::ChartCall call;
    std::string error;
    if (!chart::readChartCall(words, call, error)) {
        std::cerr << "zelvo: " << error << "\n" << chart::chartUsage();
        return 2;
    }
    if (!call.console) {
        std::cerr << "zelvo: the window stands in the terminal: say --console\n";
        return 2;
    }
    try {
        return doctorzelvo::runInTerminal(call.script, [&call](doctorzelvo::clsZELVOInterface& component) {
            call.make(component);
            if (!component.errorText().empty()) std::cerr << "zelvo: " << component.errorText() << "\n";
        });
    } catch (const std::exception& failure) {
        std::cerr << "zelvo: the call failed: " << failure.what() << "\n";
        return 1;
    }
}
