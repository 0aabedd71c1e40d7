#pragma once

#include <cstdint>
#include <string>

#include "screen/Fields.h"
#include "screen/TextField.h"
#include "screen/Window.h"

namespace zelvo::composition {

/// The small window that asks for the name and the memo under which a composition is stored. Made fresh for
/// each use; the caller places it.
class frmMyChuBang : public screen::Window {
public:
    explicit frmMyChuBang(screen::Desktop& desktop);

    screen::Label Label2;
    screen::TextField txtCBName;
    screen::Label Label1;
    screen::RichTextField rtxNote;
    screen::Label Label3;
    screen::Button cmdSave, cmdCancel;

    /// Asks modally. 0 with both texts trimmed if the user saved, else -1; the window is unloaded then.
    std::int16_t Show_MyChubangADD(std::string& strMyCBName, std::string& strMyCBMemo);

private:
    void save();

    std::int16_t m_SaveCanceled = -1;
};

}  // namespace zelvo::composition
