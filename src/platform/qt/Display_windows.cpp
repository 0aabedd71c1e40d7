#include "platform/qt/Display.h"

#include <windows.h>

#include <QtCore/QtPlugin>

// The toolkit is linked in, with its part for this kind of display and those for the pictures of web pages.
Q_IMPORT_PLUGIN(QWindowsIntegrationPlugin)
Q_IMPORT_PLUGIN(QGifPlugin)
Q_IMPORT_PLUGIN(QJpegPlugin)

namespace zelvo::qt {

// There is always one. The toolkit would say for the whole process that it draws for screens of every
// resolution, and the windows of a chart that Windows enlarges would shrink: what the chart has chosen stays.
Display findDisplay() {
    const DPI_AWARENESS_CONTEXT chosen = ::GetThreadDpiAwarenessContext();
    if (::AreDpiAwarenessContextsEqual(chosen, DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2)) return {};
    return {"windows:dpiawareness=" + std::to_string(::GetAwarenessFromDpiAwarenessContext(chosen)), ""};
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
