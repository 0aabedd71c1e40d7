#include "assembly/WindowCall.h"

#include "assembly/Component.h"
#include "assembly/Glass.h"
#include "assembly/HostDialogs.h"
#include "basics/Numbers.h"
#include "platform/console/Console.h"
#include "platform/console/PharmacyTool.h"
#include "platform/settings/UserSettings.h"

namespace zelvo::assembly {

namespace {

using basics::decimalText;

std::vector<std::string> asTexts(const ordering::ChartRecord& record) {
    return {record.strJob,
            decimalText(std::int64_t{record.intChupSu}),
            decimalText(std::int64_t{record.intPouchAmount}),
            decimalText(record.sglDayTuYak),
            decimalText(std::int64_t{record.intTuyakilsu}),
            decimalText(std::int64_t{record.intPouchTotal}),
            record.strMessage,
            decimalText(std::int64_t{record.lngSumCost}),
            record.strxDrugList};
}

}  // namespace

std::string WindowCall::run(const std::string& address, const Open& open) const {
    Component& component = Component::instance();
    const Component::Turn turn(component);
    if (!turn.granted())
        return "ZELVO 창이 이미 열려 있습니다. 열려 있는 창을 닫은 후에 다시 실행하여 주십시오.";
    component.serverAddress = address;
    if (!chart_.terminal) return runOnScreen(open);
    runInTerminal(open);
    return {};
}

void WindowCall::runInTerminal(const Open& open) const {
    console::ConsoleDesktop& terminal = chart_.terminal->desktop;
    runOn(
        terminal,
        [&](const ordering::ChartRecord& record) {
            terminal.sent(asTexts(record));
            sendToChart(chart_, record);
        },
        open);
}

std::string WindowCall::runOnScreen(const Open& open) const {
    settings::UserSettings settings;
    return runOnGlass(settings, chart_.owner_window, [&](screen::Desktop& desktop) {
        desktop.setRemembered(std::make_unique<settings::UserSettings>(files::OnDisk::Later));
        runOn(
            desktop, [this](const ordering::ChartRecord& record) { sendToChart(chart_, record); }, open);
    });
}

void WindowCall::runOn(screen::Desktop& desktop, const Send& send, const Open& open) const {
    registerComponents(desktop);
    registerOwnDialogs(desktop, chart_);
    host::clsZELVOInterface host(desktop, Component::instance().session, openPharmacy);
    host.Send2Chart.add(send);
    open(host);
}

int runInTerminal(const std::string& script, const std::function<void(doctorzelvo_terminal&)>& session) {
    settings::UserSettings settings;
    const auto pharmacy = [](const std::vector<std::string>& words) {
        return console::runPharmacyTool(Component::instance().serverAddress, words);
    };
    return console::runConsole({.script = script, .settings = settings, .pharmacy = pharmacy},
                               [&](console::ConsoleDesktop& desktop) {
                                   doctorzelvo_terminal terminal{desktop};
                                   session(terminal);
                               });
}

}  // namespace zelvo::assembly
