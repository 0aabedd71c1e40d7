#pragma once

#include <functional>
#include <string>

#include "doctorzelvo/doctorzelvo.h"
#include "host/HostArguments.h"
#include "host/clsZELVOInterface.h"
#include "platform/console/ConsoleDesktop.h"

/// What a chart gets in the hand for the terminal in which its windows stand.
struct doctorzelvo_terminal {
    zelvo::console::ConsoleDesktop& desktop;
};

namespace zelvo::assembly {

/// One call of a chart: a window on the screen or in the chart's terminal, until it has closed.
class WindowCall {
public:
    explicit WindowCall(const doctorzelvo_chart& chart) : chart_(chart) {}

    /// Opens the window at this server by what `open` says. "" when it went its way, else why it was turned
    /// away.
    using Open = std::function<void(host::clsZELVOInterface&)>;
    std::string run(const std::string& address, const Open& open) const;

private:
    using Send = std::function<void(const ordering::ChartRecord&)>;
    void runInTerminal(const Open& open) const;
    std::string runOnScreen(const Open& open) const;
    void runOn(screen::Desktop& desktop, const Send& send, const Open& open) const;

    const doctorzelvo_chart& chart_;
};

/// The component in a terminal: `session` makes its calls there, and the script of this path works their
/// windows. Gives the exit code.
int runInTerminal(const std::string& script, const std::function<void(doctorzelvo_terminal&)>& session);

}  // namespace zelvo::assembly
