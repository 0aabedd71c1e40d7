#pragma once

#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

#include "host/HostArguments.h"

namespace zelvo::bench {

/// A demo pharmacy in a file of its own, gone with the object; so is what stands in a folder ".data" behind
/// its name.
class DemoPharmacy {
public:
    DemoPharmacy()
        : path_((std::filesystem::temp_directory_path() / ("zelvo-bench-" + std::to_string(getpid()) + ".db"))
                    .string()) {
        sqlite3* database = nullptr;
        if (sqlite3_open(path_.c_str(), &database) != SQLITE_OK)
            throw std::runtime_error("can't make " + path_);
        for (const char* file :
             {"schema", "herbs", "prices", "options", "prescriptions", "doctors", "orders", "notices"}) {
            std::ifstream in(std::string(ZELVO_SOURCE_DIR) + "/demo/pharmacy/" + file + ".sql");
            std::ostringstream text;
            text << in.rdbuf();
            if (sqlite3_exec(database, text.str().c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
                throw std::runtime_error(sqlite3_errmsg(database));
        }
        sqlite3_close(database);
    }
    ~DemoPharmacy() {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
        std::filesystem::remove_all(path_ + ".data", ignored);
    }
    DemoPharmacy(const DemoPharmacy&) = delete;
    DemoPharmacy& operator=(const DemoPharmacy&) = delete;
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

/// The call of a chart for one patient of the demo's first doctor.
inline host::HostArguments chartCall(const std::string& path) {
    host::HostArguments call;
    call.YakGukIP = "sqlite:" + path;
    call.DoctorIDPWD = "doctor1/$/pass1";
    call.PatientPK = 1024;
    call.PatientName = "김하늘";
    call.PatientCell = "010-1234-5678";
    call.HospitalName = "하늘한의원";
    return call;
}

}  // namespace zelvo::bench
