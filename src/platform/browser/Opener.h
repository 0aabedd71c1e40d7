#pragma once

#include <memory>
#include <string>

namespace zelvo::browser {

/// What the desktop opens an address with, started without a shell.
class Opener {
public:
    Opener();
    ~Opener();
    Opener(const Opener&) = delete;
    Opener& operator=(const Opener&) = delete;

    /// Has an address shown. Throws Fault where there is nothing that could.
    void open(const std::string& address);

private:
    struct Running;
    std::unique_ptr<Running> running_;
};

}  // namespace zelvo::browser
