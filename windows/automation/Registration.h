#pragma once

namespace automation {

/// Writes for this user what charts of 32 and 64 bits find the program by. Throws Fault when it can't.
void enterInRegistry();
/// Takes it away again; what is not there is no fault.
void removeFromRegistry();

}  // namespace automation
