#include "management/DetailNote.h"

#include "composition/frmMessage.h"

namespace zelvo::management {

void readNote(screen::Desktop& desktop, const DetailFrames& frames, std::string_view caption,
              std::string_view text) {
    const screen::Window& form = frames.c1eCBJm1.window();
    composition::frmMessage message(desktop);
    message.openedAt = &frames.c1eCBJm10;
    message.left = form.left + frames.c1eCBJm1.left + 150;
    message.top = form.top + frames.c1eCBJm10.top + 700;
    message.read(caption, text);
}

}  // namespace zelvo::management
