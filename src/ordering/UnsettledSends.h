#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "screen/Desktop.h"

namespace zelvo::ordering {

/// A send whose outcome nobody knows.
struct UnsettledSend {
    std::int32_t DTR_PK = 0, CBJ_PK = 0;
    std::string serverTime;  ///< "yyyy-mm-dd hh:mm:ss"
    std::string server;      ///< its address, as the chart gave it
};

/// The unsettled sends of this machine: a file beside the logs, a line a send.
class UnsettledSends {
public:
    explicit UnsettledSends(screen::Desktop& desktop) : desktop_(desktop) {}

    /// A doctor's sends to a server, the oldest first. Throws Fault when the file can't be read.
    std::vector<UnsettledSend> of(std::int32_t DTR_PK, const std::string& server) const;
    /// Throws Fault when it can't be written.
    void add(const UnsettledSend& send) const;
    /// What became of it is known. Throws Fault when it can't be written.
    void settle(const UnsettledSend& send) const;

private:
    std::vector<std::string> lines() const;
    void write(const std::vector<std::string>& lines) const;

    screen::Desktop& desktop_;
};

}  // namespace zelvo::ordering
