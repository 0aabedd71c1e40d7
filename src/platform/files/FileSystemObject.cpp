#include "platform/files/FileSystemObject.h"

#include <fstream>

#include "basics/Fault.h"
#include "basics/Utf8.h"
#include "platform/files/UserFolders.h"
#include "platform/files/WholeFile.h"

namespace zelvo::files {

std::string FileSystemObject::fixedFolder(std::string_view name) {
    return (dataFolder() / name).string();
}

bool FileSystemObject::folderExists(const std::string& path) {
    std::error_code none;
    return std::filesystem::is_directory(path, none);
}

void FileSystemObject::createFolder(const std::string& path) {
    makeFolder(path);
}

void FileSystemObject::writeTextFile(const std::string& path, std::string_view text) {
    writeWholeFile(path, "\uFEFF" + basics::cleanUtf8(text));
}

void FileSystemObject::keepTextFile(const std::string& path, std::string_view text) {
    writeWholeFile(path, "\uFEFF" + basics::cleanUtf8(text), OnDisk::Later);
}

std::vector<std::string> FileSystemObject::fileNames(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code none;
        if (entry->is_regular_file(none)) names.push_back(entry->path().filename().string());
    }
    if (error && error != std::errc::no_such_file_or_directory)
        throw basics::Fault(folder + " 폴더를 읽을 수 없습니다.");
    return names;
}

std::string FileSystemObject::readTextFile(const std::string& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    if (error == std::errc::no_such_file_or_directory) return {};
    std::string bytes(error ? 0 : static_cast<std::size_t>(size), '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (error || !file) throw basics::Fault(path + " 파일을 읽을 수 없습니다.");
    std::string text = basics::cleanUtf8(bytes);
    constexpr std::string_view mark = "\uFEFF";
    if (text.starts_with(mark)) text.erase(0, mark.size());
    return text;
}

void FileSystemObject::deleteFile(const std::string& path) {
    std::error_code error;
    std::filesystem::remove(path, error);
    if (error) throw basics::Fault(path + " 파일을 지울 수 없습니다.");
}

}  // namespace zelvo::files
