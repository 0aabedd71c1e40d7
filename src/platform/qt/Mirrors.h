#pragma once

#include <memory>

#include "platform/qt/Mirror.h"

namespace zelvo::qt {

/// The mirror for a field's kind in front of the widget of its name. Throws Fault where the form's widget is
/// of another kind.
std::unique_ptr<Mirror> makeMirror(screen::Field& field, QWidget& widget);

}  // namespace zelvo::qt
