#include "ordering/UnsettledSends.h"

#include <algorithm>

#include "basics/Numbers.h"
#include "basics/Text.h"

namespace zelvo::ordering {

namespace {

std::unique_ptr<screen::FileSystemObject> fileSystem(screen::Desktop& desktop) {
    return desktop.components().make<screen::FileSystemObject>("Scripting.FileSystemObject");
}

std::string path(screen::FileSystemObject& files) {
    return files.fixedFolder("zelvo") + "/unsettled.txt";
}

/// "17 2024-05-06 09:08:07"
std::string lineOf(std::int32_t DTR_PK, const std::string& serverTime) {
    return basics::decimalText(std::int64_t{DTR_PK}) + " " + serverTime;
}

}  // namespace

std::vector<std::string> UnsettledSends::lines() const {
    const auto files = fileSystem(desktop_);
    std::vector<std::string> all = basics::split(files->readTextFile(path(*files)), basics::lineBreak);
    std::erase(all, "");
    return all;
}

void UnsettledSends::write(const std::vector<std::string>& lines) const {
    const auto files = fileSystem(desktop_);
    if (lines.empty()) return files->deleteFile(path(*files));
    const std::string folder = files->fixedFolder("zelvo");
    if (!files->folderExists(folder)) files->createFolder(folder);
    files->writeTextFile(path(*files), basics::join(lines, basics::lineBreak));
}

std::vector<std::string> UnsettledSends::of(std::int32_t DTR_PK) const {
    const std::string doctor = lineOf(DTR_PK, "");
    std::vector<std::string> times;
    for (const std::string& line : lines()) {
        if (line.starts_with(doctor)) times.push_back(line.substr(doctor.size()));
    }
    return times;
}

void UnsettledSends::add(std::int32_t DTR_PK, const std::string& serverTime) const {
    std::vector<std::string> all = lines();
    all.push_back(lineOf(DTR_PK, serverTime));
    write(all);
}

void UnsettledSends::settle(std::int32_t DTR_PK, const std::string& serverTime) const {
    std::vector<std::string> all = lines();
    std::erase(all, lineOf(DTR_PK, serverTime));
    write(all);
}

}  // namespace zelvo::ordering
