#pragma once

#include <string>
#include <utility>

#include "basics/Fault.h"

namespace zelvo::basics {

/// A file of this machine that can't be had. Its text names the file, for the doctor; its cause does not: a
/// path may hold the user's name.
class FileFault : public Fault {
public:
    FileFault(const std::string& description, std::string cause)
        : Fault(description), cause_(std::move(cause)) {}
    const std::string& cause() const { return cause_; }

private:
    std::string cause_;
};

}  // namespace zelvo::basics
