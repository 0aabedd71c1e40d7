#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/clsZELVOInterface.h"
#include "platform/console/UserActions.h"
#include "support/TestDatabase.h"
#include "support/TestDesktop.h"

namespace zelvo::testing {

/// A whole session as a chart starts it, on a database of its own. What happens in the main window is a
/// script.
struct HostSession {
    explicit HostSession(bool withCatalogue = true,
                         std::unique_ptr<TestDesktop> screen = std::make_unique<TestDesktop>());

    /// The values of a chart that knows its patient; the account is the demo's first doctor.
    host::HostArguments arguments() const;
    /// Runs a doctor's session with this script in the main window.
    void runDoctor(const host::HostArguments& call, std::function<void()> script);
    void runNurse(const std::string& accounts, std::function<void()> script);

    /// A field of the window in front, as its kind.
    template <class Kind>
    Kind& field(const std::string& name) {
        return dynamic_cast<Kind&>(user.find(name));
    }
    /// Text or caption of a field of the window in front.
    std::string textOf(const std::string& name);

    std::unique_ptr<TestDesktop> screen;
    TestDesktop& desktop = *screen;
    TestDatabase database;
    session::Session session;
    FaultyConnection* line = nullptr;  ///< the session's connection, while it stands
    int failAtStart = 0;               ///< the N-th call on the new connection fails
    bool staysBroken = false;
    int opened = 0;
    host::clsZELVOInterface component;
    std::vector<ordering::ChartRecord> sent;
    console::UserActions user;
};

}  // namespace zelvo::testing
