#pragma once

#include <cstdint>
#include <string>

#include "components/frmPostalLookup.h"
#include "screen/Components.h"

namespace zelvo::components {

/// The postal code search as a window of our own.
class PostalLookup : public screen::PostalLookup {
public:
    PostalLookup(screen::Desktop& desktop, PostalSearch search)
        : desktop_(desktop), search_(std::move(search)) {}

    /// True when a place was taken: `juso` and `zip` are its address and code then, else as they came.
    bool ZipCode(std::string& url, std::string& juso, std::string& zip, std::int32_t& left,
                 std::int32_t& top) override;

private:
    screen::Desktop& desktop_;
    PostalSearch search_;
};

}  // namespace zelvo::components
