#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/files/OpenFile.h"

namespace zelvo::files {

/// Makes the folder and those above it, for this user alone. Nothing happens if it stands. Throws Fault.
void makeFolder(const std::filesystem::path& folder);

/// Whether a file is on the disk when its writing returns, or when the system gets to it: a killed program
/// loses neither, a power cut may lose the latter.
enum class OnDisk { Now, Later };

/// Writes a file for this user alone, whole or not at all: when it throws Fault the file that stood there
/// before still does.
void writeWholeFile(const std::filesystem::path& path, std::string_view bytes, OnDisk onDisk = OnDisk::Now);

/// The file's bytes: "" where none stands, nothing where it can't be read or is no plain file.
std::optional<std::string> readPlainFile(const std::filesystem::path& path);

/// Takes away the halves of files whose writers were killed; those that are just being written stay.
void clearHalfWritten(const std::filesystem::path& folder);

/// A file that is open and locked: nobody else can lock it while this lives, and the system lets go of it
/// when the program ends in whatever way.
class LockedFile {
public:
    /// Makes a file that stands whole, and locked, at once; nothing where the name is taken.
    static std::optional<LockedFile> make(const std::filesystem::path& path, std::string_view bytes,
                                          OnDisk onDisk);
    /// Locks one that stands; nothing where somebody else has, or where there is none. Throws Fault for what
    /// can't be opened or is no plain file; never waits for it.
    static std::optional<LockedFile> take(const std::filesystem::path& path);
    /// Whether somebody has locked one that he did not make.
    static bool isTaken(const std::filesystem::path& path);

    const std::filesystem::path& path() const { return path_; }
    std::string bytes() const;
    void remove() const;

private:
    LockedFile(std::filesystem::path path, OpenFile file) : path_(std::move(path)), file_(std::move(file)) {}

    std::filesystem::path path_;
    OpenFile file_;
};

}  // namespace zelvo::files
