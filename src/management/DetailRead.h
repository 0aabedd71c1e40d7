#pragma once

#include <cstdint>
#include <string>

#include "basics/Text.h"
#include "data/Connection.h"
#include "data/clsZELVORecordSet.h"
#include "screen/TextField.h"

/// What the sections of the order in view have in common.
namespace zelvo::management {

/// Which order a section reads.
struct DetailRead {
    data::Connection& connection;
    std::int32_t CBJ_PK;
};

/// A text of the database goes into its field without the blanks around it.
inline void show(screen::TextField& field, const std::string& text) {
    field.setText(basics::trim(text));
}

/// A key as a hidden label keeps it: "0" where there is none.
inline std::string keyText(const std::string& key) {
    const std::string text = basics::trim(key);
    return text.empty() ? "0" : text;
}

}  // namespace zelvo::management
