#include "platform/console/CommandLine_windows.h"

#include "basics/Paths.h"

namespace zelvo::console {

namespace {

/// A word as the started program finds it again: in quotes, and backslashes doubled where a quote follows.
std::wstring quoted(const std::wstring& word) {
    std::wstring text = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t letter : word) {
        if (letter == L'"') text.append(backslashes + 1, L'\\');
        backslashes = letter == L'\\' ? backslashes + 1 : 0;
        text += letter;
    }
    return text.append(backslashes, L'\\') + L"\"";
}

}  // namespace

std::wstring commandLine(const std::vector<std::string>& arguments) {
    std::wstring line;
    for (const std::string& argument : arguments) {
        line += (line.empty() ? L"" : L" ") + quoted(basics::pathOf(argument).native());
    }
    return line;
}

}  // namespace zelvo::console
