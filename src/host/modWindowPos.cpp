#include "host/modWindowPos.h"

#include "screen/Desktop.h"

namespace zelvo::host::modWindowPos {

void CenterForm(screen::Window& form) {
    form.touch();
    form.left = form.desktop().screenWidth() / 2 - form.width() / 2;
    form.top = form.desktop().screenHeight() / 2 - form.height() / 2;
}

}  // namespace zelvo::host::modWindowPos
