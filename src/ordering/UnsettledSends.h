#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "screen/Desktop.h"

namespace zelvo::ordering {

/// The sends of this machine whose outcome nobody knows: a file beside the logs, a line a send, with nothing
/// but its doctor's key and its server time.
class UnsettledSends {
public:
    explicit UnsettledSends(screen::Desktop& desktop) : desktop_(desktop) {}

    /// Server times of a doctor's sends, the oldest first. Throws Fault when the file can't be read.
    std::vector<std::string> of(std::int32_t DTR_PK) const;
    /// Throws Fault when it can't be written.
    void add(std::int32_t DTR_PK, const std::string& serverTime) const;
    /// What became of it is known. Throws Fault when it can't be written.
    void settle(std::int32_t DTR_PK, const std::string& serverTime) const;

private:
    std::vector<std::string> lines() const;
    void write(const std::vector<std::string>& lines) const;

    screen::Desktop& desktop_;
};

}  // namespace zelvo::ordering
