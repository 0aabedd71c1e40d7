#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace zelvo::testing {

/// A web server of this process on a free port of the loopback, one connection at a time. It keeps what it
/// was asked and answers what the test tells it to, byte for byte.
class CannedServer {
public:
    struct Reply {
        std::string bytes;
        /// Keeps the connection open after the bytes until the server goes.
        bool hangs = false;
    };
    using Handler = std::function<Reply(const std::string& request)>;

    /// Without a handler it closes each connection unread.
    explicit CannedServer(Handler handler);
    explicit CannedServer(std::string bytes)
        : CannedServer([bytes](const std::string&) { return Reply{bytes}; }) {}
    ~CannedServer();
    CannedServer(const CannedServer&) = delete;
    CannedServer& operator=(const CannedServer&) = delete;

    int port() const { return port_; }
    std::string address(const std::string& path = "/") const;
    /// Head and body of each request so far.
    std::vector<std::string> requests() const;

    /// A reply in good order with its length.
    static std::string ok(const std::string& body,
                          const std::string& contentType = "text/html; charset=UTF-8");
    static std::string redirect(const std::string& target, const std::string& status = "302 Found");
    /// A port on which nobody listens.
    static int closedPort();

private:
    void serve();
    void answer(int connection);
    std::string readRequest(int connection) const;

    Handler handler_;
    int listener_ = -1, port_ = 0;
    std::atomic<bool> stopping_ = false;
    mutable std::mutex lock_;
    std::vector<std::string> requests_;
    std::thread thread_;
};

}  // namespace zelvo::testing
