#pragma once

#include <atomic>
#include <string>

#include "data/Connection.h"
#include "screen/Desktop.h"
#include "session/Session.h"

namespace zelvo::assembly {

/// What all windows of the process share: the session's state, which serves one open window at a time.
class Component {
public:
    /// The process's one component.
    static Component& instance();

    session::Session session;
    /// The server address of the running or latest call.
    std::string serverAddress;

    /// The right to open a window, for as long as it lives; whether it was given says `granted`.
    class Turn {
    public:
        explicit Turn(Component& component)
            : component_(component), granted_(!component.taken_.exchange(true)) {}
        ~Turn() {
            if (granted_) component_.taken_ = false;
        }
        Turn(const Turn&) = delete;
        Turn& operator=(const Turn&) = delete;
        bool granted() const { return granted_; }

    private:
        Component& component_;
        bool granted_;
    };

private:
    std::atomic<bool> taken_ = false;
};

/// Opens the connection that the address asks for: "sqlite:" and a path is a file, anything else
/// a SQL Server. Throws Fault.
std::unique_ptr<data::Connection> openPharmacy(const data::ServerLogin& login);

/// Registers the components of this machine that no window of a host has brought; those that are windows
/// stand on this desktop.
void registerComponents(screen::Desktop& desktop);

}  // namespace zelvo::assembly
