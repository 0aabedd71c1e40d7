#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "platform/files/FileSystemObject.h"
#include "screen/Desktop.h"
#include "support/Files.h"

namespace zelvo::testing {

/// A folder of its own for one test, gone with the object.
class TestFolder {
public:
    TestFolder() {
        // Every file waits for the disk; a test need not.
        const std::filesystem::path memory = "/dev/shm";
        const auto base =
            ::access(memory.c_str(), W_OK) == 0 ? memory : std::filesystem::temp_directory_path();
        std::string name = (base / "zelvo-test-XXXXXX").string();
        path = ::mkdtemp(name.data());
    }
    ~TestFolder() {
        std::error_code none;
        std::filesystem::remove_all(path, none);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    /// The plain files in a folder within, by their names.
    std::map<std::string, std::string> files(const std::string& folder) const {
        std::map<std::string, std::string> all;
        std::error_code none;
        for (const auto& entry : std::filesystem::directory_iterator(path / folder, none)) {
            if (entry.is_regular_file()) all[entry.path().filename().string()] = contentOf(entry.path());
        }
        return all;
    }

    std::filesystem::path path;
};

/// The real files, in such a folder.
class FolderFiles : public files::FileSystemObject {
public:
    explicit FolderFiles(std::shared_ptr<TestFolder> machine) : machine_(std::move(machine)) {}
    std::string fixedFolder(std::string_view name) override { return (machine_->path / name).string(); }

private:
    std::shared_ptr<TestFolder> machine_;
};

inline void standIn(const std::shared_ptr<TestFolder>& machine, screen::Desktop& desktop) {
    desktop.components().add("Scripting.FileSystemObject",
                             [machine] { return std::make_unique<FolderFiles>(machine); });
}

}  // namespace zelvo::testing
