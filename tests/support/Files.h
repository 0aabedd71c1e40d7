#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace zelvo::testing {

/// The bytes of a file, "" where none is.
inline std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace zelvo::testing
