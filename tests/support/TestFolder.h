#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <utility>

#include "basics/Paths.h"
#include "platform/files/FileSystemObject.h"
#include "screen/Desktop.h"
#include "support/Files.h"
#include "support/Machine.h"

namespace zelvo::testing {

/// A path that nothing stands at. A program that was killed may have left others.
inline std::filesystem::path freshPath(const std::string& ending = "") {
    namespace fs = std::filesystem;
    static const std::string run = std::to_string(std::random_device{}());
    static int number = 0;
    return fs::absolute(scratchFolder()) / ("zelvo-test-" + run + "-" + std::to_string(++number) + ending);
}

/// A folder of its own for one test, gone with the object.
class TestFolder {
public:
    TestFolder() { std::filesystem::create_directory(path); }
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
            if (entry.is_regular_file())
                all[basics::textOf(entry.path().filename())] = contentOf(entry.path());
        }
        return all;
    }

    const std::filesystem::path path = freshPath();
};

/// The real files, in such a folder.
class FolderFiles : public files::FileSystemObject {
public:
    explicit FolderFiles(std::shared_ptr<TestFolder> machine) : machine_(std::move(machine)) {}
    std::string fixedFolder(std::string_view name) override { return basics::textOf(machine_->path / name); }

private:
    std::shared_ptr<TestFolder> machine_;
};

inline void standIn(const std::shared_ptr<TestFolder>& machine, screen::Desktop& desktop) {
    desktop.components().add("Scripting.FileSystemObject",
                             [machine] { return std::make_unique<FolderFiles>(machine); });
}

}  // namespace zelvo::testing
