#include "ordering/ClinicFolder.h"

#include <cstdint>

#include "basics/FileFault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"

namespace zelvo::ordering {

std::unique_ptr<screen::FileSystemObject> fileSystem(screen::Desktop& desktop) {
    return desktop.components().make<screen::FileSystemObject>();
}

std::string clinicFolder(screen::FileSystemObject& files) {
    return files.fixedFolder("zelvo");
}

std::string timeDigits(const std::string& serverTime) {
    return basics::removeAll(basics::removeAll(basics::removeBlanks(serverTime), "-"), ":");
}

std::unique_ptr<screen::HeldFile> makeUnderFreeName(screen::FileSystemObject& files, const std::string& name,
                                                    std::string_view ending, const std::string& text) {
    constexpr int most = 99;
    for (int number = 1; number <= most; ++number) {
        const std::string nth = number == 1 ? "" : "_" + basics::decimalText(std::int64_t{number});
        if (auto made = files.makeFile(name + nth + std::string(ending), text)) return made;
    }
    throw basics::Fault("no name is free");
}

void noteFileTrouble(screen::Desktop& desktop, std::string_view what) {
    std::string cause;
    try {
        throw;
    } catch (const basics::FileFault& fault) {
        cause = fault.cause();
    } catch (...) {
        // Its text may hold anything.
    }
    desktop.support().add("file " + std::string(what) + " [" + cause + "]");
}

}  // namespace zelvo::ordering
