#pragma once

#include <string>
#include <string_view>

namespace zelvo::basics {

/// What those who help a clinic by telephone can look at: a line a failure, and never a value, a name or a
/// text of anybody's.
class SupportRecord {
public:
    virtual ~SupportRecord() = default;
    /// Notes a line with the time before it. From any thread; a record that can't be kept is nobody's
    /// trouble.
    virtual void add(std::string_view line) noexcept = 0;
    /// The last lines, the newest at the end; "" when there are none.
    virtual std::string lastLines() const = 0;
};

}  // namespace zelvo::basics
