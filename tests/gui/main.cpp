#include <gtest/gtest.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleFactory>

// All tests of this program share one application: on a screen of 1280 by 800 that nobody sees, or, with
// ZELVO_DISPLAY set, on the display that is there.
int main(int argc, char** argv) {
    const QTemporaryDir scratch;
    QFile screen(scratch.filePath(QStringLiteral("screen.json")));
    if (!screen.open(QIODevice::WriteOnly)) return 1;
    screen.write(R"({"screens": [{"name": "desk", "x": 0, "y": 0, "width": 1280, "height": 800,
                                  "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    screen.close();
    if (!qEnvironmentVariableIsSet("ZELVO_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toUtf8());
    const QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
