#pragma once

#include <string>
#include <vector>

#include "composition/HerbTable.h"
#include "composition/LeftOut.h"
#include "screen/TextField.h"
#include "session/Session.h"

namespace zelvo::composition {

/// Takes back what happened to the herb lines, the last first: what was typed, taken, deleted, reset, merged
/// and replaced.
class HerbUndo {
public:
    HerbUndo(screen::Window& form, session::Session& session, HerbTable& herbs, screen::TextField& packets,
             LeftOut& leftOut, OrderWatch& watch);

    /// The composition is settled (it has been sent, or is another doctor's): nothing of it comes back.
    void forget() { steps_.clear(); }

private:
    /// The composition as it stood: the cells of its rows, and the packets.
    struct Step {
        std::vector<std::vector<std::string>> rows;
        std::string packets;
        int row = -1;
        std::string leftOut;  ///< the herbs that the line above the order named, where a reset took them away
        bool sameAs(const Step& other) const { return rows == other.rows && packets == other.packets; }
    };

    bool applies() const;
    Step now() const;
    void remember();
    void undo();

    screen::Window& form_;
    session::Session& session_;
    HerbTable& herbs_;
    screen::TextField& packets_;
    LeftOut& leftOut_;
    OrderWatch& watch_;
    std::vector<Step> steps_;
};

}  // namespace zelvo::composition
