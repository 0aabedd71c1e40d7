#include "platform/qt/Display.h"

namespace zelvo::qt {

// There is always one, and the toolkit's part for it is in the program.
Display findDisplay() {
    return {};
}

}  // namespace zelvo::qt
