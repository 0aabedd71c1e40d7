#include "composition/ChubangReading.h"

#include <cstdint>

#include "composition/frmChubangRead.h"

namespace zelvo::composition {

ChubangReading::ChubangReading(screen::Window& form, session::Session& session, HerbTable& herbs,
                               LeftOut& leftOut, OrderWatch& watch)
    : form_(form), session_(session), herbs_(herbs), leftOut_(leftOut), watch_(watch) {
    herbs_.sscCBJRead.onPress.add([this] { Read_Chubang(); });
}

/// After every merge the library comes back as it was.
void ChubangReading::Read_Chubang() {
    screen::Desktop& desktop = form_.desktop();
    if (session_.m_DTRPK == 0) {
        desktop.inform("로그인 후에 사용 하십시오.(m_DTRPK = 0)", "처방 읽어오기");
        return;
    }
    frmChubangRead library(desktop, session_, herbs_, leftOut_);
    for (std::int16_t m_KeepChubangRead = 0;; m_KeepChubangRead = -1) {
        const screen::BusyPointer busy(desktop, "약속처방을 불러오는 중입니다.");
        library.left = form_.left + form_.width() - library.width();
        library.top = form_.top + form_.height() - library.height();
        std::int16_t merged = 0;
        library.Show_ChubangRead(merged, m_KeepChubangRead);
        herbs_.tdbDGL.refresh();
        session_.g_xaDrug.empty() ? herbs_.showPlainCaption() : herbs_.showRowCount();
        if (merged == 0) {
            if (m_KeepChubangRead != 0) herbs_.tdbDGL.setFocus();  // where the work goes on
            return;
        }
        herbs_.onCompositionChanged();
        watch_.priceOutdated();
    }
}

}  // namespace zelvo::composition
