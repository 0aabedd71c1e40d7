#include "platform/files/SupportFile.h"

#include <algorithm>
#include <string>

#include "basics/Dates.h"
#include "basics/Utf8.h"
#include "platform/files/OpenFile.h"
#include "platform/files/WholeFile.h"

namespace zelvo::files {
namespace {

constexpr const char *name = "support.log", *formerName = "support.1.log";
constexpr std::int64_t mostBytes = 1 << 20;
constexpr std::size_t longestLine = 500, shownBytes = 4096;

/// One line, whatever came: control characters would make it two.
std::string asLine(std::string_view text) {
    std::string line = basics::dateTimeText(basics::now()) + " " + basics::cleanUtf8(text);
    std::replace_if(
        line.begin(), line.end(), [](unsigned char c) { return c < 0x20; }, ' ');
    if (line.size() > longestLine) line = basics::cleanUtf8(line.substr(0, longestLine));
    return line + "\n";
}

}  // namespace

void SupportFile::add(std::string_view line) noexcept {
    try {
        const std::lock_guard lock(mutex_);
        write(asLine(line));
    } catch (const std::exception&) {
        // Whoever is in trouble already gets no more of it from here.
    }
}

/// Two programs may write at once: a line goes out whole, at the end, and one of them makes the new file.
void SupportFile::write(const std::string& line) const {
    makeFolder(folder_);
    const std::filesystem::path path = folder_ / name;
    std::error_code error;
    {
        const OpenFile file(path, OpenFile::For::ReadingNoLink, error);
        // Another program may have been quicker.
        if (file && file.size() + static_cast<std::int64_t>(line.size()) > mostBytes && file.tryLock() &&
            file.isAt(path))
            moveOver(path, folder_ / formerName);
    }
    const OpenFile file(path, OpenFile::For::Appending, error);
    if (file && file.size() >= 0) file.write(line);
}

std::string SupportFile::lastLines() const {
    const std::lock_guard lock(mutex_);
    std::error_code error;
    const OpenFile file(folder_ / name, OpenFile::For::ReadingNoLink, error);
    const std::int64_t size = file ? file.size() : 0;
    if (size <= 0) return {};
    std::string text(std::min(static_cast<std::size_t>(size), shownBytes), '\0');
    const auto got = file.readAt(size - static_cast<std::int64_t>(text.size()), text);
    text.resize(got.value_or(0));
    // The first line may have been cut.
    if (static_cast<std::size_t>(size) > text.size()) text.erase(0, text.find('\n') + 1);
    return basics::cleanUtf8(text);
}

}  // namespace zelvo::files
