#pragma once

#include <string>

namespace zelvo::qt {

/// The life of the toolkit in a host's process. A host's own application is used; where there is none, one is
/// made at the first call and kept until `leave`.
class Toolkit {
public:
    /// Makes sure that windows can be shown on this thread. "" when they can, else why not, in words for the
    /// host; the process goes on in either case.
    static std::string enter();
    /// Ends the application that `enter` made, on the thread that made it. True when none is left of ours.
    static bool leave();
};

}  // namespace zelvo::qt
