#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "composition/HerbTable.h"
#include "session/Session.h"

namespace zelvo::composition {

/// Offers the pharmacy's herbs beneath the name that is being typed: those that begin with it or hold it, by
/// initial consonants and with the keyboard in the wrong language too. Down and Up mark one, Enter takes it,
/// Esc leaves the text. Enter without a mark opens the picker; where that could not find what is offered, it
/// marks the first.
class HerbFinder {
public:
    HerbFinder(screen::Window& form, session::Session& session, HerbTable& herbs);

    /// A herb that is sold today.
    struct Herb {
        std::string name, pharmacyName, key, price;
        bool recommended = false;
    };
    /// The herbs that a typed text may mean, the likeliest first; their places in the list.
    static std::vector<std::size_t> find(const std::vector<Herb>& herbs, const std::string& typed);

private:
    void load();
    void textChanged(int column);
    void keyDown(int& code);
    bool pickerFinds() const;
    void take(int line);

    screen::Window& form_;
    session::Session& session_;
    HerbTable& herbs_;
    std::vector<Herb> all_;  ///< read once a session, when the table is first entered
    std::chrono::steady_clock::time_point nextRead_{};
    std::vector<std::size_t> offered_;  ///< places in `all_`, line by line
};

}  // namespace zelvo::composition
