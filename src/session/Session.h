#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "data/Connection.h"
#include "tables/XArrayDB.h"

namespace zelvo::session {

/// The state that all of a session shares. It serves one open window at a time.
struct Session {
    std::unique_ptr<data::Connection> g_conYakGuk;  ///< the pharmacy's database; empty outside a session
    void* g_conChart = nullptr;  ///< the host's own connection, never touched, only handed on
    tables::XArrayDB g_xaDrug;   ///< the composition: one row a herb, columns 0 to 10
    std::int32_t m_DTRPK = 0;    ///< key of the doctor who is logged in, 0 for nobody
    std::string m_DoctorIDPWD;   ///< the account text in force
    bool m_IsNurse = false;

    /// The open connection. Throws Fault when there is none.
    data::Connection& connection() const;
};

}  // namespace zelvo::session
