#pragma once

#include <string>
#include <string_view>

#include "screen/Fields.h"
#include "screen/TextField.h"
#include "screen/Window.h"

namespace zelvo::composition {

/// A small window with one text: to be read (the explanation of an option, a cost line), or to be edited (the
/// note of a herb). Made fresh for each use.
class frmMessage : public screen::Window {
public:
    explicit frmMessage(screen::Desktop& desktop);

    screen::Panel sspMessage;
    screen::RichTextField rtxMessage;
    screen::Button cmdReg;

    /// Shows the text for reading, modally; the window is unloaded when this returns.
    void read(std::string_view caption, std::string_view text);
    /// Lets the text of rtxMessage be edited, modally, and gives it trimmed; the former one after Esc. The
    /// caller unloads the window.
    std::string BigoInfo();

private:
    std::string m_Note;
};

}  // namespace zelvo::composition
