#pragma once

#include <memory>
#include <utility>

namespace zelvo::qt {

/// A widget, layout or event that the toolkit owns, by its parent or its queue.
template <class Made, class... Arguments>
Made& owned(Arguments&&... arguments) {
    return *std::make_unique<Made>(std::forward<Arguments>(arguments)...).release();
}

}  // namespace zelvo::qt
