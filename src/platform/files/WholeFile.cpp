#include "platform/files/WholeFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

#include "basics/Fault.h"

namespace zelvo::files {
namespace {

std::string reason(int error) {
    switch (error) {
        case ENOSPC:
        case EDQUOT:
            return "디스크에 빈 공간이 없습니다.";
        case EACCES:
        case EPERM:
        case EROFS:
            return "쓸 권한이 없습니다.";
        case ENOENT:
            return "폴더가 없습니다.";
        case ENOTDIR:
        case EEXIST:
            return "같은 이름의 파일이 있습니다.";
        case EISDIR:
            return "같은 이름의 폴더가 있습니다.";
        case ENAMETOOLONG:
            return "이름이 너무 깁니다.";
        default:
            return "오류 번호 " + std::to_string(error) + ".";
    }
}

[[noreturn]] void throwUnwritten(const std::filesystem::path& path, int error) {
    throw basics::Fault("파일 " + path.string() + "에 기록하지 못했습니다. " + reason(error));
}

[[noreturn]] void throwUnread(const std::filesystem::path& path) {
    throw basics::Fault(path.string() + " 파일을 읽을 수 없습니다.");
}

constexpr std::string_view halfWritten = ".part";

/// A file that nobody has a name for any more.
bool isGone(int descriptor) {
    struct stat now {};
    return fstat(descriptor, &now) != 0 || now.st_nlink == 0;
}

/// A file that is not yet what it is to become: it goes away unless it is put in its place. It is locked, so
/// that whoever clears up after killed programs leaves it alone.
class PendingFile {
public:
    explicit PendingFile(const std::filesystem::path& target) : target_(target) {
        do {
            if (descriptor_ >= 0) close(descriptor_);  // cleared away before it was locked
            name_ = target.string() + ".XXXXXX" + std::string(halfWritten);
            // Readable by this user alone.
            descriptor_ = mkostemps(name_.data(), static_cast<int>(halfWritten.size()), O_CLOEXEC);
            if (descriptor_ < 0) throwUnwritten(target_, errno);
            flock(descriptor_, LOCK_EX);  // a file system without locks does without
        } while (isGone(descriptor_));
    }
    ~PendingFile() {
        if (!placed_) unlink(name_.c_str());
        if (descriptor_ >= 0) close(descriptor_);
    }
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;

    void write(std::string_view bytes, OnDisk onDisk) {
        while (!bytes.empty()) {
            const auto count = ::write(descriptor_, bytes.data(), bytes.size());
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) throwUnwritten(target_, errno);
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
        if (onDisk == OnDisk::Now && fsync(descriptor_) != 0) throwUnwritten(target_, errno);
    }
    /// In place of what stands there.
    void place() {
        if (rename(name_.c_str(), target_.c_str()) != 0) throwUnwritten(target_, errno);
        placed_ = true;
    }
    /// Where nothing stands; false where something does.
    bool placeNew() {
        bool done = renameat2(AT_FDCWD, name_.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE) == 0;
        if (!done && (errno == EINVAL || errno == ENOSYS)) {  // not every file system can
            done = link(name_.c_str(), target_.c_str()) == 0;
            if (done) unlink(name_.c_str());
        }
        if (!done && errno != EEXIST) throwUnwritten(target_, errno);
        placed_ = done;
        return done;
    }
    int release() { return std::exchange(descriptor_, -1); }

private:
    const std::filesystem::path& target_;
    std::string name_;
    int descriptor_ = -1;
    bool placed_ = false;
};

/// Has the folder's list of names written to the disk. Not every file system can; then it writes it when it
/// likes.
void settleNames(const std::filesystem::path& folder) {
    const int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    fsync(descriptor);
    close(descriptor);
}

void requirePlain(const std::filesystem::path& path, int descriptor) {
    struct stat now {};
    if (fstat(descriptor, &now) != 0 || !S_ISREG(now.st_mode)) throwUnread(path);
}

/// The bytes of a file from its start. Throws Fault for what is no plain file.
std::string plainBytes(const std::filesystem::path& path, int descriptor) {
    requirePlain(path, descriptor);
    std::string bytes;
    std::array<char, 65536> block{};
    for (;;) {
        const auto count = pread(descriptor, block.data(), block.size(), static_cast<off_t>(bytes.size()));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throwUnread(path);
        if (count == 0) return bytes;
        bytes.append(block.data(), static_cast<std::size_t>(count));
    }
}

bool isFolder(const std::filesystem::path& path) {
    std::error_code none;
    return std::filesystem::is_directory(path, none);
}

}  // namespace

void makeFolder(const std::filesystem::path& folder) {
    if (folder.empty() || isFolder(folder)) return;
    if (folder.has_parent_path() && folder.parent_path() != folder) makeFolder(folder.parent_path());
    if (mkdir(folder.c_str(), S_IRWXU) == 0) return;
    const int error = errno;
    if (isFolder(folder)) return;  // someone else was quicker
    throw basics::Fault("폴더 " + folder.string() + "을(를) 만들지 못했습니다. " + reason(error));
}

void writeWholeFile(const std::filesystem::path& path, std::string_view bytes, OnDisk onDisk) {
    PendingFile file(path);
    file.write(bytes, onDisk);
    file.place();
    if (onDisk == OnDisk::Now) settleNames(path.parent_path());
}

std::optional<std::string> readPlainFile(const std::filesystem::path& path) {
    // Without a wait for whoever writes into a pipe of that name.
    const int descriptor = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) return errno == ENOENT ? std::optional<std::string>("") : std::nullopt;
    std::optional<std::string> bytes;
    try {
        bytes = plainBytes(path, descriptor);
    } catch (const basics::Fault&) {
        // Told by its absence.
    }
    close(descriptor);
    return bytes;
}

void clearHalfWritten(const std::filesystem::path& folder) {
    std::error_code none;
    for (std::filesystem::directory_iterator at(folder, none), end; !none && at != end; at.increment(none)) {
        if (!at->path().native().ends_with(halfWritten)) continue;
        try {
            if (const auto dead = LockedFile::take(at->path())) dead->remove();
        } catch (const basics::Fault&) {
            // Not one that a program of ours has left.
        }
    }
}

std::optional<LockedFile> LockedFile::make(const std::filesystem::path& path, std::string_view bytes) {
    PendingFile file(path);
    file.write(bytes, OnDisk::Now);
    if (!file.placeNew()) return std::nullopt;
    LockedFile made(path, file.release());
    settleNames(path.parent_path());
    return made;
}

std::optional<LockedFile> LockedFile::take(const std::filesystem::path& path) {
    // For writing as well: some file systems of a network lock nothing else.
    const int descriptor = open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC | O_NOFOLLOW);
    if (descriptor < 0 && errno == ENOENT) return std::nullopt;
    if (descriptor < 0) throwUnread(path);
    LockedFile taken(path, descriptor);
    requirePlain(path, descriptor);
    const bool refused = flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (refused || isGone(descriptor)) return std::nullopt;
    return taken;
}

LockedFile::~LockedFile() {
    if (descriptor_ >= 0) close(descriptor_);
}

std::string LockedFile::bytes() const {
    return plainBytes(path_, descriptor_);
}

void LockedFile::remove() const {
    if (unlink(path_.c_str()) != 0 && errno != ENOENT)
        throw basics::Fault(path_.string() + " 파일을 지울 수 없습니다.");
}

}  // namespace zelvo::files
