#pragma once

#include <functional>
#include <string>
#include <vector>

#include "screen/AskWindow.h"
#include "screen/Grid.h"
#include "tables/XArrayDB.h"

namespace zelvo::components {

struct PostalPlace {
    std::string zip, address;
};

/// Asks the search page at an address for the places that match a text. Throws Fault, with a plain sentence,
/// when the page can't be had or its answer says nothing.
using PostalSearch =
    std::function<std::vector<PostalPlace>(const std::string& page, const std::string& text)>;

/// Finds a postal code by the name of a road or a building.
class frmPostalLookup : public screen::AskWindow {
public:
    frmPostalLookup(screen::Desktop& desktop, PostalSearch search, std::string page);

    screen::TextField txtFind;
    screen::Button cmdFind;
    screen::Grid tdbFound;  ///< postal code, address

    /// The place that was taken.
    const PostalPlace& taken() const { return taken_; }

private:
    void find();
    void show(const std::vector<PostalPlace>& places);
    bool confirm() override;

    PostalSearch search_;
    std::string page_;
    tables::XArrayDB m_xaFound;
    PostalPlace taken_;
};

}  // namespace zelvo::components
