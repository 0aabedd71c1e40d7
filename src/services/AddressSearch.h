#pragma once

#include <string>
#include <vector>

#include "composition/OrderWatch.h"
#include "screen/Fields.h"
#include "screen/TextField.h"
#include "session/Session.h"

namespace zelvo::services {

/// A postal code and its address on the glass, with the button that finds them.
struct AddressBlock {
    screen::TwoStateButton& ssrZipCode;
    screen::TextField& zip;
    screen::TextField& juso;
    /// Told when another postal code comes in; nullptr for a block that no price depends on.
    composition::OrderWatch* watch = nullptr;
};

/// Finds postal codes in the clinic's search window, for all blocks of the main window alike.
class AddressSearch {
public:
    /// The window opens beside `patientTab`, whichever block asks.
    AddressSearch(screen::Window& form, session::Session& session, const screen::Field& patientTab,
                  const std::vector<AddressBlock>& blocks);

private:
    void search(const AddressBlock& block);
    void ask(const std::string& page, std::string& Juso, std::string& Zip);
    std::string searchPage();

    screen::Window& form_;
    session::Session& session_;
    const screen::Field& patientTab_;
    bool byEnter_ = false;  ///< the press that comes is one of Enter
};

}  // namespace zelvo::services
