#include "platform/files/SupportFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <string>

#include "basics/Dates.h"
#include "basics/Utf8.h"
#include "platform/files/WholeFile.h"

namespace zelvo::files {
namespace {

constexpr const char *name = "support.log", *formerName = "support.1.log";
constexpr off_t mostBytes = 1 << 20;
constexpr std::size_t longestLine = 500, shownBytes = 4096;

/// An open file; -1 when it can't be had. A pipe in its place does not hold anybody up.
class Descriptor {
public:
    Descriptor(const std::filesystem::path& path, int flags)
        : number_(::open(path.c_str(), flags | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, S_IRUSR | S_IWUSR)) {}
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const { return number_; }
    /// Its size, -1 when it is no plain file.
    off_t size() const {
        struct stat about {};
        return number_ >= 0 && ::fstat(number_, &about) == 0 && S_ISREG(about.st_mode) ? about.st_size : -1;
    }

private:
    int number_;
};

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
    {
        const Descriptor file(path, O_RDONLY);
        if (file.size() + static_cast<off_t>(line.size()) > mostBytes &&
            ::flock(file.get(), LOCK_EX | LOCK_NB) == 0) {
            struct stat there {};
            struct stat held {};
            // Another program may have been quicker.
            if (::stat(path.c_str(), &there) == 0 && ::fstat(file.get(), &held) == 0 &&
                there.st_ino == held.st_ino)
                ::rename(path.c_str(), (folder_ / formerName).c_str());
        }
    }
    const Descriptor file(path, O_WRONLY | O_APPEND | O_CREAT);
    if (file.size() >= 0) [[maybe_unused]]
        const auto written = ::write(file.get(), line.data(), line.size());
}

std::string SupportFile::lastLines() const {
    const std::lock_guard lock(mutex_);
    const Descriptor file(folder_ / name, O_RDONLY);
    const off_t size = file.size();
    if (size <= 0) return {};
    std::string text(std::min(static_cast<std::size_t>(size), shownBytes), '\0');
    const ssize_t got = ::pread(file.get(), text.data(), text.size(), size - static_cast<off_t>(text.size()));
    text.resize(static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    // The first line may have been cut.
    if (static_cast<std::size_t>(size) > text.size()) text.erase(0, text.find('\n') + 1);
    return basics::cleanUtf8(text);
}

}  // namespace zelvo::files
