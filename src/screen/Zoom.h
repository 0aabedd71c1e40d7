#pragma once

#include "screen/Event.h"
#include "screen/Remembered.h"

namespace zelvo::screen {

/// How large the user has the windows drawn, in per cent of what they are designed for; kept from session to
/// session.
class Zoom {
public:
    explicit Zoom(Remembered& remembered) : remembered_(remembered) {}

    int percent() const;
    /// To the next larger (1) or smaller (-1) size that is offered; at the last one nothing happens.
    void step(int direction);
    void reset() { change(usual); }
    Event<> onChange;

private:
    static constexpr int usual = 100;

    void change(int percent);

    Remembered& remembered_;
};

}  // namespace zelvo::screen
