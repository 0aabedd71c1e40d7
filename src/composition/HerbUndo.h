#pragma once

#include <string>
#include <vector>

#include "composition/HerbTable.h"
#include "screen/TextField.h"
#include "session/Session.h"

namespace zelvo::composition {

/// Takes back what a question alone protects: deleted, reset, merged and replaced herb lines, the last first.
class HerbUndo {
public:
    HerbUndo(screen::Window& form, session::Session& session, HerbTable& herbs, screen::TextField& packets,
             OrderWatch& watch);

private:
    /// The composition as it stood: the cells of its rows, and the packets.
    struct Step {
        std::vector<std::vector<std::string>> rows;
        std::string packets;
        int row = -1;
    };

    bool applies() const;
    void remember();
    void undo();

    screen::Window& form_;
    session::Session& session_;
    HerbTable& herbs_;
    screen::TextField& packets_;
    OrderWatch& watch_;
    std::vector<Step> steps_;
};

}  // namespace zelvo::composition
