#include "platform/files/FileSystemObject.h"

#include <algorithm>
#include <optional>

#include "basics/Fault.h"
#include "basics/Paths.h"
#include "basics/Utf8.h"
#include "platform/files/UserFolders.h"
#include "platform/files/WholeFile.h"

namespace zelvo::files {
namespace {

using basics::pathOf;

constexpr std::string_view byteOrderMark = "\uFEFF";

std::string bytesOf(std::string_view text) {
    return std::string(byteOrderMark) + basics::cleanUtf8(text);
}

std::string textOf(const std::string& bytes) {
    std::string text = basics::cleanUtf8(bytes);
    if (text.starts_with(byteOrderMark)) text.erase(0, byteOrderMark.size());
    return text;
}

class HeldFile : public screen::HeldFile {
public:
    explicit HeldFile(LockedFile file) : file_(std::move(file)) {}
    std::string path() const override { return basics::textOf(file_.path()); }
    std::string text() const override { return textOf(file_.bytes()); }
    void remove() override { file_.remove(); }

private:
    LockedFile file_;
};

std::unique_ptr<screen::HeldFile> held(std::optional<LockedFile> file) {
    return file ? std::make_unique<HeldFile>(std::move(*file)) : nullptr;
}

}  // namespace

std::string FileSystemObject::fixedFolder(std::string_view name) {
    return basics::textOf(dataFolder() / pathOf(name));
}

void FileSystemObject::createFolder(const std::string& path) {
    makeFolder(pathOf(path));
}

std::vector<std::string> FileSystemObject::namesIn(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator at(pathOf(folder), error), end; !error && at != end;
         at.increment(error)) {
        names.push_back(basics::textOf(at->path().filename()));
    }
    const bool none = error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
    if (error && !none) throw basics::Fault(folder + " 폴더를 읽을 수 없습니다.");
    std::sort(names.begin(), names.end());
    return names;
}

std::unique_ptr<screen::HeldFile> FileSystemObject::makeFile(const std::string& path, std::string_view text) {
    // An empty one only holds a name, and nobody waits for the disk.
    return held(LockedFile::make(pathOf(path), bytesOf(text), text.empty() ? OnDisk::Later : OnDisk::Now));
}

std::unique_ptr<screen::HeldFile> FileSystemObject::holdFile(const std::string& path) {
    return held(LockedFile::take(pathOf(path)));
}

bool FileSystemObject::isHeldByFinder(const std::string& path) {
    return LockedFile::isTaken(pathOf(path));
}

void FileSystemObject::keepTextFile(const std::string& path, std::string_view text) {
    writeWholeFile(pathOf(path), bytesOf(text), OnDisk::Later);
}

std::string FileSystemObject::readTextFile(const std::string& path) {
    const auto bytes = readPlainFile(pathOf(path));
    if (!bytes) throw basics::Fault(path + " 파일을 읽을 수 없습니다.");
    return textOf(*bytes);
}

void FileSystemObject::deleteFile(const std::string& path) {
    const std::error_code error = removeFile(pathOf(path));
    const bool none = error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
    if (error && !none) throw basics::Fault(path + " 파일을 지울 수 없습니다.");
}

void FileSystemObject::clearHalfWritten(const std::string& folder) {
    files::clearHalfWritten(pathOf(folder));
}

}  // namespace zelvo::files
