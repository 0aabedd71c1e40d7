#include "Program.h"

#include "basics/Fault.h"
#include "basics/Paths.h"
#include "platform/console/CommandLine_windows.h"

namespace demo {

Program::Program(const std::vector<std::string>& arguments, HANDLE job) {
    using zelvo::basics::Fault;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION started{};
    std::wstring line = zelvo::console::commandLine(arguments);
    // It does not run before it belongs to the job: it could leave something running behind.
    if (!::CreateProcessW(zelvo::basics::pathOf(arguments[0]).c_str(), line.data(), nullptr, nullptr, FALSE,
                          CREATE_NO_WINDOW | CREATE_SUSPENDED, nullptr, nullptr, &start, &started))
        throw Fault(arguments[0] + " can't be run: error " + std::to_string(::GetLastError()));
    process_.reset(started.hProcess);
    const Handle thread(started.hThread);
    if (job && !::AssignProcessToJobObject(job, process_.get())) {
        const DWORD error = ::GetLastError();
        ::TerminateProcess(process_.get(), 1);
        throw Fault(arguments[0] + " can't be kept: error " + std::to_string(error));
    }
    ::ResumeThread(thread.get());
}

int Program::wait() {
    ::WaitForSingleObject(process_.get(), INFINITE);
    DWORD code = 0;
    ::GetExitCodeProcess(process_.get(), &code);
    return static_cast<int>(code);
}

bool Program::runs() const {
    return ::WaitForSingleObject(process_.get(), 0) == WAIT_TIMEOUT;
}

}  // namespace demo
