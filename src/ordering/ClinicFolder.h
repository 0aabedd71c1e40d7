#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "screen/Desktop.h"

namespace zelvo::ordering {

/// The machine's files, and the folder of this system in them. Throws Fault.
std::unique_ptr<screen::FileSystemObject> fileSystem(screen::Desktop& desktop);
std::string clinicFolder(screen::FileSystemObject& files);

/// "20240506090807" of "2024-05-06 09:08:07".
std::string timeDigits(const std::string& serverTime);
/// Makes a file of that name, or with "_2", "_3"… behind it where the name is taken. Throws Fault.
std::unique_ptr<screen::HeldFile> makeUnderFreeName(screen::FileSystemObject& files, const std::string& name,
                                                    std::string_view ending, const std::string& text);

/// Notes in the support record which file could not be had, and why. Called where its fault has been caught.
void noteFileTrouble(screen::Desktop& desktop, std::string_view what);

}  // namespace zelvo::ordering
