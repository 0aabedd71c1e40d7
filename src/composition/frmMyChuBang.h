#pragma once

#include <cstdint>
#include <string>

#include "screen/AskWindow.h"

namespace zelvo::composition {

/// The small window that asks for the name and the memo under which a composition is stored. Made fresh for
/// each use; the caller places it. Its cmdOK is cmdSave.
class frmMyChuBang : public screen::AskWindow {
public:
    explicit frmMyChuBang(screen::Desktop& desktop);

    screen::Label Label2;
    screen::TextField txtCBName;
    screen::Label Label1;
    screen::RichTextField rtxNote;
    screen::Label Label3;

    /// Asks modally. 0 with both texts trimmed if the user saved, else -1; the window is unloaded then.
    std::int16_t Show_MyChubangADD(std::string& strMyCBName, std::string& strMyCBMemo);

private:
    bool confirm() override;

    std::int16_t m_SaveCanceled = -1;
};

}  // namespace zelvo::composition
