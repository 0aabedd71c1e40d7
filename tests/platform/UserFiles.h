#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "basics/Fault.h"
#include "basics/Paths.h"
#include "platform/files/SupportFile.h"
#include "platform/files/WholeFile.h"
#include "support/Machine.h"
#include "support/TestFolder.h"

namespace zelvo {

namespace fs = std::filesystem;

/// A home of its own for one test.
struct UserFiles : ::testing::Test {
    UserFiles() { testing::liveIn(home); }

    static auto entriesOf(const fs::path& folder) {
        return std::distance(fs::directory_iterator(folder), {});
    }
    static std::string faultOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const basics::Fault& fault) {
            return fault.what();
        }
        return "no fault";
    }

    const testing::TestFolder machine;
    const fs::path& home = machine.path;
    files::FileSystemObject files;
};

}  // namespace zelvo
