// The sample chart: a window of its own with a few patients, which opens the component for one of them and
// keeps what the component sends back in that patient's record.
#include <QtCore/QFile>
#include <QtWidgets/QApplication>
#include <iostream>

#include "ChartWindow.h"

namespace {

std::vector<chart::Patient> patients() {
    QFile file(QStringLiteral(":/chart/patients.tsv"));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return chart::readPatients(file.readAll().toStdString());
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() == 1 && (words[0] == "--help" || words[0] == "-h")) {
        std::cout << chart::clinicUsage();
        return 0;
    }
    chart::ChartCall clinic;
    std::string error;
    if (!chart::readClinic(words, clinic, error)) {
        std::cerr << "zelvo-chart: " << error << "\n" << chart::clinicUsage();
        return 2;
    }
    int count = 1;  // the words are read: none is left for the toolkit
    QApplication application(count, argv);
    QApplication::setApplicationName(QStringLiteral("zelvo-chart"));
    chart::ChartWindow window(clinic, patients());
    window.show();
    return QApplication::exec();
}
