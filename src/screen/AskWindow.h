#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "screen/Fields.h"
#include "screen/TextField.h"
#include "screen/Window.h"

namespace zelvo::components {

/// A small window that asks for something: Esc is cmdCancel, and what is wrong is told before it closes. Made
/// fresh for each use.
class AskWindow : public screen::Window {
public:
    /// Width and height in twips; the caption stands over its boxes as well.
    AskWindow(screen::Desktop& desktop, std::string name, std::string_view caption, double width,
              double height);

    screen::Button cmdOK, cmdCancel;

    /// Shows the window modally, with the normal pointer. True when the user confirmed and nothing was wrong
    /// with it; the fields can still be read then.
    bool ask();

protected:
    /// The text fields in the order in which they are filled: entering one selects its text, Enter goes to
    /// the next, and in the last it is cmdOK.
    void fillInOrder(std::initializer_list<screen::TextField*> fields);
    /// Takes what stands in the fields. False, after it was told, when it can't be taken: the window stays.
    virtual bool confirm() = 0;
    /// Says what is wrong and puts the cursor where it can be mended. False.
    bool refuse(std::string_view what, screen::Field& where);
    void press();

private:
    bool confirmed_ = false;
};

/// Puts a window over the middle of the one in front.
void placeInFront(screen::Window& window);

}  // namespace zelvo::components
