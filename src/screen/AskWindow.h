#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "screen/Fields.h"
#include "screen/TextField.h"
#include "screen/Window.h"

namespace zelvo::screen {

/// A small window that asks for something: Esc is cmdCancel, and what is wrong is told before it closes. Made
/// fresh for each use.
class AskWindow : public Window {
public:
    /// A button by its name and caption.
    struct Ok {
        const char *name = "cmdOK", *caption = "확인";
    };
    /// Width and height in twips; the caption stands over its boxes as well.
    AskWindow(Desktop& desktop, std::string name, std::string_view caption, double width, double height);
    AskWindow(Desktop& desktop, std::string name, std::string_view caption, double width, double height,
              Ok ok);

    Button cmdOK, cmdCancel;

    /// Shows the window modally, with the normal pointer. True when the user confirmed and nothing was wrong
    /// with it; the fields can still be read then.
    bool ask();

protected:
    /// The text fields in the order in which they are filled: entering one selects its text, Enter goes to
    /// the next, and in the last it is cmdOK.
    void fillInOrder(std::initializer_list<TextField*> fields);
    /// Takes what stands in the fields. False, after it was told, when it can't be taken: the window stays.
    virtual bool confirm() = 0;
    /// Says what is wrong and puts the cursor where it can be mended. False.
    bool refuse(std::string_view what, Field& where) { return refuse(what, where, caption()); }
    bool refuse(std::string_view what, Field& where, std::string_view boxCaption);
    void press();

private:
    bool confirmed_ = false;
};

/// Puts a window over the middle of the one in front.
void placeInFront(Window& window);

}  // namespace zelvo::screen
