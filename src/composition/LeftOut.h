#pragma once

#include <string>
#include <vector>

#include "data/clsZELVORecordSet.h"
#include "screen/Fields.h"

namespace zelvo::composition {

/// A herb that nobody lists any more, as the doctor called it, with its grams.
std::string words(const data::LostHerb& herb);

/// Names, in a line above the order, what an earlier order or a stored prescription held and could not bring
/// along, because the pharmacy offers it no more. The line stands until the doctor has taken note of it: a
/// box would come between the steps of a reuse.
class LeftOut {
public:
    LeftOut(screen::Window& form, screen::Place orderTab);

    screen::Panel c1eLeftOut;
    screen::Label lblLeftOut;
    screen::Button cmdLeftOut;

    /// Each adds to what stands there.
    void tellHerbs(const std::vector<data::LostHerb>& herbs);
    void tellAddOns(const std::vector<std::string>& names);
    /// What the line says, "" when it is not there.
    const std::string& text() const { return lblLeftOut.caption(); }
    void setText(const std::string& text);
    void clear() { setText(""); }
    /// For a composition that begins anew: takes the herbs away, and gives what brings them back.
    std::string takeHerbs();
    void bringBack(const std::string& herbs);

private:
    void add(const std::string& item);
};

}  // namespace zelvo::composition
