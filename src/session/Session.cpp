#include "session/Session.h"

#include "basics/Fault.h"

namespace zelvo::session {

data::Connection& Session::connection() const {
    if (!g_conYakGuk) throw basics::Fault("한약국 DB서버에 연결되어 있지 않습니다.");
    return *g_conYakGuk;
}

}  // namespace zelvo::session
