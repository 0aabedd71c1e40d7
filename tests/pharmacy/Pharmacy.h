#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "pharmacy/PharmacyBook.h"
#include "pharmacy/PharmacyFile.h"

namespace zelvo::pharmacy {

/// A folder of its own for one test, with a fresh pharmacy in it.
class TestPharmacy {
public:
    TestPharmacy() {
        auto pattern = (std::filesystem::temp_directory_path() / "zelvo-pharmacy-XXXXXX").string();
        folder_ = mkdtemp(pattern.data());
        makePharmacy(path(), false);
    }
    ~TestPharmacy() { std::filesystem::remove_all(folder_); }

    std::string path() const { return file("pharmacy.db"); }
    std::string file(const std::string& name) const { return (folder_ / name).string(); }

    void run(const std::string& statements) const { Database(path()).run(statements); }

    /// The first column of all rows, joined by ", ".
    std::string read(const std::string& statement) const {
        const Database database(path());
        Query query(database, statement);
        std::string all;
        while (query.step()) all += (all.empty() ? "" : ", ") + query.text(0);
        return all;
    }

private:
    std::filesystem::path folder_;
};

}  // namespace zelvo::pharmacy
