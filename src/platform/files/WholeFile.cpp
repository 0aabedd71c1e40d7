#include "platform/files/WholeFile.h"

#include <array>
#include <string>
#include <utility>

#include "basics/FileFault.h"
#include "basics/Paths.h"

namespace zelvo::files {
namespace {

using basics::textOf;

/// Why the system refused, in words where it is the user's to mend.
std::string reason(const std::error_code& error) {
    using enum std::errc;
    if (error == no_space_on_device) return "디스크에 빈 공간이 없습니다.";
    if (error == permission_denied || error == operation_not_permitted || error == read_only_file_system)
        return "쓸 권한이 없습니다.";
    if (error == no_such_file_or_directory) return "폴더가 없습니다.";
    if (error == not_a_directory || error == file_exists) return "같은 이름의 파일이 있습니다.";
    if (error == is_a_directory) return "같은 이름의 폴더가 있습니다.";
    if (error == filename_too_long) return "이름이 너무 깁니다.";
    return "오류 번호 " + std::to_string(error.value()) + ".";
}

void requireWritten(const std::filesystem::path& path, const std::error_code& error) {
    if (!error) return;
    throw basics::FileFault("파일 " + textOf(path) + "에 기록하지 못했습니다. " + reason(error),
                            reason(error));
}

[[noreturn]] void throwUnread(const std::filesystem::path& path) {
    throw basics::FileFault(textOf(path) + " 파일을 읽을 수 없습니다.", "읽을 수 없습니다.");
}

constexpr std::string_view halfWritten = ".part";

/// A file that is not yet what it is to become: it goes away unless it is put in its place. It is locked, so
/// that whoever clears up after killed programs leaves it alone.
class PendingFile {
public:
    explicit PendingFile(const std::filesystem::path& target) : target_(target) {
        do {
            std::error_code error;
            file_ = OpenFile::makeNew(target_, halfWritten, name_, error);
            requireWritten(target_, error);
            file_.lockShared();
        } while (file_.isGone());  // cleared away before it was locked
    }
    ~PendingFile() {
        if (!placed_) removeFile(name_);
    }
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;

    void write(std::string_view bytes, OnDisk onDisk) {
        requireWritten(target_, file_.write(bytes));
        if (onDisk == OnDisk::Now) requireWritten(target_, file_.settle());
    }
    /// In place of what stands there.
    void place() {
        requireWritten(target_, moveOver(name_, target_));
        placed_ = true;
    }
    /// Where nothing stands; false where something does.
    bool placeNew() {
        const std::error_code error = moveToNew(name_, target_);
        if (error != std::errc::file_exists) requireWritten(target_, error);
        placed_ = !error;
        return placed_;
    }
    OpenFile release() { return std::move(file_); }

private:
    const std::filesystem::path& target_;
    std::filesystem::path name_;
    OpenFile file_;
    bool placed_ = false;
};

void requirePlain(const std::filesystem::path& path, const OpenFile& file) {
    if (file.size() < 0) throwUnread(path);
}

/// The bytes of a file from its start. Throws Fault for what is no plain file.
std::string plainBytes(const std::filesystem::path& path, const OpenFile& file) {
    requirePlain(path, file);
    std::string bytes;
    std::array<char, 65536> block{};
    for (;;) {
        const auto count = file.readAt(static_cast<std::int64_t>(bytes.size()), block);
        if (!count) throwUnread(path);
        if (*count == 0) return bytes;
        bytes.append(block.data(), *count);
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
    const std::error_code error = makePrivateFolder(folder);
    if (!error || isFolder(folder)) return;  // someone else was quicker
    throw basics::FileFault("폴더 " + textOf(folder) + "을(를) 만들지 못했습니다. " + reason(error),
                            reason(error));
}

void writeWholeFile(const std::filesystem::path& path, std::string_view bytes, OnDisk onDisk) {
    PendingFile file(path);
    file.write(bytes, onDisk);
    file.place();
    if (onDisk == OnDisk::Now) settleNames(path.parent_path());
}

std::optional<std::string> readPlainFile(const std::filesystem::path& path) {
    std::error_code error;
    const OpenFile file(path, OpenFile::For::Reading, error);
    if (!file)
        return error == std::errc::no_such_file_or_directory ? std::optional<std::string>("") : std::nullopt;
    try {
        return plainBytes(path, file);
    } catch (const basics::Fault&) {
        return std::nullopt;
    }
}

void clearHalfWritten(const std::filesystem::path& folder) {
    std::error_code none;
    for (std::filesystem::directory_iterator at(folder, none), end; !none && at != end; at.increment(none)) {
        if (!textOf(at->path()).ends_with(halfWritten)) continue;
        try {
            if (const auto dead = LockedFile::take(at->path())) dead->remove();
        } catch (const basics::Fault&) {
            // Not one that a program of ours has left.
        }
    }
}

std::optional<LockedFile> LockedFile::make(const std::filesystem::path& path, std::string_view bytes,
                                           OnDisk onDisk) {
    PendingFile file(path);
    file.write(bytes, onDisk);
    if (!file.placeNew()) return std::nullopt;
    LockedFile made(path, file.release());
    if (onDisk == OnDisk::Now) settleNames(path.parent_path());
    return made;
}

std::optional<LockedFile> LockedFile::take(const std::filesystem::path& path) {
    std::error_code error;
    OpenFile file(path, OpenFile::For::Changing, error);
    if (error == std::errc::no_such_file_or_directory) return std::nullopt;
    if (!file) throwUnread(path);
    requirePlain(path, file);
    if (!file.tryLock() || file.isGone()) return std::nullopt;
    return LockedFile(path, std::move(file));
}

bool LockedFile::isTaken(const std::filesystem::path& path) {
    std::error_code error;
    const OpenFile file(path, OpenFile::For::Changing, error);
    return file && !file.tryLockShared();
}

std::string LockedFile::bytes() const {
    return plainBytes(path_, file_);
}

void LockedFile::remove() const {
    const std::error_code error = removeFile(path_);
    if (error && error != std::errc::no_such_file_or_directory)
        throw basics::FileFault(textOf(path_) + " 파일을 지울 수 없습니다.", reason(error));
}

}  // namespace zelvo::files
