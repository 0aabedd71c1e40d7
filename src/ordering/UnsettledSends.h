#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "screen/Desktop.h"

namespace zelvo::ordering {

/// A send of which the chart has not been told yet.
struct UnsettledSend {
    std::int32_t DTR_PK = 0, CBJ_PK = 0;
    std::string serverTime;  ///< "yyyy-mm-dd hh:mm:ss"
    std::string server;      ///< its database's one name
    std::string patientName;
    std::string logPrint = {};  ///< tells the order's own log from others of that second
};

/// The marks of this machine's unsettled sends: a file each beside the logs, made and removed whole, and held
/// by the session whose send it is. What holds it is nobody else's business; one that nobody holds was left
/// by a program that ended, or by a send that nobody could answer for.
class UnsettledSends {
public:
    explicit UnsettledSends(screen::Desktop& desktop) : desktop_(desktop) {}

    /// A mark that was left, held from here on; without its file where another session is asking about it.
    struct Left {
        UnsettledSend send;
        std::unique_ptr<screen::HeldFile> mark;
    };

    /// Marks a send. Throws Fault when that can't be written.
    std::unique_ptr<screen::HeldFile> mark(const UnsettledSend& send) const;
    /// A doctor's left sends to a server, the oldest first. What can't be read is none.
    std::vector<Left> left(std::int32_t DTR_PK, const std::string& server);
    /// True when something could not be read since the last call; each of them tells it once a session.
    bool metUnreadable();
    /// What became of the send is known. A mark that can't be taken away is not asked after by this session
    /// again.
    void settle(screen::HeldFile& mark);
    /// Takes the log of a send away that does not stand. Where none is, or it can't be, it stays.
    void removeLog(const UnsettledSend& send) const;

private:
    std::optional<Left> readLeft(screen::FileSystemObject& files, const std::string& path);

    screen::Desktop& desktop_;
    std::set<std::string> passedOver_;
    bool metUnreadable_ = false;
};

}  // namespace zelvo::ordering
