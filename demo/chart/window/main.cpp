// The sample chart: a window of its own with a few patients, which opens the component for one of them and
// keeps what the component sends back in that patient's record.
#include <QtCore/QFile>
#include <QtWidgets/QApplication>
#include <cstdlib>
#include <iostream>
#include <string>

#include "ChartWindow.h"
#include "program/Arguments.h"

namespace {

std::vector<chart::Patient> patients() {
    QFile file(QStringLiteral(":/chart/patients.tsv"));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return chart::readPatients(file.readAll().toStdString());
}

/// What the toolkit remarks while it looks for a display. Where there is none it would end the program by its
/// alarm, with a core file: the reason and an exit code do.
void lookingForDisplay(QtMsgType type, const QMessageLogContext& where, const QString& message) {
    static std::string reason;
    if (reason.empty() && QLatin1String(where.category).startsWith(QLatin1String("qt.qpa")))
        reason = message.trimmed().toStdString();
    if (type != QtFatalMsg) return;
    std::cerr << "zelvo-chart: no window can be opened: " << reason << std::endl;
    std::_Exit(1);
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words = program::wordsOf(argc, argv);
    if (chart::tellsOfItself(words, "zelvo-chart", chart::clinicUsage())) return 0;
    chart::ChartCall clinic;
    std::string error;
    if (!chart::readClinic(words, clinic, error)) {
        std::cerr << "zelvo-chart: " << error << "\n" << chart::clinicUsage();
        return 2;
    }
    int count = 1;  // the words are read: none is left for the toolkit
    const QtMessageHandler usual = qInstallMessageHandler(lookingForDisplay);
    QApplication application(count, argv);
    qInstallMessageHandler(usual);
    QApplication::setApplicationName(QStringLiteral("zelvo-chart"));
    QApplication::setDesktopFileName(QStringLiteral("org.doctorzelvo.Chart"));
    chart::ChartWindow window(clinic, patients());
    window.show();
    return QApplication::exec();
}
