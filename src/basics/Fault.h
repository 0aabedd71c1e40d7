#pragma once

#include <stdexcept>
#include <string>

namespace zelvo::basics {

/// A run-time fault. Its text is the plain description that a message box shows to the doctor.
class Fault : public std::runtime_error {
public:
    explicit Fault(const std::string& description) : std::runtime_error(description) {}
};

/// A number that does not fit its 16- or 32-bit place.
[[noreturn]] void throwOverflow();
/// A text that is no number where one is needed.
[[noreturn]] void throwTypeMismatch();

}  // namespace zelvo::basics
