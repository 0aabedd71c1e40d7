#pragma once

#include <array>

#include "data/RecordSet.h"
#include "screen/Fields.h"
#include "screen/Grid.h"
#include "session/Session.h"

namespace zelvo::services {

/// The notice tab: the pharmacy's card and the list of its notices.
class Notices {
public:
    Notices(screen::Window& form, screen::Place noticeTab, session::Session& session);

    std::array<screen::Label, 5> lblGongJiYakGuk;  ///< name, pharmacist, address, telephone, mobile
    screen::Label lblYakGukSvrIP;                  ///< the server's address, for display only
    screen::Grid tdbGongJi;
    data::RecordSet m_rsGongJi;

    /// Binds the list and reads it; it stays empty when it can't be read.
    void Load_GongJi();

private:
    session::Session& session_;
};

}  // namespace zelvo::services
