#include "platform/files/OpenFile.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <string>

#include "platform/files/PrivateAccess_windows.h"

namespace zelvo::files {
namespace {

std::error_code lastError() {
    return {static_cast<int>(::GetLastError()), std::system_category()};
}

std::error_code errorUnless(bool done) {
    return done ? std::error_code() : lastError();
}

HANDLE system(std::intptr_t handle) {
    return reinterpret_cast<HANDLE>(handle);  // the system's own type
}

// Everybody may read, write, rename and delete meanwhile: who may not is told by the lock.
constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD noLink = FILE_FLAG_OPEN_REPARSE_POINT;

/// Behind the end of every file, for the system would keep others from reading what is locked.
OVERLAPPED lockedPlace() {
    OVERLAPPED place{};
    place.OffsetHigh = 0x7FFFFFFF;
    return place;
}

/// False where the lock of another keeps it from that.
bool locksNow(std::intptr_t handle, DWORD kind) {
    OVERLAPPED place = lockedPlace();
    return ::LockFileEx(system(handle), kind | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) ||
           (::GetLastError() != ERROR_LOCK_VIOLATION && ::GetLastError() != ERROR_IO_PENDING);
}

std::intptr_t opened(const std::filesystem::path& path, OpenFile::For use) {
    HANDLE handle = INVALID_HANDLE_VALUE;
    switch (use) {
        case OpenFile::For::Reading:
            handle = ::CreateFileW(path.c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING, 0, nullptr);
            break;
        case OpenFile::For::ReadingNoLink:
            handle =
                ::CreateFileW(path.c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING, noLink, nullptr);
            break;
        case OpenFile::For::Changing:
            handle = ::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, shared, nullptr, OPEN_EXISTING,
                                   noLink, nullptr);
            break;
        case OpenFile::For::Appending: {
            PrivateAccess user;
            handle = ::CreateFileW(path.c_str(), FILE_APPEND_DATA | FILE_READ_ATTRIBUTES | SYNCHRONIZE,
                                   shared, user.attributes(), OPEN_ALWAYS, noLink, nullptr);
            break;
        }
    }
    return reinterpret_cast<std::intptr_t>(handle);
}

/// Does what a virus scanner or an indexer that looks at a new file keeps from being done for a moment.
std::error_code patiently(const std::function<bool()>& act) {
    constexpr int tries = 50;
    constexpr DWORD pause = 20;
    for (int left = tries; left > 0; --left) {
        if (act()) return {};
        const DWORD error = ::GetLastError();
        if (error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED) return lastError();
        ::Sleep(pause);
        ::SetLastError(error);
    }
    return lastError();
}

/// A name that no program gives a second time.
std::filesystem::path freeName(const std::filesystem::path& beginning, std::string_view ending) {
    static std::atomic<unsigned> count = 0;
    std::filesystem::path name = beginning;
    name += "." + std::to_string(::GetCurrentProcessId()) + "-" + std::to_string(::GetTickCount64()) + "-" +
            std::to_string(++count) + std::string(ending);
    return name;
}

}  // namespace

OpenFile::OpenFile(const std::filesystem::path& path, For use, std::error_code& error)
    : handle_(opened(path, use)) {
    error = errorUnless(handle_ != none);
}

OpenFile OpenFile::makeNew(const std::filesystem::path& beginning, std::string_view ending,
                           std::filesystem::path& name, std::error_code& error) {
    PrivateAccess user;
    OpenFile made;
    do {
        name = freeName(beginning, ending);
        made.handle_ = reinterpret_cast<std::intptr_t>(::CreateFileW(
            name.c_str(), GENERIC_READ | GENERIC_WRITE, shared, user.attributes(), CREATE_NEW, 0, nullptr));
        error = errorUnless(made.handle_ != none);
    } while (error.value() == ERROR_FILE_EXISTS);
    return made;
}

OpenFile::~OpenFile() {
    if (handle_ != none) ::CloseHandle(system(handle_));
}

std::int64_t OpenFile::size() const {
    BY_HANDLE_FILE_INFORMATION about{};
    constexpr DWORD other = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_DEVICE;
    if (::GetFileType(system(handle_)) != FILE_TYPE_DISK ||
        !::GetFileInformationByHandle(system(handle_), &about) || (about.dwFileAttributes & other) != 0)
        return -1;
    return (static_cast<std::int64_t>(about.nFileSizeHigh) << 32) | about.nFileSizeLow;
}

bool OpenFile::isGone() const {
    FILE_STANDARD_INFO about{};
    return !::GetFileInformationByHandleEx(system(handle_), FileStandardInfo, &about, sizeof about) ||
           about.DeletePending || about.NumberOfLinks == 0;
}

bool OpenFile::isAt(const std::filesystem::path& path) const {
    std::error_code error;
    const OpenFile there(path, For::ReadingNoLink, error);
    BY_HANDLE_FILE_INFORMATION one{}, other{};
    return there && ::GetFileInformationByHandle(system(there.handle_), &one) &&
           ::GetFileInformationByHandle(system(handle_), &other) &&
           one.dwVolumeSerialNumber == other.dwVolumeSerialNumber &&
           one.nFileIndexHigh == other.nFileIndexHigh && one.nFileIndexLow == other.nFileIndexLow;
}

void OpenFile::lockShared() const {
    OVERLAPPED place = lockedPlace();
    ::LockFileEx(system(handle_), 0, 0, 1, 0, &place);
}

bool OpenFile::tryLockShared() const {
    return locksNow(handle_, 0);
}

bool OpenFile::tryLock() const {
    return locksNow(handle_, LOCKFILE_EXCLUSIVE_LOCK);
}

std::error_code OpenFile::write(std::string_view bytes) const {
    constexpr std::size_t most = std::size_t{1} << 30;
    while (!bytes.empty()) {
        DWORD count = 0;
        if (!::WriteFile(system(handle_), bytes.data(), static_cast<DWORD>(std::min(bytes.size(), most)),
                         &count, nullptr))
            return lastError();
        bytes.remove_prefix(count);
    }
    return {};
}

std::error_code OpenFile::settle() const {
    return errorUnless(::FlushFileBuffers(system(handle_)) != FALSE);
}

std::optional<std::size_t> OpenFile::readAt(std::int64_t at, std::span<char> target) const {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(at & 0xFFFFFFFF);
    place.OffsetHigh = static_cast<DWORD>(at >> 32);
    DWORD count = 0;
    if (::ReadFile(system(handle_), target.data(), static_cast<DWORD>(target.size()), &count, &place))
        return count;
    return ::GetLastError() == ERROR_HANDLE_EOF ? std::optional<std::size_t>(0) : std::nullopt;
}

std::error_code moveOver(const std::filesystem::path& from, const std::filesystem::path& to) {
    return patiently([&] {
        return ::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) !=
               FALSE;
    });
}

std::error_code moveToNew(const std::filesystem::path& from, const std::filesystem::path& to) {
    return patiently(
        [&] { return ::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH) != FALSE; });
}

// What is open keeps its name until it is closed: it gets one that stands in nobody's way.
std::error_code removeFile(const std::filesystem::path& path) {
    const std::filesystem::path away = freeName(path, ".part");
    const std::error_code error = moveToNew(path, away);
    return error ? error : patiently([&] { return ::DeleteFileW(away.c_str()) != FALSE; });
}

std::error_code makePrivateFolder(const std::filesystem::path& folder) {
    PrivateAccess user;
    return errorUnless(::CreateDirectoryW(folder.c_str(), user.attributes()) != FALSE);
}

// A name that is given is written through by the call that gives it.
void settleNames(const std::filesystem::path& /*folder*/) {}

}  // namespace zelvo::files
