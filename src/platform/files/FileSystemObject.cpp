#include "platform/files/FileSystemObject.h"

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

void FileSystemObject::deleteFile(const std::string& path) {
    std::error_code error;
    std::filesystem::remove(path, error);
    if (error) throw basics::Fault(path + " 파일을 지울 수 없습니다.");
}

}  // namespace zelvo::files
