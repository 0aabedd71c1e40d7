#pragma once

#include <cstdint>
#include <string>

namespace zelvo::pharmacy {

struct ServeOptions {
    std::string databasePath;
    int port = 0;             // 0: any free one
    std::string readyFile;    // gets the port once it listens; none when empty
    std::int64_t parent = 0;  // ends when this process is gone; 0: none
};

/// Serves the pages until SIGTERM or SIGINT, or until the parent is gone, with the addresses told to the
/// clinics and "listening http://127.0.0.1:PORT" printed. Gives the exit code. Throws DatabaseError when no
/// pharmacy is there.
int serve(const ServeOptions& options);

}  // namespace zelvo::pharmacy
