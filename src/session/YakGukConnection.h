#pragma once

#include <string>

#include "data/Connection.h"
#include "screen/Desktop.h"
#include "session/Session.h"

namespace zelvo::session {

/// Of this program, as the status bar says it.
inline constexpr const char* version = " ZEL-VO 버전 : 1.0001";

/// Opens g_conYakGuk at the address; what it held before is dropped. On failure one message box names the
/// address, and the result is false. The connection's walks then let the desktop's events run, and its
/// failures are noted.
bool ConnectYakGukServer(Session& session, screen::Desktop& desktop, const data::ConnectionOpener& open,
                         const std::string& ServerAddress);

/// What comes before "look it up" in a text for the user: nothing while the session's line is open, else that
/// it takes a new session.
std::string onceStartedAgain(const Session& session);

}  // namespace zelvo::session
