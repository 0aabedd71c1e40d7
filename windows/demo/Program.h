#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

namespace demo {

struct CloseHandle {
    void operator()(HANDLE handle) const { ::CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, CloseHandle>;

/// A program of the demo's that has been started, its own name first. It shows no console window.
class Program {
public:
    /// It starts within `job`, where one is given. Throws Fault when it can't be run.
    explicit Program(const std::vector<std::string>& arguments, HANDLE job = nullptr);

    /// Waits for its end and gives its exit code.
    int wait();
    bool runs() const;

private:
    Handle process_;
};

}  // namespace demo
