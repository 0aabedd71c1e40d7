#include "data/Statement.h"

#include <algorithm>
#include <cmath>

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "basics/Utf8.h"

namespace zelvo::data {

Statement& Statement::fill(std::string_view placeholder, std::string_view value) {
    const std::string clean = basics::cleanUtf8(value);
    // Between quotes is where an odd number of ' stands before; a doubled ' in a value that went in keeps
    // that so.
    bool insideLiteral = false;
    std::size_t done = 0;
    for (std::size_t at = text_.find(placeholder); at != std::string::npos;
         at = text_.find(placeholder, done)) {
        const std::string_view before = std::string_view(text_).substr(done, at - done);
        insideLiteral ^= std::count(before.begin(), before.end(), '\'') % 2 != 0;
        const std::string safe =
            insideLiteral ? basics::replaceAll(clean, "'", "''") : basics::bareNumber(clean);
        text_.replace(at, placeholder.size(), safe);
        done = at + safe.size();
    }
    return *this;
}

Statement& Statement::fill(std::string_view placeholder, std::int32_t value) {
    return put(placeholder, basics::decimalText(std::int64_t{value}));
}

Statement& Statement::fill(std::string_view placeholder, float value) {
    if (!std::isfinite(value)) basics::throwOverflow();
    return put(placeholder, basics::decimalText(value));
}

/// A number can't hurt, wherever its placeholder stands.
Statement& Statement::put(std::string_view placeholder, std::string_view number) {
    for (std::size_t at = text_.find(placeholder); at != std::string::npos;
         at = text_.find(placeholder, at + number.size())) {
        text_.replace(at, placeholder.size(), number);
    }
    return *this;
}

Statement& Statement::add(std::string_view piece) {
    text_ += piece;
    return *this;
}

}  // namespace zelvo::data
