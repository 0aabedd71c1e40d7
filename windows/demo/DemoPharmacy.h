#pragma once

#include <string>

#include "Program.h"

namespace demo {

/// The demo's pharmacy on this machine. Its pages are served until the last demo of this user has ended, in
/// whatever way.
class DemoPharmacy {
public:
    /// Makes the database where there is none, or anew; `programs` is the folder of the demo's programs.
    /// Throws Fault when it can't be made or its pages can't be served; the old one is served on where no
    /// new one could take its place.
    DemoPharmacy(std::string programs, bool fresh);

    /// The address that a chart hands over.
    std::string address() const { return "sqlite:" + database_; }

private:
    void serve();
    void end();
    bool isServed() const;

    std::string tool_;
    std::string database_;
    Handle job_;
};

}  // namespace demo
