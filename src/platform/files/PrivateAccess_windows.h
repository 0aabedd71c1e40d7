#pragma once

#include <windows.h>

namespace zelvo::files {

/// The rights of what is made for this user alone: nobody else's, and none that a folder above would hand
/// down. For the calls of Windows that make something.
class PrivateAccess {
public:
    PrivateAccess();
    ~PrivateAccess();
    PrivateAccess(const PrivateAccess&) = delete;
    PrivateAccess& operator=(const PrivateAccess&) = delete;

    SECURITY_ATTRIBUTES* attributes() { return &attributes_; }

private:
    SECURITY_ATTRIBUTES attributes_{sizeof(SECURITY_ATTRIBUTES), nullptr, FALSE};
};

}  // namespace zelvo::files
