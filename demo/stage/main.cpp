// A console script worked through the real windows, with a picture of each step.
#include <QtWidgets/QApplication>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "ChartCall.h"
#include "Stage.h"
#include "assembly/Component.h"
#include "basics/Numbers.h"
#include "basics/Paths.h"
#include "host/clsZELVOInterface.h"
#include "platform/console/PharmacyTool.h"
#include "platform/qt/Display.h"
#include "platform/qt/Toolkit.h"
#include "platform/settings/UserSettings.h"
#include "program/Arguments.h"

namespace {

using zelvo::basics::decimalText;

zelvo::host::HostArguments arguments(const chart::ChartCall& call) {
    return {nullptr,           call.server,     call.account,        call.patientPk,      call.patientName,
            call.patientJumin, call.patientAge, call.patientSex,     call.patientCell,    call.patientTel,
            call.patientEmail, call.patientZip, call.patientAddress, call.hospitalName,   call.doctorName,
            call.hospitalTel,  call.doctorCell, call.hospitalZip,    call.hospitalAddress};
}

int play(const chart::ChartCall& call, const std::string& pictures) {
    std::ifstream file(zelvo::basics::pathOf(call.script), std::ios::binary);
    if (!file) {
        std::cerr << "zelvo-stage: " << call.script << " can't be read\n";
        return zelvo::console::exits::unreadable;
    }
    const std::string error = zelvo::qt::Toolkit::enter();
    if (!error.empty()) {
        std::cerr << "zelvo-stage: " << error << "\n";
        return zelvo::console::exits::failed;
    }
    zelvo::console::Script script(file, call.script);
    zelvo::settings::UserSettings settings;
    const auto pharmacy = [&call](const std::vector<std::string>& words) {
        return zelvo::console::runPharmacyTool(call.server, words);
    };
    zelvo::stage::Stage stage({script, std::cout, std::cerr, settings, pharmacy}, pictures);
    zelvo::assembly::registerComponents(stage);
    zelvo::host::clsZELVOInterface host(stage, zelvo::assembly::Component::instance().session,
                                        zelvo::assembly::openPharmacy);
    host.Send2Chart.add([&stage](const zelvo::ordering::ChartRecord& record) {
        stage.sent({record.strJob, decimalText(std::int64_t{record.intChupSu}),
                    decimalText(std::int64_t{record.intPouchAmount}), decimalText(record.sglDayTuYak),
                    decimalText(std::int64_t{record.intTuyakilsu}),
                    decimalText(std::int64_t{record.intPouchTotal}), record.strMessage,
                    decimalText(std::int64_t{record.lngSumCost}), record.strxDrugList});
    });
    if (call.nurse) {
        host.ZELVOInterface_Nurse(arguments(call));
    } else {
        host.ZELVOInterface(arguments(call));
    }
    if (stage.exitCode() == zelvo::console::exits::done) stage.readRest();
    return stage.exitCode();
}

/// The unseen screen remarks that it can't raise a window; nobody wants to know.
void passOn(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (message.startsWith(QLatin1String("This plugin does not support"))) return;
    std::cerr << message.toStdString() << "\n";
}

constexpr const char* usage =
    "usage: zelvo-stage PICTURES doctor|nurse --script FILE [OPTION...]\n"
    "       zelvo-stage --display\n"
    "       zelvo-stage --help|--version\n"
    "\n"
    "Works a console script through the real windows, and puts a picture of each step into the folder PICTURES.\n"
    "The OPTIONs are those of zelvo. --display only tells whether a window could be shown to somebody.\n";

}  // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler(passOn);
    const std::vector<std::string> words = program::wordsOf(argc, argv);
    if (words == std::vector<std::string>{"--display"}) {
        const std::string missing = zelvo::qt::findDisplay().missing;
        if (!missing.empty()) std::cerr << missing << "\n";
        return missing.empty() ? zelvo::console::exits::done : zelvo::console::exits::failed;
    }
    if (chart::tellsOfItself(words, "zelvo-stage", usage)) return zelvo::console::exits::done;
    chart::ChartCall call;
    std::string error;
    if (words.size() < 2 || !chart::readChartCall({words.begin() + 1, words.end()}, call, error) ||
        call.script.empty()) {
        std::cerr << "zelvo-stage: " << error << "\n" << usage;
        return zelvo::console::exits::unreadable;
    }
    try {
        const std::string& pictures = words[0];
        if (!pictures.empty()) std::filesystem::create_directories(zelvo::basics::pathOf(pictures));
        const int code = play(call, pictures);
        zelvo::qt::Toolkit::leave();
        return code;
    } catch (const std::exception& failure) {
        std::cerr << "zelvo-stage: " << failure.what() << "\n";
        return zelvo::console::exits::failed;
    }
}
