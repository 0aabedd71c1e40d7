#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <vector>

namespace zelvo::odbc {

/// The TCP connections that a driver makes: those of this process that were not there at the object's making.
/// On a system that does not tell them there are none.
class DriverSockets {
public:
    /// `port` of the server; 0 where nobody knows it.
    explicit DriverSockets(std::uint16_t port);

    /// From here on no more are counted in.
    void settle();
    /// Tears them: a driver that reads from one gets an error instead of waiting on. The descriptors stay the
    /// driver's. False when there never was one; a driver that has closed its own is at the end of its call.
    bool tear() const;
    /// True when the other end of one of them says no more.
    bool haveEnded() const;
    /// True when something waits to be read from one of them, its end too, or the driver has closed them
    /// itself.
    bool haveUnread() const;

private:
    bool hadSome() const;
    bool any(const std::function<bool(int descriptor)>& holds) const;
    bool isOwn(std::uint64_t node, std::uint16_t port) const;

    std::uint16_t port_;
    /// A login ends on the line's thread, while whoever waits for it may be looking at what it has.
    mutable std::mutex mutex_;
    bool settled_ = false;
    std::vector<std::uint64_t> nodes_;  // the others' until it is settled, the driver's then
};

}  // namespace zelvo::odbc
