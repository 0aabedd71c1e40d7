#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QLibrary>
#include <QtCore/QLibraryInfo>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <cstring>

#include "platform/qt/Display.h"

namespace zelvo::qt {

namespace {

/// Whether the toolkit's part for this kind of display is there, with all the libraries that it needs itself:
/// where one is missing, the toolkit would end the process. `trouble` tells why a part can't be loaded.
bool loads(const QString& platform, QString& trouble) {
    QStringList folders =
        qEnvironmentVariable("QT_QPA_PLATFORM_PLUGIN_PATH").split(QLatin1Char(':'), Qt::SkipEmptyParts);
    folders << QLibraryInfo::path(QLibraryInfo::PluginsPath) + QLatin1String("/platforms");
    for (const QString& path :
         qEnvironmentVariable("QT_PLUGIN_PATH").split(QLatin1Char(':'), Qt::SkipEmptyParts))
        folders << path + QLatin1String("/platforms");
    for (const QString& folder : folders) {
        const QStringList parts =
            QDir(folder).entryList({QLatin1String("libq") + platform + QLatin1String("*.so")}, QDir::Files);
        for (const QString& part : parts) {
            QLibrary library(QDir(folder).filePath(part));
            if (library.load()) return true;
            trouble = library.errorString();
        }
    }
    return false;
}

bool reachesX() {
    if (!qEnvironmentVariableIsSet("DISPLAY")) return false;
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const bool reached = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return reached;
}

bool reachesWayland() {
    const QByteArray name = qgetenv("WAYLAND_DISPLAY");
    if (name.isEmpty()) return false;
    const QByteArray path = name.startsWith('/') ? name : qgetenv("XDG_RUNTIME_DIR") + '/' + name;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (static_cast<std::size_t>(path.size()) >= sizeof address.sun_path) return false;
    std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    const int line = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (line < 0) return false;
    const bool reached = connect(line, reinterpret_cast<const sockaddr*>(&address), sizeof address) ==
                         0;  // the system's own cast
    close(line);
    return reached;
}

bool reaches(const QString& platform) {
    if (platform == QLatin1String("xcb")) return reachesX();
    if (platform.startsWith(QLatin1String("wayland"))) return reachesWayland();
    return true;
}

bool usable(const QString& platform, QString& trouble) {
    return reaches(platform) && loads(platform, trouble);
}

std::string refusal(const std::string& reason, const QString& trouble) {
    const std::string text = "ZELVO can't open its window: " + reason;
    return trouble.isEmpty() ? text : text + " (" + trouble.toStdString() + ")";
}

}  // namespace

Display findDisplay() {
    QString trouble;
    const QString named = qEnvironmentVariable("QT_QPA_PLATFORM");
    // A platform is named with its options behind a colon; several stand behind one another.
    for (const QString& choice : named.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        if (usable(choice.section(QLatin1Char(':'), 0, 0), trouble)) return {};
    }
    if (!named.isEmpty())
        return {{}, refusal("no display of the kind " + named.toStdString() + " is there.", trouble)};
    for (const char* platform : {"xcb", "wayland"}) {
        if (usable(QLatin1String(platform), trouble)) return {platform, {}};
    }
    return {{}, refusal("no display can be reached.", trouble)};
}

// The loop is glib's, where the host has it.
bool mainLoopRunsElsewhere() {
    if (qEnvironmentVariableIsSet("QT_NO_GLIB")) return false;
    QLibrary glib(QStringLiteral("glib-2.0"), 0);
    // The library's own signatures; no context is the main one.
    const auto acquire = reinterpret_cast<int (*)(void*)>(glib.resolve("g_main_context_acquire"));
    const auto release = reinterpret_cast<void (*)(void*)>(glib.resolve("g_main_context_release"));
    if (!acquire || !release) return false;
    if (acquire(nullptr) == 0) return true;
    release(nullptr);
    return false;
}

// It is linked so.
void stayLoaded() {}

QString translationsFolder() {
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
}

std::string koreanFontToInstall() {
    return "Debian: fonts-nanum";
}

}  // namespace zelvo::qt
