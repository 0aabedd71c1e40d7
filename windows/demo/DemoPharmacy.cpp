#include "DemoPharmacy.h"

#include <filesystem>
#include <functional>

#include "basics/Fault.h"
#include "basics/Paths.h"
#include "pharmacy/PharmacyFile.h"

namespace demo {

namespace {

constexpr int looks = 200;
constexpr DWORD pause = 50;  // milliseconds

using zelvo::basics::Fault;
using zelvo::basics::pathOf;
using zelvo::basics::textOf;

/// Whoever makes the database, or starts or ends its server, holds it alone.
class Turn {
public:
    explicit Turn(const std::wstring& name) : mutex_(::CreateMutexW(nullptr, FALSE, name.c_str())) {
        if (!mutex_) throw Fault("no turn can be had: error " + std::to_string(::GetLastError()));
        ::WaitForSingleObject(mutex_.get(), INFINITE);
    }
    ~Turn() { ::ReleaseMutex(mutex_.get()); }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

private:
    Handle mutex_;
};

/// All demos of this user that have the database open hold the same job; with the last of them it ends what
/// runs in it.
Handle sharedJob(const std::wstring& name) {
    Handle job(::CreateJobObjectW(nullptr, name.c_str()));
    if (!job) throw Fault("the pharmacy can't be kept: error " + std::to_string(::GetLastError()));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    ::SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

}  // namespace

DemoPharmacy::DemoPharmacy(std::string programs, bool fresh)
    : tool_(std::move(programs)), database_(zelvo::pharmacy::defaultDatabasePath()) {
    tool_ = textOf(pathOf(tool_) / "zelvo-pharmacy.exe");
    if (database_.empty()) throw Fault("this user has no data folder");
    const std::wstring name =
        L"Local\\zelvo-demo-" + std::to_wstring(std::hash<std::wstring>()(pathOf(database_).native()));
    const Turn turn(name + L"-turn");
    job_ = sharedJob(name);
    if (fresh) end();
    std::vector<std::string> words{tool_, "--db", database_, "init"};
    if (fresh) words.emplace_back("--fresh");
    const bool made = Program(words).wait() == 0;
    const bool staysOld = !made && fresh && zelvo::pharmacy::isPharmacy(database_);
    // Demos that are open go on with it.
    if ((made || staysOld) && !isServed()) serve();
    if (staysOld) {
        throw Fault("The pharmacy stays as it was: " + database_ +
                    " can't be made anew, most likely because a chart has it open.");
    }
    if (!made) throw Fault(database_ + " can't be made");
}

// A server that runs would not tell its addresses to a new database, and holds the old one.
void DemoPharmacy::end() {
    ::TerminateJobObject(job_.get(), 0);
    for (int look = 0; isServed(); ++look) {
        if (look == looks) throw Fault("the demo pharmacy does not end");
        ::Sleep(pause);
    }
}

bool DemoPharmacy::isServed() const {
    JOBOBJECT_BASIC_ACCOUNTING_INFORMATION running{};
    return ::QueryInformationJobObject(job_.get(), JobObjectBasicAccountingInformation, &running,
                                       sizeof running, nullptr) &&
           running.ActiveProcesses > 0;
}

void DemoPharmacy::serve() {
    const std::filesystem::path ready = pathOf(database_ + ".ready");
    std::filesystem::remove(ready);
    const Program server({tool_, "--db", database_, "serve", "--ready-file", textOf(ready)}, job_.get());
    for (int look = 0; look < looks && server.runs(); ++look) {
        std::error_code missing;
        if (std::filesystem::file_size(ready, missing) > 0 && !missing) {
            std::filesystem::remove(ready, missing);
            return;
        }
        ::Sleep(pause);
    }
    throw Fault("the demo pharmacy did not start");
}

}  // namespace demo
