#include "platform/console/System.h"

#include <windows.h>

#include <array>
#include <cstdlib>

#include "basics/Fault.h"
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

std::wstring commandLine(const std::vector<std::string>& arguments) {
    std::wstring line;
    for (const std::string& argument : arguments) {
        line += (line.empty() ? L"" : L" ") + quoted(basics::pathOf(argument).native());
    }
    return line;
}

}  // namespace

bool prepareTerminal() {
    ::SetConsoleOutputCP(CP_UTF8);
    ::SetConsoleCP(CP_UTF8);
    DWORD mode = 0;
    return ::GetConsoleMode(::GetStdHandle(STD_INPUT_HANDLE), &mode) != FALSE;
}

std::string besideThisProgram(const std::string& name) {
    std::array<wchar_t, 32768> self{};
    const DWORD length = ::GetModuleFileNameW(nullptr, self.data(), static_cast<DWORD>(self.size()));
    if (length == 0) throw basics::Fault("this program's own folder is not known");
    const std::filesystem::path own(std::wstring(self.data(), length));
    return basics::textOf(own.parent_path() / basics::pathOf(name + ".exe"));
}

int runProgram(std::vector<std::string> arguments) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION started{};
    std::wstring line = commandLine(arguments);
    if (!::CreateProcessW(basics::pathOf(arguments[0]).c_str(), line.data(), nullptr, nullptr, TRUE, 0,
                          nullptr, nullptr, &start, &started))
        throw basics::Fault(arguments[0] + " can't be run: error " + std::to_string(::GetLastError()));
    ::WaitForSingleObject(started.hProcess, INFINITE);
    DWORD code = 0;
    ::GetExitCodeProcess(started.hProcess, &code);
    ::CloseHandle(started.hThread);
    ::CloseHandle(started.hProcess);
    return static_cast<int>(code);
}

// ExitProcess would have every library take its leave, and a driver may wait for a thread that is gone.
void endProgram(int code) {
    ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(code));
    std::abort();
}

}  // namespace zelvo::console
