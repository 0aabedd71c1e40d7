#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <system_error>
#include <utility>

namespace zelvo::files {

/// A file of this machine that is open, and closed with the object. Programs that we start don't have it.
class OpenFile {
public:
    enum class For {
        Reading,
        ReadingNoLink,  ///< the file of that very name, not what a link leads to
        Changing,       ///< likewise
        Appending,      ///< likewise; made for this user alone where none stands
    };

    OpenFile() = default;
    /// Never waits, not even for whoever writes into a pipe of that name. Where it can't be had the object is
    /// false and `error` says why.
    OpenFile(const std::filesystem::path& path, For use, std::error_code& error);
    /// A new file for this user alone, under a name that nobody has, made of `beginning` and `ending`.
    static OpenFile makeNew(const std::filesystem::path& beginning, std::string_view ending,
                            std::filesystem::path& name, std::error_code& error);

    OpenFile(OpenFile&& other) noexcept : handle_(std::exchange(other.handle_, none)) {}
    OpenFile& operator=(OpenFile&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~OpenFile();

    explicit operator bool() const { return handle_ != none; }
    /// Its size; -1 when it is no plain file.
    std::int64_t size() const;
    /// True when nobody has a name for it any more.
    bool isGone() const;
    /// True when it is what the path names now.
    bool isAt(const std::filesystem::path& path) const;

    /// Locks it along with those who do likewise, once who has it alone has let go. A file system without
    /// locks does without.
    void lockShared() const;
    /// The same without a wait; false where somebody has it alone.
    bool tryLockShared() const;
    /// Locks it alone, without a wait; false where anybody else has it locked.
    bool tryLock() const;

    /// All of the bytes at once where the file is open for appending.
    std::error_code write(std::string_view bytes) const;
    /// Has what was written put on the disk.
    std::error_code settle() const;
    /// How many bytes came, 0 behind the end; nothing where it can't be read.
    std::optional<std::size_t> readAt(std::int64_t at, std::span<char> target) const;

private:
    static constexpr std::intptr_t none = -1;

    std::intptr_t handle_ = none;  // the system's own
};

/// Gives a file another name, at one go, in place of what stands there.
std::error_code moveOver(const std::filesystem::path& from, const std::filesystem::path& to);
/// Gives a file another name where nothing stands, else std::errc::file_exists.
std::error_code moveToNew(const std::filesystem::path& from, const std::filesystem::path& to);
/// Takes a file away, though it may be open.
std::error_code removeFile(const std::filesystem::path& path);
/// Makes one folder, for this user alone.
std::error_code makePrivateFolder(const std::filesystem::path& folder);
/// Has the folder's list of names put on the disk. Not every file system can; then it is done when the system
/// likes.
void settleNames(const std::filesystem::path& folder);

}  // namespace zelvo::files
