#include "platform/odbc/ProcessSockets.h"

namespace zelvo::odbc {

// The system does not tell a process its sockets; its drivers bear a cancelling of their calls.
void eachSocket(const Told& /*told*/) {}
void tearSocket(int /*descriptor*/) {}
bool hasEnded(int /*descriptor*/) {
    return false;
}
bool hasUnread(int /*descriptor*/) {
    return false;
}

}  // namespace zelvo::odbc
