#include "platform/files/WholeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>

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

/// A file that is not yet what it is to become: it goes away unless it is put in its place.
class PendingFile {
public:
    explicit PendingFile(const std::filesystem::path& target)
        : target_(target), name_(target.string() + ".XXXXXX") {
        descriptor_ = mkostemp(name_.data(), O_CLOEXEC);  // readable by this user alone
        if (descriptor_ < 0) throwUnwritten(target_, errno);
    }
    ~PendingFile() {
        if (descriptor_ >= 0) close(descriptor_);
        if (!placed_) unlink(name_.c_str());
    }
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;

    void write(std::string_view bytes) {
        while (!bytes.empty()) {
            const auto count = ::write(descriptor_, bytes.data(), bytes.size());
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) throwUnwritten(target_, errno);
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
    }
    void place(OnDisk onDisk) {
        if (onDisk == OnDisk::Now && fsync(descriptor_) != 0) throwUnwritten(target_, errno);
        const int closed = close(descriptor_);
        descriptor_ = -1;
        if (closed != 0 || rename(name_.c_str(), target_.c_str()) != 0) throwUnwritten(target_, errno);
        placed_ = true;
    }

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
    file.write(bytes);
    file.place(onDisk);
    if (onDisk == OnDisk::Now) settleNames(path.parent_path());
}

}  // namespace zelvo::files
