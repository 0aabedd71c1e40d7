#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace zelvo::pharmacy {

/// What asks a server to end. Made before any thread that serves, so that it arrives in `wait` alone.
class EndRequests {
public:
    EndRequests();
    ~EndRequests();
    EndRequests(const EndRequests&) = delete;
    EndRequests& operator=(const EndRequests&) = delete;

    /// Returns when somebody asks for the end, when the process `parent` is gone (0: nobody's), or when
    /// `goesOn` says no more.
    void wait(std::int64_t parent, const std::function<bool()>& goesOn) const;

private:
    struct Insides;
    std::unique_ptr<Insides> insides_;
};

/// Keeps a socket that is going to listen from sharing its port with a second server.
void keepPort(std::uintptr_t socket);

/// Makes an empty file that is this user's alone from its first byte on, where none stands. Throws
/// std::system_error.
void makePrivateFile(const std::filesystem::path& path);

/// The folder that the user's programs keep their data in; empty when he has none.
std::filesystem::path userDataFolder();

/// This process's number, which no other has while it lives.
std::int64_t processNumber();

}  // namespace zelvo::pharmacy
