#pragma once

#include "screen/Components.h"

namespace zelvo::files {

/// The text files of this machine, UTF-8 with a byte order mark, for this user alone: what they hold are
/// patients' data.
class FileSystemObject : public screen::FileSystemObject {
public:
    std::string fixedFolder(std::string_view name) override;
    void createFolder(const std::string& path) override;
    std::vector<std::string> namesIn(const std::string& folder) override;
    std::unique_ptr<screen::HeldFile> makeFile(const std::string& path, std::string_view text) override;
    std::unique_ptr<screen::HeldFile> holdFile(const std::string& path) override;
    bool isHeldByFinder(const std::string& path) override;
    void keepTextFile(const std::string& path, std::string_view text) override;
    std::string readTextFile(const std::string& path) override;
    void deleteFile(const std::string& path) override;
    void clearHalfWritten(const std::string& folder) override;
};

}  // namespace zelvo::files
