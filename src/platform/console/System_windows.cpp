#include "platform/console/System.h"

#include <windows.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <streambuf>

#include "basics/Fault.h"
#include "basics/Paths.h"
#include "basics/Text.h"
#include "platform/console/CommandLine_windows.h"

namespace zelvo::console {

namespace {

/// What a person types, in UTF-16 from the console: its own reading in UTF-8 loses all but ASCII.
class TypedLines : public std::streambuf {
protected:
    int_type underflow() override {
        constexpr wchar_t endOfInput = 0x1A;  // Ctrl+Z and Enter
        std::array<wchar_t, 1024> typed{};
        DWORD count = 0;
        if (!::ReadConsoleW(::GetStdHandle(STD_INPUT_HANDLE), typed.data(), static_cast<DWORD>(typed.size()),
                            &count, nullptr) ||
            count == 0 || typed[0] == endOfInput)
            return traits_type::eof();
        line_ = basics::removeAll(basics::textOf(std::wstring(typed.data(), count)), "\r");
        setg(line_.data(), line_.data(), line_.data() + line_.size());
        return line_.empty() ? underflow() : traits_type::to_int_type(line_[0]);
    }

private:
    std::string line_;
};

}  // namespace

bool prepareTerminal() {
    ::SetConsoleOutputCP(CP_UTF8);
    // A console that gets a letter's bytes one by one shows none of it.
    for (std::FILE* const stream : {stdout, stderr}) std::setvbuf(stream, nullptr, _IOFBF, BUFSIZ);
    DWORD mode = 0;
    if (!::GetConsoleMode(::GetStdHandle(STD_INPUT_HANDLE), &mode)) return false;
    static TypedLines typed;
    std::cin.rdbuf(&typed);
    return true;
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
