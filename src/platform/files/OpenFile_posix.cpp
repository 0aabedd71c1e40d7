#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "platform/files/OpenFile.h"

namespace zelvo::files {
namespace {

/// What the last call failed by. A quota that is used up is a full disk to whoever writes.
std::error_code lastError() {
    return {errno == EDQUOT ? ENOSPC : errno, std::generic_category()};
}

std::error_code errorUnless(bool done) {
    return done ? std::error_code() : lastError();
}

int descriptor(std::intptr_t handle) {
    return static_cast<int>(handle);
}

int flagsFor(OpenFile::For use) {
    switch (use) {
        case OpenFile::For::Reading:
            return O_RDONLY;
        case OpenFile::For::ReadingNoLink:
            return O_RDONLY | O_NOFOLLOW;
        case OpenFile::For::Changing:
            // For writing as well: some file systems of a network lock nothing else.
            return O_RDWR | O_NOFOLLOW;
        case OpenFile::For::Appending:
            return O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW;
    }
    return O_RDONLY;
}

}  // namespace

OpenFile::OpenFile(const std::filesystem::path& path, For use, std::error_code& error)
    : handle_(::open(path.c_str(), flagsFor(use) | O_NONBLOCK | O_CLOEXEC, S_IRUSR | S_IWUSR)) {
    error = errorUnless(handle_ != none);
}

OpenFile OpenFile::makeNew(const std::filesystem::path& beginning, std::string_view ending,
                           std::filesystem::path& name, std::error_code& error) {
    std::string text = beginning.string() + ".XXXXXX" + std::string(ending);
    OpenFile made;
    made.handle_ = ::mkostemps(text.data(), static_cast<int>(ending.size()), O_CLOEXEC);
    error = errorUnless(made.handle_ != none);
    name = text;
    return made;
}

OpenFile::~OpenFile() {
    if (handle_ != none) ::close(descriptor(handle_));
}

std::int64_t OpenFile::size() const {
    struct stat about {};
    return ::fstat(descriptor(handle_), &about) == 0 && S_ISREG(about.st_mode) ? about.st_size : -1;
}

bool OpenFile::isGone() const {
    struct stat about {};
    return ::fstat(descriptor(handle_), &about) != 0 || about.st_nlink == 0;
}

bool OpenFile::isAt(const std::filesystem::path& path) const {
    struct stat there {};
    struct stat held {};
    return ::stat(path.c_str(), &there) == 0 && ::fstat(descriptor(handle_), &held) == 0 &&
           there.st_ino == held.st_ino;
}

void OpenFile::lockShared() const {
    while (::flock(descriptor(handle_), LOCK_SH) != 0 && errno == EINTR) {
    }
}

bool OpenFile::tryLockShared() const {
    return ::flock(descriptor(handle_), LOCK_SH | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

bool OpenFile::tryLock() const {
    return ::flock(descriptor(handle_), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

std::error_code OpenFile::write(std::string_view bytes) const {
    while (!bytes.empty()) {
        const auto count = ::write(descriptor(handle_), bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return lastError();
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return {};
}

std::error_code OpenFile::settle() const {
    return errorUnless(::fsync(descriptor(handle_)) == 0);
}

std::optional<std::size_t> OpenFile::readAt(std::int64_t at, std::span<char> target) const {
    for (;;) {
        const auto count = ::pread(descriptor(handle_), target.data(), target.size(), at);
        if (count >= 0) return static_cast<std::size_t>(count);
        if (errno != EINTR) return std::nullopt;
    }
}

std::error_code moveOver(const std::filesystem::path& from, const std::filesystem::path& to) {
    return errorUnless(::rename(from.c_str(), to.c_str()) == 0);
}

std::error_code moveToNew(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return {};
    if (errno != EINVAL && errno != ENOSYS) return lastError();
    // Not every file system can.
    if (::link(from.c_str(), to.c_str()) != 0) return lastError();
    ::unlink(from.c_str());
    return {};
}

std::error_code removeFile(const std::filesystem::path& path) {
    return errorUnless(::unlink(path.c_str()) == 0);
}

std::error_code makePrivateFolder(const std::filesystem::path& folder) {
    return errorUnless(::mkdir(folder.c_str(), S_IRWXU) == 0);
}

void settleNames(const std::filesystem::path& folder) {
    const int opened = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (opened < 0) return;
    ::fsync(opened);
    ::close(opened);
}

}  // namespace zelvo::files
