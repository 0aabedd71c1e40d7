#include <windows.h>

#include <QtCore/QtPlugin>

#include "platform/qt/Display.h"

// The toolkit is linked in, with its part for this kind of display and those for the pictures of web pages.
Q_IMPORT_PLUGIN(QWindowsIntegrationPlugin)
Q_IMPORT_PLUGIN(QGifPlugin)
Q_IMPORT_PLUGIN(QJpegPlugin)

namespace zelvo::qt {

// There is always one.
Display findDisplay() {
    return {};
}

// Each thread has its own messages here.
bool mainLoopRunsElsewhere() {
    return false;
}

void stayLoaded() {
    HMODULE self = nullptr;
    ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                         reinterpret_cast<LPCWSTR>(&stayLoaded), &self);
}

QString translationsFolder() {
    return QStringLiteral(":/doctorzelvo/words");
}

std::string koreanFontToInstall() {
    return "Settings, Time & language: Korean";
}

}  // namespace zelvo::qt
