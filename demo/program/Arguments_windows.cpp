#include "program/Arguments.h"

#include <windows.h>

#include <shellapi.h>

#include <filesystem>

namespace program {

// main()'s own words went through the machine's code page, which does not have every letter.
std::vector<std::string> wordsOf(int /*argc*/, char** /*argv*/) {
    int count = 0;
    LPWSTR* const wide = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::string> words;
    for (int i = 1; i < count; ++i) {
        const std::u8string text = std::filesystem::path(wide[i]).u8string();
        words.emplace_back(text.begin(), text.end());
    }
    ::LocalFree(wide);
    return words;
}

}  // namespace program
