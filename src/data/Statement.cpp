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
    const std::string quoted = basics::replaceAll(clean, "'", "''");

    // Between quotes is where an odd number of ' stands before; a doubled ' in a value already filled in
    // keeps that so.
    std::string filled;
    bool insideLiteral = false;
    std::size_t done = 0;
    const std::string_view text = text_;
    for (std::size_t next = text.find(placeholder); next != std::string_view::npos;
         next = text.find(placeholder, done)) {
        const std::string_view before = text.substr(done, next - done);
        insideLiteral ^= std::count(before.begin(), before.end(), '\'') % 2 != 0;
        filled.append(before).append(insideLiteral ? quoted : basics::bareNumber(clean));
        done = next + placeholder.size();
    }
    if (done > 0) text_ = std::move(filled.append(text.substr(done)));
    return *this;
}

Statement& Statement::fill(std::string_view placeholder, std::int32_t value) {
    text_ = basics::replaceAll(text_, placeholder, basics::decimalText(static_cast<std::int64_t>(value)));
    return *this;
}

Statement& Statement::fill(std::string_view placeholder, float value) {
    if (!std::isfinite(value)) basics::throwOverflow();
    text_ = basics::replaceAll(text_, placeholder, basics::decimalText(value));
    return *this;
}

Statement& Statement::add(std::string_view piece) {
    text_ += piece;
    return *this;
}

}  // namespace zelvo::data
