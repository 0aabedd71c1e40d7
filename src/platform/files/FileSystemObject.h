#pragma once

#include "screen/Components.h"

namespace zelvo::files {

/// The text files of this machine, for this user alone: what they hold are patients' data.
class FileSystemObject : public screen::FileSystemObject {
public:
    std::string fixedFolder(std::string_view name) override;
    bool folderExists(const std::string& path) override;
    void createFolder(const std::string& path) override;
    /// The file is UTF-8 with a byte order mark. A fault leaves what stood there before.
    void writeTextFile(const std::string& path, std::string_view text) override;
    void keepTextFile(const std::string& path, std::string_view text) override;
    std::vector<std::string> fileNames(const std::string& folder) override;
    std::string readTextFile(const std::string& path) override;
    void deleteFile(const std::string& path) override;
};

}  // namespace zelvo::files
