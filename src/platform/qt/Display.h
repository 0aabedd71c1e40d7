#pragma once

#include <QtCore/QString>
#include <string>

namespace zelvo::qt {

/// The display that windows can be shown on.
struct Display {
    /// What the toolkit has to be told to find it; "" where it finds it by itself.
    std::string platform;
    /// What is missing where there is none, in words for the host; "" where there is one.
    std::string missing;
};

/// Looks for a display without the toolkit, which would end the process where there is none.
Display findDisplay();

/// Whether another thread runs the main loop that the toolkit would run here: it would wait for the other's
/// end, and the window would never be drawn.
bool mainLoopRunsElsewhere();

/// Keeps this library in the process when its host lets go of it: the system goes on calling what the toolkit
/// has left with it.
void stayLoaded();

/// Where the toolkit's own words in Korean are.
QString translationsFolder();

/// What brings a Korean font to a machine that has none.
std::string koreanFontToInstall();

}  // namespace zelvo::qt
