#pragma once

#include <filesystem>
#include <mutex>

#include "basics/SupportRecord.h"

namespace zelvo::files {

/// The support record as "support.log" in a folder, for this user alone: at most 1 MB, and one former file.
class SupportFile : public basics::SupportRecord {
public:
    /// The folder is made when there is something to note.
    explicit SupportFile(std::filesystem::path folder) : folder_(std::move(folder)) {}

    void add(std::string_view line) noexcept override;
    std::string lastLines() const override;

private:
    void write(const std::string& line) const;

    std::filesystem::path folder_;
    mutable std::mutex mutex_;
};

}  // namespace zelvo::files
